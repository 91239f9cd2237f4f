// What the panels of variables and of notes have in common.
#include "panels/EditPanel.h"

#include "common/modChess.h"
#include "platform/DialogButtons.h"
#include "platform/MessageLoop.h"
#include "platform/OpenWindows.h"
#include "platform/WindowTurn.h"

#include <QBoxLayout>
#include <QPointer>

#include <utility>

namespace {

// It knows nothing of the window, which may go in a pause.
ChangeRoad roadOf(const PanelRoads& roads) {
    return {
        .send =
            [&roads](const std::string& text) {
                const auto before = modChess.LinesSent;
                if (!modChess.AppClosing) roads.zSendMsg(text);
                return modChess.LinesSent != before;
            },
        .pause = [] { zWait(ChangePause); },
    };
}

} // namespace

EditPanel::EditPanel(QDialog* window, const PanelRoads& roads, const EditPanelKind& kind)
    : window_(window), roads_(roads), kind_(kind), placer_(window) {
    window->setAttribute(Qt::WA_DeleteOnClose);
    askTimer_.setSingleShot(true);
    QObject::connect(&askTimer_, &QTimer::timeout, window, [this] { request(); });
}

EditPanel::~EditPanel() { openWindows.remove(window_); }

QLayout* EditPanel::buttons(std::function<Sender()> changes, const std::function<void()>& current) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    addButton(*row, window_, "cmdOK", QWidget::tr("OK"), [this, changes] {
        sendAndClose(changes());
    })->setDefault(true);
    addButton(*row, window_, "cmdCurrent", QWidget::tr("&Current"), current);
    addButton(*row, window_, "cmdCancel", QWidget::tr("Cancel"), [this] { window_->close(); });
    return row;
}

void EditPanel::load() {
    placer_.restore(roads_.store, kind_.section, twipsOf(window_->sizeHint()));
    openWindows.add({window_->objectName().toStdString(), window_, [window = window_] { window->close(); }});
    ask();
}

// The window may be gone behind the wait. A later request, which comes out of the loop that this one runs, takes its
// place: two would ask twice, and the second answer would take back what the user has changed meanwhile.
void EditPanel::request() {
    TurnHooks turn = turnOf(window_, [&roads = roads_] { return roads.BusyTest(); });
    turn.isOpen = [this, isOpen = turn.isOpen, mine = ++requests_] { return isOpen() && requests_ == mine; };
    kind_.ask({
        .turn = turn,
        .zSetstate = [&roads = roads_](std::int16_t state) { roads.zSetstate(state); },
        .zSendMsg = [&roads = roads_](const std::string& text) { roads.zSendMsg(text); },
    });
}

// What was there at OK is sent whole, even if the window is closed in a pause; it takes no more input meanwhile.
void EditPanel::sendAndClose(const Sender& sender) {
    const QPointer<QDialog> self(window_);
    window_->setEnabled(false);
    sender(roadOf(roads_));
    if (self) self->close();
}

void EditPanel::unload() {
    if (std::exchange(closed_, true)) return;
    askTimer_.stop();
    placer_.unminimise();
    zSaveReg(roads_.store, kind_.section, place());
    openWindows.remove(window_);
}
