// The page of the options dialog for colours and font, with a preview.
#include "settings/LookPage.h"

#include "platform/Boxes.h"
#include "platform/Colors.h"
#include "platform/ConsoleFont.h"
#include "platform/Described.h"
#include "platform/NamedControl.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPointer>
#include <QPushButton>

namespace {

constexpr int Margin = 8; // pixels, of the texts in the preview
constexpr int GroundRow = 4;
constexpr int TypeRow = 5;
constexpr int Rows = 7;

// A button, and the colour that it changes.
struct ColorButton {
    const char* name;
    const char* caption;
    std::int32_t ConsoleColors::*color;
};

// From the top, each beside what it changes.
constexpr std::array<ColorButton, Rows> colorButtons{{
    {"cmdMain", "&Main Text...", &ConsoleColors::Main},
    {"cmdTell", "&Tell Text...", &ConsoleColors::Tell},
    {"cmdCopy", "Cop&y Text...", &ConsoleColors::Copy},
    {"cmdShout", "S&hout Text...", &ConsoleColors::Shout},
    {"cmdBkGn", "Bac&kground...", &ConsoleColors::Background},
    {"cmdType", "Ty&ping Text...", &ConsoleColors::Type},
    {"cmdBar", "Typing Ba&r...", &ConsoleColors::Bar},
}};

// A line of the preview, in the row of its button.
struct PreviewText {
    const char* name;
    const char* caption;
};
constexpr std::array<PreviewText, 4> previewTexts{
    {{"lblMain", "Main Window"}, {"lblTellRec", "Tell Text"}, {"lblCopy", "Copy Text"}, {"lblShout", "Shout Text"}}};

void paint(QWidget& part, QPalette::ColorRole role, std::int32_t color) {
    QPalette look = part.palette();
    look.setColor(role, colorOf(color));
    part.setPalette(look);
}

} // namespace

LookPage::LookPage(const OptionsRoads& roads, QWidget* parent)
    : QWidget(parent), roads_(roads), font_(modChess.MainFont.empty() ? DesignedFont : modChess.MainFont) {
    auto* row = new QHBoxLayout(this);
    row->addWidget(buildConsole(), 1); // the first to be reached by Tab
    auto* side = new QVBoxLayout;
    side->addLayout(buildSchemes());
    side->addWidget(buildGraph());
    side->addStretch();
    side->addWidget(buildBoardColors());
    row->addLayout(side);
    showLook();
}

QWidget* LookPage::buildConsole() {
    auto* frame = new QGroupBox(tr("Console"), this);
    auto* grid = new QGridLayout(frame);
    for (int row = 0; row < Rows; ++row) {
        const ColorButton& change = colorButtons[static_cast<std::size_t>(row)];
        auto* button = named(new QPushButton(QString::fromLatin1(change.caption), frame), change.name);
        connect(button, &QPushButton::clicked, this, [this, color = change.color] { pick(color); });
        grid->addWidget(button, row, 0);
    }
    buildPreview(frame, *grid);
    return frame;
}

// The texts lie on the paper, each in the row of its button.
void LookPage::buildPreview(QWidget* frame, QGridLayout& grid) {
    picMain_ = named(new QFrame(frame), "picMain");
    picMain_->setFrameShape(QFrame::StyledPanel);
    picMain_->setAutoFillBackground(true);
    describe(picMain_, QAccessible::Graphic, tr("Background"), [this] { return colorInWords(colors_.Background); });
    grid.addWidget(picMain_, 0, 1, GroundRow + 1, 1);
    for (std::size_t row = 0; row < texts_.size(); ++row) {
        texts_[row] = previewLabel(frame, previewTexts[row].name, previewTexts[row].caption);
        grid.addWidget(texts_[row], static_cast<int>(row), 1);
        describe(texts_[row], QAccessible::StaticText, texts_[row]->text(),
                 [this, row] { return colorInWords(colors_.*colorButtons[row].color); });
    }
    lblType_ = previewLabel(frame, "lblType", " Typing Bar");
    lblType_->setFrameShape(QFrame::StyledPanel);
    lblType_->setAutoFillBackground(true);
    describe(lblType_, QAccessible::StaticText, lblType_->text().trimmed(),
             [this] { return tr("%1 on %2").arg(colorInWords(colors_.Type), colorInWords(colors_.Bar)); });
    grid.addWidget(lblType_, TypeRow, 1, 2, 1);
    grid.setColumnStretch(1, 1);
}

