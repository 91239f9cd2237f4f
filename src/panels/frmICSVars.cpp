// The user's variables on the server, to look at and to change.
#include "panels/frmICSVars.h"

#include "common/modChess.h"
#include "panels/ChangeMark.h"
#include "platform/NamedControl.h"
#include "platform/StreamText.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>

namespace {

constexpr EditPanelKind Kind{VarsSection, &askForVars};
constexpr int Gap = 6;       // pixels, above the buttons
constexpr int FlagRows = 9;  // three columns hold all flags, and fit on a low screen
constexpr int ColumnGap = 3; // letters

// The letter of each number that leads to its field with Alt.
constexpr std::array<const char*, numberVars.size()> NumberCaptions{"&Time",      "&Inc",   "&KibLevel", "&UnObserve",
                                                                    "T&olerance", "&Width", "&Height"};

std::string nameOf(const char* array, std::size_t index) { return array + ("(" + std::to_string(index) + ")"); }

} // namespace

frmICSVars::frmICSVars(const PanelRoads& roads) : panel_(this, roads, Kind) {
    setObjectName(QStringLiteral("frmICSVars"));
    setWindowTitle(tr("Variables"));
    auto* column = new QVBoxLayout(this);
    auto* groups = new QHBoxLayout;
    groups->addWidget(buildNumbers());
    groups->addWidget(buildFlags(), 1);
    column->addLayout(groups);
    column->addLayout(buildPrompt());
    column->addSpacing(Gap);
    column->addLayout(
        panel_.buttons([this] { return [now = changes()](const ChangeRoad& road) { zSendChanges(now, road); }; },
                       [this] { zSetDisp(); }));
    column->setSizeConstraint(QLayout::SetFixedSize);
    fitNumbers();
}

QGroupBox* frmICSVars::buildNumbers() {
    auto* group = new QGroupBox(tr("Numbers"), this);
    auto* grid = new QGridLayout(group);
    for (std::size_t index = 0; index < numberVars.size(); ++index) {
        auto* field = txtVar_[index] = named(new QLineEdit(group), nameOf("txtVar", index).c_str());
        lblVar_[index] =
            labelOf(group, nameOf("lblVar", index).c_str(), QString::fromLatin1(NumberCaptions[index]), field);
        connect(field, &QLineEdit::textChanged, this, [this, index](const QString& text) {
            marks_.lblVar[index] = isOtherNumber(said_.VarNumber[static_cast<long>(index)], lineOf(text));
            showMark(lblVar_[index], txtVar_[index], marks_.lblVar[index]);
        });
        const int row = static_cast<int>(index);
        grid->addWidget(lblVar_[index], row, 0);
        grid->addWidget(field, row, 1);
    }
    grid->setRowStretch(static_cast<int>(numberVars.size()), 1);
    return group;
}

QGroupBox* frmICSVars::buildFlags() {
    auto* group = new QGroupBox(tr("&Switches"), this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(ColumnGap * fontMetrics().averageCharWidth());
    for (std::size_t index = 0; index < flagVars.size(); ++index) {
        auto* box = chkVar_[index] =
            named(new QCheckBox(QString::fromLatin1(flagVars[index].caption), group), nameOf("chkVar", index).c_str());
        connect(box, &QCheckBox::toggled, this, [this, index](bool ticked) {
            marks_.chkVar[index] = said_.VarFlag[static_cast<long>(index)] != (ticked ? 1 : 0);
            showMark(chkVar_[index], chkVar_[index], marks_.chkVar[index]);
        });
        const int place = static_cast<int>(index);
        grid->addWidget(box, place % FlagRows, place / FlagRows);
    }
    return group;
}

QLayout* frmICSVars::buildPrompt() {
    auto* row = new QHBoxLayout;
    txtPrompt_ = named(new QLineEdit(this), "txtPrompt");
    lblPrompt_ = labelOf(this, "lblPrompt", tr("&Prompt"), txtPrompt_);
    connect(txtPrompt_, &QLineEdit::textChanged, this, [this](const QString& text) {
        marks_.lblPrompt = lineOf(text) != said_.VarPrompt;
        showMark(lblPrompt_, txtPrompt_, marks_.lblPrompt);
    });
    row->addWidget(lblPrompt_);
    row->addWidget(txtPrompt_, 1);
    return row;
}

// Room for the longest number that the server may send.
void frmICSVars::fitNumbers() {
    constexpr int Around = 18; // pixels, of frame, margins and caret
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-32768")) + Around;
    for (QLineEdit* field : txtVar_) field->setFixedWidth(width);
}

void frmICSVars::zParseVars() {
    said_.zParseVars(modChess.VarsBlock);
    zSetDisp();
}

// A flag beyond 1 is ticked, and no change of the user's.
void frmICSVars::zSetDisp() {
    for (std::size_t index = 0; index < txtVar_.size(); ++index) {
        txtVar_[index]->setText(QString::number(said_.VarNumber[static_cast<long>(index)]));
    }
    for (std::size_t index = 0; index < chkVar_.size(); ++index) {
        chkVar_[index]->setChecked(said_.VarFlag[static_cast<long>(index)] != 0);
    }
    txtPrompt_->setText(shownText(said_.VarPrompt));
    marks_ = {};
    mark();
}

void frmICSVars::mark() {
    for (std::size_t index = 0; index < lblVar_.size(); ++index) {
        showMark(lblVar_[index], txtVar_[index], marks_.lblVar[index]);
    }
    for (std::size_t index = 0; index < chkVar_.size(); ++index) {
        showMark(chkVar_[index], chkVar_[index], marks_.chkVar[index]);
    }
    showMark(lblPrompt_, txtPrompt_, marks_.lblPrompt);
}

VarsChanges frmICSVars::changes() const {
    VarsChanges now = marks_;
    for (std::size_t index = 0; index < txtVar_.size(); ++index) now.txtVar[index] = lineOf(txtVar_[index]->text());
    now.txtPrompt = lineOf(txtPrompt_->text());
    return now;
}

void frmICSVars::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) mark();
    if (event->type() == QEvent::FontChange) fitNumbers();
}

void frmICSVars::closeEvent(QCloseEvent* event) {
    event->accept();
    panel_.unload();
}
