// The self check: what a player has to count before each move.
#include "panels/frmSelfCheck.h"

#include "panels/TallyBox.h"
#include "platform/Described.h"
#include "platform/FramePlace.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "platform/NamedControl.h"
#include "platform/OpenWindows.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QScreen>

#include <array>

namespace {

constexpr std::array Captions{"Pieces on-take", "Pawn threats", "Possible pins/skewres", "Possible forks",
                              "Possible checks"};
constexpr int TitleBar = 40; // pixels at most

} // namespace

frmSelfCheck::frmSelfCheck() {
    describeWindow(this);
    setObjectName(QStringLiteral("frmSelfCheck"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Self Check"));
    chkForced_ = named(new QCheckBox(tr("&Forced Move"), this), "chkForced");
    connect(chkForced_, &QCheckBox::toggled, this, [this](bool ticked) { sheet.force(ticked); });
    frames_ = new QBoxLayout(QBoxLayout::LeftToRight);
    frames_->addWidget(buildFrame("txtAgainst", tr("&Against me"), tr("against me"), sheet.txtAgainst));
    frames_->addWidget(buildFrame("txtBy", tr("&By me"), tr("by me"), sheet.txtBy));
    auto* column = new QVBoxLayout(this);
    column->addWidget(chkForced_);
    column->addLayout(frames_);
    column->setSizeConstraint(QLayout::SetFixedSize);
    sheet.shownAnew = [this] { showSheet(); };
    SelfCheckSheet::load();
    openWindows.add({"frmSelfCheck", this, [this] { close(); }, &sheet});
}

frmSelfCheck::~frmSelfCheck() { openWindows.remove(this); }

QGroupBox* frmSelfCheck::buildFrame(const char* boxName, const QString& caption, const QString& spoken,
                                    SelfCheckSheet::Tallies& tallies) {
    auto* frame = new QGroupBox(caption, this);
    auto* grid = new QGridLayout(frame);
    for (int row = 0; row <= SelfCheckSheet::LastRow; ++row) {
        const QString of = QString::fromLatin1(Captions.at(static_cast<std::size_t>(row)));
        auto* box = new TallyBox(sheet, tallies[row], of + QStringLiteral(", ") + spoken, frame);
        box->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(boxName)).arg(row));
        grid->addWidget(new QLabel(of, frame), row, 0);
        grid->addWidget(box, row, 1);
        boxes_.push_back(box);
    }
    grid->setColumnStretch(0, 1);
    return frame;
}

void frmSelfCheck::showSheet() {
    chkForced_->setChecked(sheet.chkForced);
    for (TallyBox* box : boxes_) box->showTally();
}

// One above the other they leave more of the board to be seen.
void frmSelfCheck::fitFrames(const QSize& screen) {
    const auto arrange = [this](QBoxLayout::Direction direction) {
        frames_->setDirection(direction);
        layout()->invalidate(); // which is not told
    };
    arrange(QBoxLayout::TopToBottom);
    if (sizeHint().height() + TitleBar > screen.height()) arrange(QBoxLayout::LeftToRight);
}

frmSelfCheck& frmSelfCheck::showIt(const QWidget* board) {
    auto* window = loadedWindow<frmSelfCheck>();
    if (window == nullptr) {
        window = new frmSelfCheck; // deletes itself after closing
        window->fitFrames(window->screen()->availableSize());
        if (board) placeBeside(*window, *board);
    }
    bringInFront(*window);
    return *window;
}

void frmSelfCheck::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!openWindows.holds(this)) return;
    SelfCheckSheet::unload();
    openWindows.remove(this);
}

void frmSelfCheck::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}
