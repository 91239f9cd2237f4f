// The page of the options dialog for moves, games and clocks.
#include "settings/GamesPage.h"

#include "platform/NamedControl.h"
#include "platform/StreamText.h"
#include "settings/MouseSlips.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>

namespace {

constexpr int WarnBox = 6; // letters

} // namespace

GamesPage::GamesPage(QWidget* parent) : QWidget(parent) {
    auto* frames = new QHBoxLayout;
    frames->addWidget(buildMoves());
    frames->addWidget(buildGames());
    auto* column = new QVBoxLayout(this);
    column->addLayout(frames);
    column->addStretch();
}

QWidget* GamesPage::buildMoves() {
    auto* frame = new QGroupBox(tr("Moves"), this);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(boxes_.add(frame, PreMoves));
    QCheckBox* drag = boxes_.add(frame, Dragging);
    column->addWidget(drag);
    column->addLayout(buildSlip(frame));
    column->addWidget(boxes_.add(frame, AlwaysQueen));
    column->addStretch();
    enableSlip(modChess.DragMode > 0);
    connect(drag, &QCheckBox::toggled, this, &GamesPage::enableSlip);
    return frame;
}

QLayout* GamesPage::buildSlip(QWidget* frame) {
    cboSlip_ = named(new QComboBox(frame), "cboSlip");
    for (const MouseSlipDelay& delay : mouseSlips) cboSlip_->addItem(shownText(delay.text));
    const int index = modChess.MouseSlip;
    cboSlip_->setCurrentIndex(index >= 0 && index < cboSlip_->count() ? index : -1);
    cboSlip_->setToolTip(tr("Mouse-up delay time for moves.  Defeated with right-click"));
    lblSlip_ = labelOf(frame, "lblSlip", tr("Anti-&Mouse Slip"), cboSlip_);
    auto* row = new QHBoxLayout;
    row->addWidget(lblSlip_);
    row->addWidget(cboSlip_);
    row->addStretch();
    return row;
}

void GamesPage::enableSlip(bool enabled) {
    cboSlip_->setEnabled(enabled);
    lblSlip_->setEnabled(enabled);
}

QWidget* GamesPage::buildGames() {
    auto* frame = new QGroupBox(tr("Games"), this);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(boxes_.add(frame, ConfirmResigning));
    column->addLayout(buildWarning(frame));
    column->addWidget(boxes_.add(frame, SeekOffInGames));
    column->addStretch();
    return frame;
}

QLayout* GamesPage::buildWarning(QWidget* frame) {
    auto* box = named(new QLineEdit(QString::number(modChess.WarnTime), frame), "txtWarn");
    box->setFixedWidth(WarnBox * box->fontMetrics().horizontalAdvance(u'0') + box->fontMetrics().height());
    box->setToolTip(tr("Changes as you type, whether you cancel or not"));
    connect(box, &QLineEdit::textChanged, this,
            [](const QString& text) { modChess.WarnTime = warnTimeOf(lineOf(text)); });
    auto* row = new QHBoxLayout;
    row->addWidget(labelOf(frame, "lblWarn", tr("&Warning below"), box));
    row->addWidget(box);
    row->addWidget(named(new QLabel(tr("sec"), frame), "lblSec"));
    row->addStretch();
    return row;
}

void GamesPage::take() const {
    if (cboSlip_->currentIndex() >= 0) modChess.MouseSlip = static_cast<std::int16_t>(cboSlip_->currentIndex());
    boxes_.take();
}
