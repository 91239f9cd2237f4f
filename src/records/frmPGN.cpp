// The chooser: which game of a file goes to a board.
#include "records/frmPGN.h"

#include "common/Twips.h"
#include "common/modChess.h"
#include "platform/ButtonKeys.h"
#include "platform/CellSize.h"
#include "platform/CellTips.h"
#include "platform/FramePlace.h"
#include "platform/InFront.h"
#include "platform/OpenWindows.h"
#include "platform/StreamText.h"

#include <QCloseEvent>
#include <QFile>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace {

constexpr int BelowTop = 700 / TwipsPerPixelY; // of the board
constexpr int RowsShown = 12;                  // of a file that has as many

struct Column {
    const char* heading;
    int width; // twips
    std::string PgnGame::*field;
    bool centred = false;
    const char* widest = ""; // what has to be readable in every font
};

constexpr const char* AName = "of 12 letter";

constexpr std::array<Column, 6> Columns{{
    {"", 300, nullptr, false, "99"},
    {"White", 1500, &PgnGame::White, false, AName},
    {"Black", 1500, &PgnGame::Black, false, AName},
    {"Event", 1500, &PgnGame::Event, false, AName},
    {"Date", 1020, &PgnGame::Date, true, "2000.00.00"},
    {"Res", 990, &PgnGame::Result, true, "1/2-1/2"},
}};

int widthOf(const Column& column, const QWidget& grid) {
    return std::max(column.width / TwipsPerPixelX, cellSize(grid, QString::fromLatin1(column.widest)).width());
}

Qt::Alignment alignmentOf(const Column& column) {
    return Qt::AlignVCenter | (column.centred ? Qt::AlignHCenter : Qt::AlignLeft);
}

QString cellText(const Column& column, const PgnGame& game, int row) {
    return column.field ? shownStart(game.*column.field) : QString::number(row);
}

} // namespace

frmPGN::frmPGN(QWidget& board, std::int32_t id, const std::string& fileName, const PgnTable& games, int count)
    : QDialog(&board), frmCBid(id) {
    setObjectName(QStringLiteral("frmPGN"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QFile::decodeName(fileName.c_str()));
    zSetGrid();
    fill(games, count);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(fxgPGN_);
    const int rows = RowsShown * cellSize(*fxgPGN_, QStringLiteral("X")).height();
    resize(widthOfGrid(), fxgPGN_->header()->sizeHint().height() + rows + 2 * fxgPGN_->frameWidth());
    placeOver(board);
    modChess.PgnChoice = -1;
    openWindows.add({"frmPGN", this, [this] { close(); }});
}

frmPGN::~frmPGN() {
    openWindows.remove(this);
    if (!closed_) modChess.PgnChoice = 0;
}

void frmPGN::zSetGrid() {
    fxgPGN_ = new QTreeWidget(this);
    fxgPGN_->setObjectName(QStringLiteral("fxgPGN"));
    fxgPGN_->setAccessibleName(tr("Games of the file"));
    fxgPGN_->setAccessibleDescription(tr("Enter opens the chosen game on the board"));
    fxgPGN_->setRootIsDecorated(false);
    fxgPGN_->setIndentation(0);
    fxgPGN_->setUniformRowHeights(true);
    fxgPGN_->setAllColumnsShowFocus(true);
    fxgPGN_->setAlternatingRowColors(true);
    fxgPGN_->setItemDelegate(new CellTips(fxgPGN_));
    fxgPGN_->header()->setStretchLastSection(false);
    fxgPGN_->header()->setSectionsMovable(false);
    fxgPGN_->header()->setMinimumSectionSize(1);
    fxgPGN_->setColumnCount(static_cast<int>(Columns.size()));
    for (std::size_t index = 0; index < Columns.size(); ++index) {
        const int number = static_cast<int>(index);
        fxgPGN_->headerItem()->setText(number, QString::fromLatin1(Columns[index].heading));
        fxgPGN_->headerItem()->setTextAlignment(number, alignmentOf(Columns[index]));
        fxgPGN_->setColumnWidth(number, widthOf(Columns[index], *fxgPGN_));
    }
    connect(fxgPGN_, &QTreeWidget::doubleClicked, this, [this] { choose(); });
}

void frmPGN::fill(const PgnTable& games, int count) {
    QList<QTreeWidgetItem*> rows;
    for (int row = 1; row <= count; ++row) {
        rows.append(new QTreeWidgetItem);
        for (std::size_t index = 0; index < Columns.size(); ++index) {
            rows.back()->setText(static_cast<int>(index), cellText(Columns[index], games[row], row));
            rows.back()->setTextAlignment(static_cast<int>(index), alignmentOf(Columns[index]));
        }
    }
    fxgPGN_->addTopLevelItems(rows);
    fxgPGN_->setColumnWidth(0, std::max(fxgPGN_->columnWidth(0), cellSize(*fxgPGN_, QString::number(count)).width()));
    if (count > 0) fxgPGN_->setCurrentItem(rows.front());
}

// From 1; 0 for none.
int frmPGN::currentRow() const { return fxgPGN_->indexOfTopLevelItem(fxgPGN_->currentItem()) + 1; }

int frmPGN::widthOfGrid() const {
    return fxgPGN_->header()->length() + fxgPGN_->verticalScrollBar()->sizeHint().width() + 2 * fxgPGN_->frameWidth();
}

// Both windows have the same frame.
void frmPGN::placeOver(const QWidget& board) {
    const QRect screen = board.screen()->availableGeometry();
    const QSize frame = board.frameGeometry().size() - board.size();
    resize(size().boundedTo(screen.size() - frame));
    const QSize whole = size() + frame;
    placeFrame(*this, {std::clamp(board.x(), screen.left(), screen.right() + 1 - whole.width()),
                       std::clamp(board.y() + BelowTop, screen.top(), screen.bottom() + 1 - whole.height())});
}

frmPGN& frmPGN::showIt(QWidget& board, std::int32_t id, const std::string& fileName, const PgnTable& games, int count) {
    openWindows.unload("frmPGN");
    auto* chooser = new frmPGN(board, id, fileName, games, count); // deletes itself after closing
    bringInFront(*chooser);
    chooser->fxgPGN_->setFocus();
    return *chooser;
}

void frmPGN::choose() {
    choice_ = currentRow();
    close();
}

void frmPGN::keyPressEvent(QKeyEvent* event) {
    if (!isEnter(*event)) {
        QDialog::keyPressEvent(event);
    } else if (currentRow() > 0) {
        choose();
    }
}

void frmPGN::closeEvent(QCloseEvent* event) {
    event->accept();
    if (std::exchange(closed_, true)) return;
    openWindows.remove(this);
    modChess.PgnChoice = static_cast<std::int16_t>(choice_);
    Q_EMIT chosen(choice_);
}
