// The user's ten finger notes on the server, to look at and to change.
#pragma once

#include "common/modChess.h"
#include "panels/EditPanel.h"
#include "panels/FingerNotes.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>

#include <array>

// One at most; in openWindows from its load until it closes, and deletes itself after closing.
class frmNotes : public QDialog {
    Q_OBJECT
public:
    explicit frmNotes(const PanelRoads& roads);

    // Takes its place, and asks the server. Not shown yet.
    void load() { panel_.load(); }
    void ask() { panel_.ask(); }

    // Takes the answer that is complete, modChess.NotesText.
    void zParseNotes();
    // Shows what the server said last, nothing of it changed.
    void zSetDisp();
    // Sends what is changed as it stands; runs the message loop, in which the window may close.
    static void zSendChanges(const NotesChanges& changes, const ChangeRoad& road) { ::zSendChanges(changes, road); }

    WindowPlace place() const { return panel_.place(); }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override { close(); } // Escape

private:
    QLayout* buildNotes();
    void mark();
    NotesChanges changes() const;

    EditPanel panel_;
    decltype(ModChess::NotesText) said_;
    NotesChanges marks_; // its marks alone
    std::array<QLabel*, FingerNotes> lblNote_{};
    std::array<QLineEdit*, FingerNotes> txtNote_{};
};
