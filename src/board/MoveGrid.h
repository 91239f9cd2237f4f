// The move list of a board on the screen.
#pragma once

#include "board/MoveGridState.h"

#include <QTableView>

// `grdMoves`: shows a MoveGridState and nothing of its own. The state must outlive the widget.
class MoveGrid : public QTableView {
    Q_OBJECT
public:
    MoveGrid(MoveGridState& state, QWidget* parent);

    // Counts the rows that fit into the state's `VisibleRows`; left alone when all 200 are visible.
    void countVisibleRows();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Model;

    void fitColumns();

    MoveGridState& state_;
    Model* model_;
};
