// A player's games as the server lists them: his last ones, his journal, or those adjourned.
#pragma once

#include "records/HistoryRoads.h"
#include "records/ListCommands.h"
#include "records/ListRequest.h"
#include "settings/WindowPlacer.h"

#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <string>

class HistoryTable;
class QLineEdit;
class QMenu;
class QPushButton;

// One at most; in openWindows from its load until it closes, and deletes itself after closing.
class frmHistory : public QWidget {
    Q_OBJECT
public:
    explicit frmHistory(const HistoryRoads& roads);
    ~frmHistory() override;

    // Takes its place and begins as `start` does. Not shown yet.
    void load();
    // In a moment asks for the history of modChess.gHelpTopic or, without one, only proposes the user's own handle.
    void start();

    // Rebuild the columns.
    void zSetHistory();
    void zSetJournal();
    void zSetStored();
    // An answer is complete: shows it, or tells the user that it has no games.
    void zHistoryList();
    void zJournalList();
    void zStoredList();

    // Opens the window, or brings the one that is open to the front; `roads` are for a new one.
    static frmHistory& showIt(const HistoryRoads& roads);
    // The same, and the one that is open starts anew.
    static void startIt(const HistoryRoads& roads);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    QPushButton* button(const char* name, const QString& caption);
    void buildMenu();
    void buildJournalMenu();
    void tmrHist();
    void answered();
    void setLook(std::int16_t kind);
    void fill(std::int16_t kind);
    void ask(std::int16_t kind);
    void zGo(const std::string& command);
    ListRequestHooks requestHooks();
    void pick();
    ListedGame picked() const;
    std::string player() const;
    void send(std::string (*line)(const ListedGame& game));
    void mnuReview();
    void mnuSavePGN();
    void mnuRemove();

    const HistoryRoads& roads_;
    WindowPlacer placer_{this};
    QTimer tmrHist_;
    QLineEdit* txtPlayer_ = nullptr;
    QPushButton* cmdHistory_ = nullptr;
    HistoryTable* lvwHistory_ = nullptr;
    QMenu* mnuGame_ = nullptr;
    QAction* mnuAddJourn_ = nullptr;
    QAction* mnuRemove_ = nullptr;
    std::string SelectedText_;       // the first column of the row that was picked last
    std::int16_t SelectedIndex_ = 0; // its place, from 1
    bool closed_ = false;
};
