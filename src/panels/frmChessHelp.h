// The help panel: asks the server for a help page and shows it whole, in a pane of its own.
#pragma once

#include "common/modChess.h"
#include "panels/HelpRequest.h"
#include "panels/HelpRoads.h"
#include "settings/WindowPlacer.h"

#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <string>

class Console;
class QCheckBox;
class QLabel;
class QPushButton;
class TypingLine;

// One at most; in openWindows from its load until it closes, and deletes itself after closing.
class frmChessHelp : public QWidget {
    Q_OBJECT
public:
    explicit frmChessHelp(const HelpRoads& roads);
    ~frmChessHelp() override;

    // Takes its place and its look, and begins as `start` does. Not shown yet.
    void load();
    // In a moment asks for the page of modChess.gHelpTopic, if there is one.
    void start();
    // Takes the colours and the font of the options.
    void takeLook();
    // Puts an answer's lines behind what the pane shows, but for bare prompts, and shows the pane's beginning.
    void zShowHelp(const HelpPage& lines, std::int16_t count);

    // In twips; of one that is not loaded the start values.
    WindowPlace place() const { return placer_.place(); }
    static WindowPlace startPlace();

    // Opens the panel, or brings the one that is open to the front; `roads` are for a new one.
    static frmChessHelp& showIt(const HelpRoads& roads);
    // The same, and the one that is open starts anew.
    static void startIt(const HelpRoads& roads);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildPane();
    void buildRow();
    QPushButton* button(const char* name, const QString& caption);
    int rowNeeds() const;
    int labelNeeds() const;
    void arrange();
    void showProgress(const QString& text);
    void tmrHelp();
    void cmdGo();
    void zGo();
    HelpRequestHooks requestHooks();

    const HelpRoads& roads_;
    WindowPlacer placer_{this};
    QTimer tmrHelp_;
    Console* txtHelpInfo_ = nullptr;
    TypingLine* txtHelp_ = nullptr;
    QPushButton* cmdGo_ = nullptr;
    QPushButton* cmdClear_ = nullptr;
    QPushButton* cmdExit_ = nullptr;
    QCheckBox* chkAuto_ = nullptr;
    QLabel* lblRcvData_ = nullptr;
};
