// The dialog that composes a challenge or a seek.
#include "seek/frmMatch.h"

#include "common/modChess.h"
#include "platform/DialogButtons.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "platform/NamedControl.h"
#include "platform/StreamText.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QPushButton>

namespace {

constexpr int OpponentHeight = 24; // pixels, what the window is lower without the opponent
constexpr int Gap = 6;
constexpr int NumberWidth = 64;

ListChoice choiceOf(const QComboBox& box) {
    const int index = box.currentIndex();
    return {index, bytesOf(index < 0 ? box.placeholderText() : box.currentText())};
}

QLineEdit* numberBox(QWidget* parent, const char* name, const std::string& text) {
    auto* box = named(new QLineEdit(shownText(text), parent), name);
    box->setFixedWidth(NumberWidth);
    return box;
}

// With no item chosen it shows its designed text. Assistive tools know of items only, and take the chosen one for the
// name of the box.
template <typename Items>
QComboBox* listBox(QWidget* parent, const char* name, const QString& spoken, const Items& items,
                   const ListChoice& designed) {
    auto* box = named(new QComboBox(parent), name);
    for (const char* item : items) box->addItem(QString::fromLatin1(item));
    box->setPlaceholderText(shownText(designed.text));
    box->setCurrentIndex(designed.index);
    box->setAccessibleName(spoken);
    const auto tell = [box, spoken] {
        const bool designedShows = box->currentIndex() < 0;
        box->setAccessibleDescription(designedShows ? spoken + QStringLiteral(": ") + box->placeholderText() : spoken);
    };
    QObject::connect(box, &QComboBox::currentIndexChanged, box, tell);
    tell();
    QPalette look = box->palette(); // a text that goes out should not look like a hint
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        look.setColor(group, QPalette::PlaceholderText, look.color(group, QPalette::ButtonText));
    }
    box->setPalette(look);
    return box;
}

} // namespace

