// The dialog for the options that all windows share.
#include "settings/frmOptions.h"

#include "platform/DialogButtons.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "settings/AccountPages.h"
#include "settings/GamesPage.h"
#include "settings/LookPage.h"
#include "settings/SoundsPage.h"
#include "settings/WindowSettings.h"

#include <QCloseEvent>
#include <QTabWidget>
#include <QVBoxLayout>

#include <initializer_list>
#include <string_view>

namespace {

// Has each loaded window of these classes do what `take` is.
void tellWindows(std::initializer_list<std::string_view> classes, std::function<void()> OpenWindow::*take) {
    for (const OpenWindow& open : openWindows.windows) {
        if (std::ranges::find(classes, open.className) != classes.end()) (open.*take)();
    }
}

} // namespace

frmOptions::frmOptions(const OptionsRoads& roads) : roads_(roads) {
    setObjectName(QStringLiteral("frmOptions"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Options"));
    auto* column = new QVBoxLayout(this);
    pages_ = new QTabWidget(this);
    buildPages();
    column->addWidget(pages_);
    column->addLayout(buildButtons());
    column->setSizeConstraint(QLayout::SetFixedSize);
    load();
    openWindows.add({.className = "frmOptions", .window = this, .unload = [this] { close(); }});
}

frmOptions::~frmOptions() { openWindows.remove(this); }

void frmOptions::buildPages() {
    const OptionsAccount account = roads_.account();
    pages_->addTab(account_ = new AccountPage(account, pages_), tr("&Account"));
    pages_->addTab(buttons_ = new ButtonsPage(account, pages_), tr("&Buttons"));
    pages_->addTab(sounds_ = new SoundsPage(roads_, pages_), tr("&Sounds"));
    pages_->addTab(games_ = new GamesPage(pages_), tr("&Games"));
    pages_->addTab(look_ = new LookPage(roads_, pages_), tr("&Colors"));
}

QLayout* frmOptions::buildButtons() {
    return okAndCancel(this, [this] { cmdOK(); });
}

void frmOptions::load() { placer_.restore(roads_.store, OptionsSection, twipsOf(sizeHint())); }

void frmOptions::cmdOK() {
    OptionsAccount account;
    account_->take(account);
    buttons_->take(account);
    roads_.takeAccount(account);
    tellWindows({"frmChessBoard"}, &OpenWindow::takeTells);
    look_->takeLook();
    tellWindows({"frmChessBoard", "frmChat", "frmChessHelp"}, &OpenWindow::takeLook);
    tellWindows({"frmChessClient"}, &OpenWindow::takeLook);
    sounds_->take();
    games_->take();
    look_->takeGraph();
    tellWindows({"frmSeek"}, &OpenWindow::takeLook);
    close();
}

frmOptions& frmOptions::showIt(const OptionsRoads& roads) {
    auto* dialog = loadedWindow<frmOptions>();
    if (dialog == nullptr) dialog = new frmOptions(roads); // deletes itself after closing
    bringInFront(*dialog);
    return *dialog;
}

void frmOptions::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!openWindows.holds(this)) return; // asked again before it is deleted
    placer_.unminimise();
    openWindows.remove(this);
    zSaveReg(roads_.store, OptionsSection, place());
}
