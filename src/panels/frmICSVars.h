// The user's variables on the server, to look at and to change.
#pragma once

#include "panels/EditPanel.h"
#include "panels/ServerVars.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>

#include <array>

class QGroupBox;

// One at most; in openWindows from its load until it closes, and deletes itself after closing.
class frmICSVars : public QDialog {
    Q_OBJECT
public:
    explicit frmICSVars(const PanelRoads& roads);

    // Takes its place, and asks the server. Not shown yet.
    void load() { panel_.load(); }
    void ask() { panel_.ask(); }

    // Takes the answer that is complete, modChess.VarsBlock. Faults (overflow) on a number beyond 16 bits.
    void zParseVars();
    // Shows what the server said last, nothing of it changed.
    void zSetDisp();
    // Sends what is changed as it stands; runs the message loop, in which the window may close.
    static void zSendChanges(const VarsChanges& changes, const ChangeRoad& road) { ::zSendChanges(changes, road); }

    WindowPlace place() const { return panel_.place(); }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override { close(); } // Escape

private:
    QGroupBox* buildNumbers();
    QGroupBox* buildFlags();
    QLayout* buildPrompt();
    void fitNumbers();
    void mark();
    VarsChanges changes() const;

    EditPanel panel_;
    ServerVars said_;
    VarsChanges marks_; // its marks alone
    std::array<QLabel*, numberVars.size()> lblVar_{};
    std::array<QLineEdit*, numberVars.size()> txtVar_{};
    std::array<QCheckBox*, flagVars.size()> chkVar_{};
    QLabel* lblPrompt_ = nullptr;
    QLineEdit* txtPrompt_ = nullptr;
};