QLabel* LookPage::previewLabel(QWidget* frame, const char* name, const char* caption) {
    auto* label = named(new QLabel(QString::fromLatin1(caption), frame), name);
    label->setIndent(Margin);
    return label;
}

QWidget* LookPage::buildGraph() {
    auto* frame = named(new QGroupBox(tr("Seek Graph"), this), "fraSeekGraph");
    auto* column = new QVBoxLayout(frame);
    optSeekColors_ = {named(new QRadioButton(tr("Te&xt Colors"), frame), "optSeekColors(0)"),
                      named(new QRadioButton(tr("&White"), frame), "optSeekColors(1)")};
    for (QRadioButton* choice : optSeekColors_) column->addWidget(choice);
    chooseGraph(modChess.SeekWhite != 0);
    return frame;
}

QLayout* LookPage::buildSchemes() {
    cboDefaults_ = named(new QComboBox(this), "cboDefaults");
    cboDefaults_->addItem(tr("Defaults"));
    for (const ColorScheme& scheme : colorSchemes) cboDefaults_->addItem(QString::fromLatin1(scheme.name));
    for (const FontScheme& scheme : fontSchemes) cboDefaults_->addItem(QString::fromLatin1(scheme.name));
    cboDefaults_->setToolTip(tr("Allows changing to standard color and font schemes "));
    connect(cboDefaults_, &QComboBox::activated, this, &LookPage::chooseScheme);
    auto* row = new QHBoxLayout;
    row->addWidget(labelOf(this, "lblDefaults", tr("Sch&eme"), cboDefaults_));
    row->addWidget(cboDefaults_, 1);
    cboDefaults_->setAccessibleName(tr("Defaults"));
    return row;
}

QPushButton* LookPage::buildBoardColors() {
    auto* button = named(new QPushButton(tr("Board C&olors..."), this), "cmdBoard");
    connect(button, &QPushButton::clicked, this, [this] { roads_.showBoardColors(window()->pos()); });
    return button;
}

bool LookPage::zColorPick(std::int32_t& color) {
    const QPointer<LookPage> self(this);
    const auto chosen = boxes.colour(this, color);
    if (!self || !chosen) return false;
    color = *chosen;
    return true;
}

void LookPage::pick(std::int32_t ConsoleColors::*color) {
    if (zColorPick(colors_.*color)) showLook();
}

void LookPage::chooseScheme(int index) {
    const int font = index - 1 - static_cast<int>(colorSchemes.size());
    if (index <= 0) return;
    if (font >= 0) {
        font_ = fontSchemes.at(static_cast<std::size_t>(font)).font;
    } else {
        const ColorScheme& scheme = colorSchemes.at(static_cast<std::size_t>(index - 1));
        colors_ = scheme.colors;
        chooseGraph(scheme.whiteGraph);
    }
    showLook();
}

void LookPage::chooseGraph(bool white) { optSeekColors_[white ? 1 : 0]->setChecked(true); }

void LookPage::showLook() {
    paint(*picMain_, QPalette::Window, colors_.Background);
    for (std::size_t row = 0; row < texts_.size(); ++row) {
        paint(*texts_[row], QPalette::WindowText, colors_.*colorButtons[row].color);
        texts_[row]->setFont(consoleFont(font_));
    }
    paint(*lblType_, QPalette::Window, colors_.Bar);
    paint(*lblType_, QPalette::WindowText, colors_.Type);
    lblType_->setFont(consoleFont(font_));
}

void LookPage::takeLook() const {
    setConsoleColors(colors_);
    modChess.MainFont = font_;
}

void LookPage::takeGraph() const { modChess.SeekWhite = seekWhiteOf(optSeekColors_[1]->isChecked()); }
