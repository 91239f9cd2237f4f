// The list view of listed games: one row for each, in the server's order.
#pragma once

#include "records/HistoryLists.h"
#include "records/ListTexts.h"

#include <QTreeWidget>

#include <string>

// Enter and a double click on a row ask for its review; the right button, the menu key and Shift+F10 ask for its menu,
// with that row selected. One row is selected as long as there are any. Assistive tools read a row's first cell as all
// of it, in words.
class HistoryTable : public QTreeWidget {
    Q_OBJECT
public:
    explicit HistoryTable(QWidget* parent);

    // Rebuilds the columns. Rows of another kind of list go.
    void setLook(const ListLook& look);
    // Takes the rows of `lists` by the columns' fields.
    void fill(const HistoryLists& lists);

    // The text of a row's cell, Latin-1; both count from 0. Empty where there is none.
    std::string cell(int row, int column) const;
    // -1 for none.
    int selectedRow() const;
    // Of all columns and as many rows as a list can have.
    QSize sizeHint() const override;

Q_SIGNALS:
    void reviewWanted();
    // At a point of the screen, or at the pointer.
    void menuWantedAt(QPoint place);
    void menuWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void wantMenuAtRow();
    void fitColumns();
    int leastWidth(const ListColumn& column) const;

    const ListLook* look_ = nullptr;
};
