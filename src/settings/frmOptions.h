// The dialog for the options that all windows share.
#pragma once

#include "settings/OptionsRoads.h"
#include "settings/WindowPlacer.h"

#include <QDialog>

class AccountPage;
class ButtonsPage;
class GamesPage;
class LookPage;
class QTabWidget;
class SoundsPage;

// Works on copies, which reach the program at OK; only address, port and the seconds of the warning change it as they
// are typed. One at most; in openWindows from its construction until it closes, and deletes itself after closing.
class frmOptions : public QDialog {
    Q_OBJECT
public:
    // Takes its place, and the options as they are. Not shown yet.
    explicit frmOptions(const OptionsRoads& roads);
    ~frmOptions() override;

    // In twips.
    WindowPlace place() const { return placer_.place(); }

    // Opens the dialog, or brings the one that is open to the front; `roads` are for a new one.
    static frmOptions& showIt(const OptionsRoads& roads);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override { close(); } // Escape and Cancel

private:
    void buildPages();
    QLayout* buildButtons();
    void load();
    void cmdOK();

    const OptionsRoads& roads_;
    WindowPlacer placer_{this};
    QTabWidget* pages_ = nullptr;
    AccountPage* account_ = nullptr;
    ButtonsPage* buttons_ = nullptr;
    SoundsPage* sounds_ = nullptr;
    GamesPage* games_ = nullptr;
    LookPage* look_ = nullptr;
};
