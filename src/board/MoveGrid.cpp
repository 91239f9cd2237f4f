// The move list of a board on the screen.
#include "board/MoveGrid.h"

#include "platform/Colors.h"
#include "platform/LightScrollBar.h"
#include "platform/StreamText.h"
#include "view/BoardGeometry.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

constexpr int RowHeight = 18; // pixels
constexpr int CellMargin = 4; // pixels left and right of a cell's text

// All digits are of one width.
int digitsWidth(const QFontMetrics& metrics, const QString& text) {
    return metrics.horizontalAdvance(u'0') * static_cast<int>(text.size());
}

// A cell is a tint and a short text: the style's own painter takes several times as long, at every move of a game.
class CellPainter : public QStyledItemDelegate {
public:
    CellPainter(const MoveGridState& state, QObject* parent) : QStyledItemDelegate(parent), state_(state) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const GridCell& cell = state_.cells[index.row() + 1][index.column()];
        const bool plain = cell.tint == GridTint::Plain;
        if (!plain) painter->fillRect(option.rect, colorOf(cell.tint));
        if (cell.text.empty()) return;
        painter->setPen(plain ? option.palette.color(QPalette::Text) : QColor(Qt::black));
        constexpr int AlwaysFits = 7; // characters
        QString text = shownText(cell.text);
        const QFontMetrics& metrics = option.fontMetrics;
        const QRect inside = option.rect.adjusted(CellMargin, 0, -CellMargin, 0);
        if (text.size() > AlwaysFits) text = metrics.elidedText(text, Qt::ElideRight, inside.width());
        const int left = index.column() == 0 ? inside.right() + 1 - digitsWidth(metrics, text) : inside.left();
        painter->drawText(left, inside.top() + (inside.height() + metrics.ascent() - metrics.descent()) / 2, text);
    }

private:
    const MoveGridState& state_;
};

} // namespace

// Row 0 of the state is the heading, so row n of the state is row n - 1 here.
class MoveGrid::Model : public QAbstractTableModel {
public:
    Model(const MoveGridState& state, QObject* parent) : QAbstractTableModel(parent), state_(state) {}

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : MoveGridState::LastRow; }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : MoveGridState::LastCol + 1;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DisplayRole) return shownText(state_.cells[index.row() + 1][index.column()].text);
        return {};
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return shownText(state_.cells[0][section].text);
    }

    void cellChanged(int row, int col) {
        if (row == 0) {
            Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
        } else {
            const QModelIndex cell = index(row - 1, col);
            Q_EMIT dataChanged(cell, cell);
        }
    }

    void allChanged() {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, MoveGridState::LastCol);
        Q_EMIT dataChanged(index(0, 0), index(MoveGridState::LastRow - 1, MoveGridState::LastCol));
    }

private:
    const MoveGridState& state_;
};

MoveGrid::MoveGrid(MoveGridState& state, QWidget* parent)
    : QTableView(parent), state_(state), model_(new Model(state, this)) {
    setObjectName(QStringLiteral("grdMoves"));
    setAccessibleName(tr("Moves"));
    setModel(model_);
    setItemDelegate(new CellPainter(state, this));
    setVerticalScrollBar(new LightScrollBar(this));
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(RowHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(RowHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setMinimumSectionSize(10);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFixedHeight(RowHeight + 2);
    setVerticalScrollMode(ScrollPerItem);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::NoFocus);
    setShowGrid(false);
    setWordWrap(false);

    state_.surface.showCell = [this](int row, int col) { model_->cellChanged(row, col); };
    state_.surface.scrollTo = [this](int row) {
        QScrollBar* const bar = verticalScrollBar();
        if (bar->maximum() == 0) updateGeometries(); // before the first layout the bar has no range
        bar->setValue(row - 1);
    };
    state_.surface.setUp = [this] {
        model_->allChanged();
        fitColumns();
    };
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) { state_.topRow = value + 1; });
}

// The prescribed widths at the least; what the grid has beyond them goes to the two move columns.
void MoveGrid::fitColumns() {
    const int number = MoveGridState::NumberWidth + 8;
    const int move = std::max(MoveGridState::MoveWidth, (viewport()->width() - number) / 2);
    setColumnWidth(0, number);
    setColumnWidth(1, move);
    setColumnWidth(2, move);
}

void MoveGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

void MoveGrid::zFindBottomRow() {
    // By the grid's own size: before it is shown its viewport has not been laid out.
    const int fitting = (height() - 2 * frameWidth() - horizontalHeader()->height()) / RowHeight;
    ::zFindBottomRow([fitting](int row) { return row <= fitting; }, state_.VisibleRows);
}
