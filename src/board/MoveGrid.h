// The move list of a board on the screen.
#pragma once

#include "board/MoveGridState.h"

#include <QTableView>

// `grdMoves`: shows a MoveGridState and nothing of its own, its current cell with a frame while the list has the keys.
// The state must outlive the widget, to which its surface leads.
class MoveGrid : public QTableView {
    Q_OBJECT
public:
    MoveGrid(MoveGridState& state, QWidget* parent);

    // As MoveGridSurface asks.
    void showCell(int row, int col);
    void scrollToRow(int row);
    void setUp();
    void showCurrent();

    // Sets the state's `VisibleRows` by the rows that fit; left alone when all 200 do. Good from the first layout on,
    // before the grid is shown.
    void zFindBottomRow();

Q_SIGNALS:
    // The left button was pressed and let go in a cell. Row 0 is the heading.
    void cellClicked(int row, int col);
    // A key to walk by: -2 Home, -1 Left, 1 Right, 2 End.
    void walked(int step);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QModelIndex moveCursor(CursorAction, Qt::KeyboardModifiers) override { return currentIndex(); }

private:
    class Model;

    void fitColumns();
    void fitRows();
    bool scrollByKey(int key);
    bool currentInView() const;

    MoveGridState& state_;
    QPersistentModelIndex pressed_; // the cell under the left button as it went down
    Model* model_;
};
