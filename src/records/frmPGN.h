// The chooser: which game of a file goes to a board.
#pragma once

#include "records/PgnGames.h"

#include <QDialog>
#include <QTreeWidget>

#include <cstdint>
#include <string>

// Belongs to the board's window and goes with it. While it is open modChess.PgnChoice is -1; as it closes, the row that
// was chosen, or 0. One at most: to open it once more closes the one before. In openWindows from its construction until
// it closes, and deletes itself after closing.
class frmPGN : public QDialog {
    Q_OBJECT
public:
    // The first `count` games of `games`; `board` is the board's window, `id` its number, `fileName` (in the file
    // system's own bytes) the caption. Not shown yet.
    frmPGN(QWidget& board, std::int32_t id, const std::string& fileName, const PgnTable& games, int count);
    ~frmPGN() override;

    const std::int32_t frmCBid;

    // Closes the chooser that is open, and shows a new one over its board.
    static frmPGN& showIt(QWidget& board, std::int32_t id, const std::string& fileName, const PgnTable& games,
                          int count);

Q_SIGNALS:
    // The chooser has closed; `row` is what modChess.PgnChoice was set to.
    void chosen(int row);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override { close(); } // Escape

private:
    void zSetGrid();
    void fill(const PgnTable& games, int count);
    void placeOver(const QWidget& board);
    void choose();
    int widthOfGrid() const;
    int currentRow() const;

    QTreeWidget* fxgPGN_ = nullptr;
    int choice_ = 0;
    bool closed_ = false;
};
