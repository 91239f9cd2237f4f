// The move list of a board on the screen.
#pragma once

#include "board/MoveGridState.h"

#include <QTableView>

// `grdMoves`: shows a MoveGridState and nothing of its own. The state must outlive the widget, to which its surface
// leads.
class MoveGrid : public QTableView {
    Q_OBJECT
public:
    MoveGrid(MoveGridState& state, QWidget* parent);

    // As MoveGridSurface asks.
    void showCell(int row, int col);
    void scrollToRow(int row);
    void setUp();

    // Sets the state's `VisibleRows` by the rows that fit; left alone when all 200 do. Good from the first layout on,
    // before the grid is shown.
    void zFindBottomRow();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class Model;

    void fitColumns();
    void fitRows();

    MoveGridState& state_;
    Model* model_;
};
