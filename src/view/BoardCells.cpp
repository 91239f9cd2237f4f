// The squares of a board for assistive tools: a table as it stands on the screen, of which each cell is a square.
#include "view/BoardCells.h"

#include "platform/AccessibleItems.h"
#include "platform/StreamText.h"
#include "view/BoardView.h"
#include "view/PositionWords.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace {

// Rows count from the top of the screen, columns from its left; cell 0 is the upper left one.
int squareOfCell(const BoardView& view, int cell) {
    return view.geometry().DisplaySquare[(7 - cell / 8) * 8 + cell % 8];
}

int cellOfSquare(const BoardView& view, int square) {
    const int position = view.geometry().DisplaySquare[square];
    return (7 - position / 8) * 8 + position % 8;
}

// A place on the screen; which square it is changes with a flip.
class SquareCell : public QAccessibleInterface,
                   public QAccessibleActionInterface,
                   public QAccessibleTableCellInterface {
public:
    SquareCell(BoardView* view, int cell) : view_(view), cell_(cell) {}

    bool isValid() const override { return view_; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_ ? view_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name || !view_) return {};
        return shownText(describeSquare(square(), view_->pieceAt(static_cast<std::int16_t>(square())), isSelected()));
    }
    QRect rect() const override {
        if (!view_) return {};
        const QRect area = view_->cellOf(square());
        return {view_->mapToGlobal(area.topLeft()), area.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        state.focusable = true;
        state.selectable = true;
        state.selected = isSelected();
        state.focused = view_ && view_->hasFocus() && view_->chosenSquare() == square();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
        if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
        return nullptr;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (!view_) return;
        view_->setFocus();
        view_->choose(square());
        if (action == pressAction()) Q_EMIT view_->squarePressed(1, square());
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return cell_ % 8; }
    int rowIndex() const override { return cell_ / 8; }
    bool isSelected() const override { return view_ && view_->isLifted(square()); }
    QAccessibleInterface* table() const override { return parent(); }

private:
    int square() const { return squareOfCell(*view_, cell_); }

    QPointer<BoardView> view_;
    int cell_;
};

class SquareTable : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit SquareTable(BoardView* view) : QAccessibleWidget(view, QAccessible::Table), view_(view), cells_(view) {}

    bool knows(int cell) const { return cells_.knows(cell); }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? view_->description() : QAccessibleWidget::text(kind);
    }
    int childCount() const override { return 64; }
    QAccessibleInterface* child(int index) const override { return cells_.at(index, childCount()); }
    int indexOfChild(const QAccessibleInterface* child) const override { return cells_.indexOf(child, childCount()); }
    QAccessibleInterface* childAt(int x, int y) const override { return cells_.under(x, y, childCount()); }
    QAccessibleInterface* focusChild() const override {
        return view_->hasFocus() ? child(cellOfSquare(*view_, view_->chosenSquare())) : QAccessibleWidget::focusChild();
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        return row < 0 || row > 7 || column < 0 || column > 7 ? nullptr : child(8 * row + column);
    }
    int rowCount() const override { return 8; }
    int columnCount() const override { return 8; }
    QString rowDescription(int row) const override { return nameAt(8 * row).sliced(1); }
    QString columnDescription(int column) const override { return nameAt(column).first(1); }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> selected;
        for (int index = 0; index < childCount(); ++index) {
            if (view_->isLifted(squareOfCell(*view_, index))) selected.append(child(index));
        }
        return selected;
    }
    // A piece is in hand or not; rows and columns of pieces are never.
    int selectedRowCount() const override { return 0; }
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedRows() const override { return {}; }
    QList<int> selectedColumns() const override { return {}; }
    bool isRowSelected(int) const override { return false; }
    bool isColumnSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    QString nameAt(int cell) const {
        return shownText(zConvertSquare(static_cast<std::int16_t>(squareOfCell(*view_, cell))));
    }

    BoardView* view_;
    mutable AccessibleItems<SquareCell, BoardView, 64> cells_;
};

void announceAt(BoardView* view, int square, QAccessible::Event what) {
    QAccessibleEvent event(view, what);
    event.setChild(cellOfSquare(*view, square));
    QAccessible::updateAccessibility(&event);
}

} // namespace

void describeSquares(BoardView* view, const QString& name) {
    QAccessible::registerAccessibleInterface(new SquareTable(view)); // goes with the widget
    view->setAccessibleName(name);
}

std::function<void(BoardView* view, int square)> announceSquare = [](BoardView* view, int square) {
    announceAt(view, square, QAccessible::Focus);
};

std::function<void(BoardView* view, int square)> announcePiece = [](BoardView* view, int square) {
    if (!QAccessible::isActive()) return;
    const auto* table = static_cast<SquareTable*>(QAccessible::queryAccessibleInterface(view));
    if (table->knows(cellOfSquare(*view, square))) announceAt(view, square, QAccessible::NameChanged);
};
