// What assistive tools are told of a board.
#include "view/BoardAccessibility.h"

#include "view/BoardView.h"

#include <QAccessibleWidget>

namespace {

class AccessibleBoard : public QAccessibleWidget {
public:
    explicit AccessibleBoard(BoardView* board) : QAccessibleWidget(board, QAccessible::Graphic), board_(board) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? board_->description() : QAccessibleWidget::text(kind);
    }

private:
    BoardView* board_;
};

QAccessibleInterface* describeBoard(const QString&, QObject* object) {
    auto* board = qobject_cast<BoardView*>(object);
    return board ? new AccessibleBoard(board) : nullptr;
}

} // namespace

void installBoardAccessibility() { QAccessible::installFactory(describeBoard); }
