// The move list of a board on the screen.
#include "board/MoveGrid.h"

#include "platform/Colors.h"
#include "platform/FittingFont.h"
#include "platform/LightScrollBar.h"
#include "platform/StreamText.h"
#include "view/BoardGeometry.h"

#include <QAbstractTableModel>
#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

// Pixels.
constexpr int LeastRowHeight = 18;
constexpr int RowSpace = 2;   // above and below the letters
constexpr int CellMargin = 4; // left and right of a cell's text
constexpr int NumberColumn = MoveGridState::NumberWidth + 7;

constexpr int AlwaysFits = 5; // characters of a move, in the grid's font

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
        const QString text = shownText(cell.text);
        const QFontMetrics& metrics = option.fontMetrics;
        const QRect inside = option.rect.adjusted(CellMargin, 0, -CellMargin, 0);
        if (text.size() > AlwaysFits && metrics.horizontalAdvance(text) > inside.width()) {
            paintLong(*painter, metrics, text, inside.adjusted(0, 0, CellMargin - 1, 0));
            return;
        }
        const int left = index.column() == 0 ? inside.right() + 1 - digitsWidth(metrics, text) : inside.left();
        painter->drawText(left, baseline(inside, metrics), text);
    }

private:
    static int baseline(const QRect& area, const QFontMetrics& metrics) {
        return area.top() + (area.height() + metrics.ascent() - metrics.descent()) / 2;
    }

    // In narrower letters; what does not fit in the narrowest ends in dots.
    static void paintLong(QPainter& painter, const QFontMetrics& metrics, const QString& text, const QRect& area) {
        constexpr double Narrowest = 0.75;
        const double width = area.width();
        const QString shown = metrics.elidedText(text, Qt::ElideRight, static_cast<int>(width / Narrowest));
        painter.save();
        painter.translate(area.left(), baseline(area, metrics));
        painter.scale(std::min(1.0, width / metrics.horizontalAdvance(shown)), 1);
        painter.drawText(0, 0, shown);
        painter.restore();
    }

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
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setMinimumSectionSize(10);
    horizontalHeader()->setHighlightSections(false);
    setVerticalScrollMode(ScrollPerItem);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::NoFocus);
    setShowGrid(false);
    setWordWrap(false);
    const int move =
        (BoardDesign::PanelWidth - 2 * frameWidth() - verticalScrollBar()->sizeHint().width() - NumberColumn) / 2;
    setFont(fittingFont(font(), QStringLiteral("Nbxd7+"), {move - 2 * CellMargin, BoardDesign::PanelHeight}));
    fitRows();
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) { state_.topRow = value + 1; });
}

void MoveGrid::showCell(int row, int col) { model_->cellChanged(row, col); }

void MoveGrid::scrollToRow(int row) {
    QScrollBar* const bar = verticalScrollBar();
    if (bar->maximum() == 0) updateGeometries(); // before the first layout the bar has no range
    bar->setValue(row - 1);
}

void MoveGrid::setUp() {
    model_->allChanged();
    fitColumns();
}

// The least height counts first: the header holds the height of a row to it.
void MoveGrid::fitRows() {
    const int height = std::max(LeastRowHeight, fontMetrics().height() + 2 * RowSpace);
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    horizontalHeader()->setFont(font());
    horizontalHeader()->setFixedHeight(height + 2);
}

void MoveGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) fitRows();
}

// The prescribed widths at the least; what the grid has beyond them goes to the two move columns.
void MoveGrid::fitColumns() {
    const int move = std::max(MoveGridState::MoveWidth, (viewport()->width() - NumberColumn) / 2);
    setColumnWidth(0, NumberColumn);
    setColumnWidth(1, move);
    setColumnWidth(2, move);
}

void MoveGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

void MoveGrid::zFindBottomRow() {
    // By the grid's own size: before it is shown its viewport has not been laid out. A row that is scrolled away fits
    // as well.
    const int room = height() - 2 * frameWidth() - horizontalHeader()->height();
    const int fitting = room / verticalHeader()->defaultSectionSize();
    ::zFindBottomRow([fitting](int row) { return row <= fitting; }, state_.VisibleRows);
}
