// The user's ten finger notes on the server, to look at and to change.
#include "panels/frmNotes.h"

#include "panels/ChangeMark.h"
#include "platform/NamedControl.h"
#include "platform/StreamText.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QScreen>

#include <algorithm>

namespace {

constexpr EditPanelKind Kind{NotesSection, &askForNotes};
constexpr int NoteLetters = 75; // what a server of 79 columns does not wrap
constexpr int Beside = 160;     // pixels of the screen that a note leaves to what stands beside it
constexpr int Gap = 6;          // pixels, above the buttons

std::string nameOf(const char* array, std::size_t index) { return array + ("(" + std::to_string(index) + ")"); }

// "&1" to "&9" and "1&0".
QString captionOf(std::size_t index) {
    return index + 1 < FingerNotes ? QStringLiteral("&%1").arg(index + 1) : QStringLiteral("1&0");
}

} // namespace

frmNotes::frmNotes(const PanelRoads& roads) : panel_(this, roads, Kind) {
    setObjectName(QStringLiteral("frmNotes"));
    setWindowTitle(tr("Variables"));
    auto* column = new QVBoxLayout(this);
    column->addLayout(buildNotes());
    column->addStretch();
    column->addSpacing(Gap);
    column->addLayout(
        panel_.buttons([this] { return [now = changes()](const ChangeRoad& road) { zSendChanges(now, road); }; },
                       [this] { zSetDisp(); }));
}

QLayout* frmNotes::buildNotes() {
    auto* grid = new QGridLayout;
    for (std::size_t index = 0; index < FingerNotes; ++index) {
        auto* field = txtNote_[index] = named(new QLineEdit(this), nameOf("txtNote", index).c_str());
        auto* label = lblNote_[index] = labelOf(this, nameOf("lblNote", index).c_str(), captionOf(index), field);
        field->setAccessibleName(tr("Note %1").arg(index + 1));
        connect(field, &QLineEdit::textChanged, this, [this, index](const QString& text) {
            marks_.lblNote[index] = lineOf(text) != said_[static_cast<long>(index)];
            showMark(lblNote_[index], txtNote_[index], marks_.lblNote[index]);
        });
        const int row = static_cast<int>(index);
        grid->addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(field, row, 1);
    }
    grid->setColumnMinimumWidth(
        1, std::min(NoteLetters * fontMetrics().averageCharWidth(), screen()->availableSize().width() - Beside));
    return grid;
}

void frmNotes::zParseNotes() {
    said_ = modChess.NotesText;
    zSetDisp();
}

void frmNotes::zSetDisp() {
    for (std::size_t index = 0; index < FingerNotes; ++index) {
        txtNote_[index]->setText(shownText(said_[static_cast<long>(index)]));
        txtNote_[index]->setCursorPosition(0); // a long one shows its beginning
    }
    marks_ = {};
    mark();
}

void frmNotes::mark() {
    for (std::size_t index = 0; index < FingerNotes; ++index) {
        showMark(lblNote_[index], txtNote_[index], marks_.lblNote[index]);
    }
}

NotesChanges frmNotes::changes() const {
    NotesChanges now = marks_;
    for (std::size_t index = 0; index < FingerNotes; ++index) now.txtNote[index] = lineOf(txtNote_[index]->text());
    return now;
}

void frmNotes::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) mark();
}

void frmNotes::closeEvent(QCloseEvent* event) {
    event->accept();
    panel_.unload();
}
