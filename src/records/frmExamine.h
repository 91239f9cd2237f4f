// The panel that asks the server about a player and his games.
#pragma once

#include "common/Needed.h"

#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include <cstdint>
#include <string>

// What the panel needs of the rest of the program; outlives it. Every member must be given.
struct ExamineRoads {
    // The window of the board with this id, null when there is none any more.
    Needed<QWidget*(std::int32_t id)> board;
    // The user's handle.
    Needed<std::string()> handle;
    // The console's zSendMsg; drops the line while not connected.
    Needed<void(const std::string& text)> zSendMsg;
    // The session's, see records/MoveListRequest.h.
    Needed<void(std::int16_t relation, const std::string& gameOrArguments)> zGetMoves;
};

// Works for one board at a time, and goes on without it. One at most; in openWindows from its construction until it
// closes, and deletes itself after closing.
class frmExamine : public QDialog {
    Q_OBJECT
public:
    // For the board with this id, beside which it stands. Not shown yet.
    frmExamine(const ExamineRoads& roads, std::int32_t board);
    ~frmExamine() override;

    std::int32_t frmCBx; // id of its board

    // Opens the panel, or brings the one that is open; it is for the board with this id then.
    static frmExamine& showIt(const ExamineRoads& roads, std::int32_t board);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override { close(); } // Escape

private:
    QLayout* buildFields();
    QWidget* buildShow();
    QWidget* buildGame();
    template <typename Answer>
    QPushButton* button(QWidget* parent, const char* name, const QString& caption, Answer answer);
    QPushButton* sender(QWidget* parent, const char* name, const QString& caption, const std::string& command,
                        bool withGame);
    void load();
    void txtGameChanged(const QString& text);
    void vscGameChanged(int number);
    void cmdGame();
    void cmdPGN();
    void cmdExit();
    std::string handle() const;
    std::string game() const;
    std::string handleAndGame() const { return handle() + " " + game(); }

    const ExamineRoads& roads_;
    QLineEdit* txtHandle_ = nullptr;
    QLineEdit* txtGame_ = nullptr;
    QScrollBar* vscGame_ = nullptr;
    QGroupBox* frmGame_ = nullptr;
};
