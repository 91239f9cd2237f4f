// The move list of a board on the screen.
#include "board/MoveGrid.h"

#include "platform/Colors.h"
#include "platform/FittingFont.h"
#include "platform/LightScrollBar.h"
#include "platform/StreamText.h"
#include "view/BoardGeometry.h"
#include "view/PositionWords.h"

#include <QAbstractTableModel>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

// Pixels.
constexpr int LeastRowHeight = 18;
constexpr int RowSpace = 2;   // above and below the letters
constexpr int CellMargin = 4; // left and right of a cell's text
constexpr int FocusWidth = 2; // of the frame
constexpr int NumberColumn = MoveGridState::NumberWidth + 7;

constexpr int AlwaysFits = 5; // characters of a move, in the grid's font

// All digits are of one width.
int digitsWidth(const QFontMetrics& metrics, const QString& text) {
    return metrics.horizontalAdvance(u'0') * static_cast<int>(text.size());
}

void paintFocus(QPainter& painter, const QRect& area, const QPalette& palette) {
    QPen pen(palette.color(QPalette::Highlight), FocusWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(QRectF(area).adjusted(FocusWidth / 2.0, FocusWidth / 2.0, -FocusWidth / 2.0, -FocusWidth / 2.0));
}

const char* tintInWords(std::int32_t tint) {
    switch (tint) {
    case GridTint::OnLine:
        return "current move";
    case GridTint::OffLine:
        return "current move, off the stored game";
    case GridTint::Left:
        return "left behind";
    default:
        return "";
    }
}

// "3. Nf3" and "3.. Nf6, check".
QString moveInWords(const MoveGridState& state, int row, int col) {
    const std::string& text = state.text(row, col);
    if (col == 0 || text.empty()) return shownText(text);
    return shownStart(describeMove(std::to_string(row) + (col == 1 ? ". " : ".. ") + text));
}

// A cell is a tint and a short text: the style's own painter takes several times as long, at every move of a game.
class CellPainter : public QStyledItemDelegate {
public:
    CellPainter(const MoveGridState& state, QObject* parent) : QStyledItemDelegate(parent), state_(state) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const GridCell& cell = state_.cells[index.row() + 1][index.column()];
        const bool plain = cell.tint == GridTint::Plain;
        if (!plain) painter->fillRect(option.rect, colorOf(cell.tint));
        if (!cell.text.empty()) paintText(painter, option, cell, plain, index.column());
        if (option.state & QStyle::State_HasFocus) paintFocus(*painter, option.rect, option.palette);
    }

private:
    static void paintText(QPainter* painter, const QStyleOptionViewItem& option, const GridCell& cell, bool plain,
                          int column) {
        painter->setPen(plain ? option.palette.color(QPalette::Text) : QColor(Qt::black));
        const QString text = shownStart(cell.text);
        const QFontMetrics& metrics = option.fontMetrics;
        const QRect inside = option.rect.adjusted(CellMargin, 0, -CellMargin, 0);
        if (text.size() > AlwaysFits && metrics.horizontalAdvance(text) > inside.width()) {
            paintLong(*painter, metrics, text, inside.adjusted(0, 0, CellMargin - 1, 0));
            return;
        }
        const int left = column == 0 ? inside.right() + 1 - digitsWidth(metrics, text) : inside.left();
        painter->drawText(left, baseline(inside, metrics), text);
    }

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
        const GridCell& cell = state_.cells[index.row() + 1][index.column()];
        if (role == Qt::DisplayRole) return shownStart(cell.text);
        if (role == Qt::AccessibleTextRole) return moveInWords(state_, index.row() + 1, index.column());
        if (role == Qt::AccessibleDescriptionRole) return QString::fromLatin1(tintInWords(cell.tint));
        return {};
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal) return {};
        if (role == Qt::AccessibleTextRole && section == 0) return tr("Number"); // whose heading is empty
        if (role != Qt::DisplayRole) return {};
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
    setFocusPolicy(Qt::TabFocus); // a click leaves the keys where they are
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setShowGrid(false);
    setWordWrap(false);
    const int move =
        (BoardDesign::PanelWidth - 2 * frameWidth() - verticalScrollBar()->sizeHint().width() - NumberColumn) / 2;
    setFont(fittingFont(font(), QStringLiteral("Nbxd7+"), {move - 2 * CellMargin, BoardDesign::PanelHeight}));
    fitRows();
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) { state_.topRow = value + 1; });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int col) { Q_EMIT cellClicked(0, col); });
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

// Also what assistive tools take for the place of the keys.
void MoveGrid::showCurrent() {
    const QModelIndex cell = state_.row == 0 ? QModelIndex() : model_->index(state_.row - 1, state_.col);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    if (hasFocus()) viewport()->update(); // its frame may be round the whole list
}

bool MoveGrid::currentInView() const {
    return currentIndex().isValid() && viewport()->rect().contains(visualRect(currentIndex()));
}

// The frame of a cell that is not in view is round the list.
void MoveGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!hasFocus() || currentInView()) return;
    QPainter painter(viewport());
    paintFocus(painter, viewport()->rect(), palette());
}

void MoveGrid::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (hasFocus()) viewport()->update();
}

void MoveGrid::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int step = event->key() == Qt::Key_Home    ? -2
                     : event->key() == Qt::Key_Left  ? -1
                     : event->key() == Qt::Key_Right ? 1
                     : event->key() == Qt::Key_End   ? 2
                                                     : 0;
    if (plain && step != 0) {
        Q_EMIT walked(step);
    } else if (!plain || !scrollByKey(event->key())) {
        event->ignore();
    }
}

bool MoveGrid::scrollByKey(int key) {
    using Action = QAbstractSlider::SliderAction;
    const Action action = key == Qt::Key_Up         ? Action::SliderSingleStepSub
                          : key == Qt::Key_Down     ? Action::SliderSingleStepAdd
                          : key == Qt::Key_PageUp   ? Action::SliderPageStepSub
                          : key == Qt::Key_PageDown ? Action::SliderPageStepAdd
                                                    : Action::SliderNoAction;
    verticalScrollBar()->triggerAction(action);
    return action != Action::SliderNoAction;
}

void MoveGrid::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressed_ = indexAt(event->position().toPoint());
}

void MoveGrid::mouseMoveEvent(QMouseEvent*) {} // a drag marks no cells

void MoveGrid::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QModelIndex cell = std::exchange(pressed_, QModelIndex());
    if (cell.isValid() && cell == indexAt(event->position().toPoint()))
        Q_EMIT cellClicked(cell.row() + 1, cell.column());
}

// The second click on one cell, which the first has gone to, or asked the server for.
void MoveGrid::mouseDoubleClickEvent(QMouseEvent*) {}

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