frmMatch::frmMatch(const MatchRoads& roads) : roads_(roads) {
    setObjectName(QStringLiteral("frmMatch"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(0);
    column->addWidget(buildOpponent());
    gap_ = new QSpacerItem(0, 0);
    column->addSpacerItem(gap_);
    auto* frames = new QHBoxLayout;
    frames->setSpacing(Gap);
    frames->addWidget(buildTiming());
    frames->addWidget(buildRating());
    column->addLayout(frames);
    column->addSpacing(Gap);
    column->addWidget(buildSettings());
    column->addSpacing(2 * Gap);
    column->addLayout(buildButtons());
    column->setSizeConstraint(QLayout::SetFixedSize);
    margins_ = column->contentsMargins();
    load();
    openWindows.add({"frmMatch", this, [this] { close(); }});
}

frmMatch::~frmMatch() { openWindows.remove(this); }

QWidget* frmMatch::buildOpponent() {
    opponent_ = new QWidget(this);
    auto* row = new QHBoxLayout(opponent_);
    row->setContentsMargins(0, 0, 0, 0);
    txtOpp_ = named(new QLineEdit(opponent_), "txtOpp");
    row->addWidget(labelOf(opponent_, "lblOpp", tr("O&pponent"), txtOpp_));
    row->addWidget(txtOpp_, 1);
    opponent_->setFixedHeight(std::max(OpponentHeight, fontMetrics().height() + Gap));
    return opponent_;
}

QWidget* frmMatch::buildTiming() {
    auto* frame = named(new QGroupBox(tr("Timing"), this), "fraTiming");
    const Challenge designed;
    txtTime_ = numberBox(frame, "txtTime", designed.txtTime);
    txtInc_ = numberBox(frame, "txtInc", designed.txtInc);
    lblTime_ = labelOf(frame, "lblTime", tr("&Minutes"), txtTime_);
    lblInc_ = labelOf(frame, "lblInc", tr("&Increment (seconds)"), txtInc_);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(lblTime_, 0, 0);
    grid->addWidget(txtTime_, 0, 1);
    grid->addWidget(lblInc_, 1, 0);
    grid->addWidget(txtInc_, 1, 1);
    grid->setColumnStretch(0, 1);
    return frame;
}

QWidget* frmMatch::buildRating() {
    fraRating_ = named(new QGroupBox(tr("Rating"), this), "fraRating");
    const Challenge designed;
    txtMin_ = numberBox(fraRating_, "txtMin", designed.txtMin);
    txtMax_ = numberBox(fraRating_, "txtMax", designed.txtMax);
    auto* grid = new QGridLayout(fraRating_);
    grid->addWidget(labelOf(fraRating_, "lblMin", tr("L&owest"), txtMin_), 0, 0);
    grid->addWidget(txtMin_, 0, 1);
    grid->addWidget(labelOf(fraRating_, "lblMax", tr("&Highest"), txtMax_), 1, 0);
    grid->addWidget(txtMax_, 1, 1);
    return fraRating_;
}

QWidget* frmMatch::buildSettings() {
    auto* frame = named(new QGroupBox(tr("Settings"), this), "fraSettings");
    const Challenge designed;
    chkRated_ = named(new QCheckBox(tr("&Rated"), frame), "chkRated");
    chkRated_->setChecked(designed.chkRated);
    chkServer_ = named(new QCheckBox(tr("Use &Server Setting"), frame), "chkServer");
    cboType_ = listBox(frame, "cboType", tr("Type"), MatchTypes, designed.cboType);
    cboColor_ = listBox(frame, "cboColor", tr("Color"), MatchColors, designed.cboColor);
    connect(chkServer_, &QCheckBox::toggled, this, [this] { enableByServer(); });
    auto* grid = new QGridLayout(frame);
    grid->addWidget(chkRated_, 0, 0);
    grid->addWidget(cboType_, 0, 1);
    grid->addWidget(chkServer_, 1, 0);
    grid->addWidget(cboColor_, 1, 1);
    grid->setColumnStretch(0, 1);
    return frame;
}

QLayout* frmMatch::buildButtons() {
    QBoxLayout* row = okAndCancel(this, [this] { cmdOK(); });
    row->setSpacing(Gap);
    return row;
}

void frmMatch::load() {
    const Extent designed = twipsOf(sizeHint());
    WindowPlace read = designedPlace(designed);
    if (readMatch(roads_.store, read, fields_)) fill();
    placer_.moveTo(placed(read, designed, screensFor(read), MatchSection.limit));
}

void frmMatch::fill() {
    txtTime_->setText(QString::number(fields_.Time));
    txtInc_->setText(QString::number(fields_.Increment));
    txtMin_->setText(QString::number(fields_.Minimum));
    txtMax_->setText(QString::number(fields_.Maximum));
    chkRated_->setChecked(fields_.Rated != 0);
    chkServer_->setChecked(fields_.ServerSettings != 0);
    cboColor_->setCurrentIndex(fields_.Color);
    cboType_->setCurrentIndex(fields_.Type);
    txtOpp_->setText(shownText(modChess.LastOpponent));
}

// The type stays enabled, though the server's settings leave it out.
void frmMatch::enableByServer() {
    for (QWidget* control : std::initializer_list<QWidget*>{lblTime_, lblInc_, txtTime_, txtInc_, txtMax_, txtMin_,
                                                            cboColor_, chkRated_}) {
        control->setEnabled(!chkServer_->isChecked());
    }
}

void frmMatch::present() {
    setWindowTitle(modChess.MatchMode ? tr("Match") : tr("Seek"));
    takeGuise();
    bringInFront(*this);
    QLineEdit* first = modChess.MatchMode ? txtOpp_ : txtTime_;
    first->setFocus();
    first->selectAll(); // typing replaces the last one
}

void frmMatch::setOpponent(const std::string& name) { txtOpp_->setText(shownText(name)); }

// The opponent takes the prescribed height and no more: the gap below it comes off the margin above.
void frmMatch::takeGuise() {
    opponent_->setVisible(modChess.MatchMode);
    fraRating_->setVisible(!modChess.MatchMode);
    const int gap = modChess.MatchMode ? std::min(Gap, margins_.top()) : 0;
    layout()->setContentsMargins(margins_ - QMargins(0, gap, 0, 0));
    gap_->changeSize(0, gap);
    layout()->invalidate();
    layout()->activate();
}

Challenge frmMatch::challenge() const {
    return {lineOf(txtTime_->text()), lineOf(txtInc_->text()), lineOf(txtMin_->text()),
            lineOf(txtMax_->text()),  lineOf(txtOpp_->text()), chkRated_->isChecked(),
            chkServer_->isChecked(),  choiceOf(*cboColor_),    choiceOf(*cboType_)};
}

void frmMatch::cmdOK() {
    const Challenge composed = challenge();
    fields_ = fieldsOf(composed);
    roads_.zSendMsg(challengeLine(composed, modChess.MatchMode));
    close();
}

frmMatch& frmMatch::showIt(const MatchRoads& roads) {
    auto* dialog = loadedWindow<frmMatch>();
    if (dialog == nullptr) dialog = new frmMatch(roads); // deletes itself after closing
    dialog->present();
    return *dialog;
}

void frmMatch::closeEvent(QCloseEvent* event) {
    openWindows.remove(this);
    zSaveReg(roads_.store, place(), fields_);
    modChess.LastOpponent = lineOf(txtOpp_->text());
    event->accept();
}
