// The list view of listed games.
#include "records/HistoryTable.h"

#include "common/Text.h"
#include "common/Twips.h"
#include "platform/ButtonKeys.h"
#include "platform/CellSize.h"
#include "platform/StreamText.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyleOptionHeader>

namespace {

constexpr int MostRows = 10;

// A line end that was captured with the last column is none of the cell's.
QString shownCell(std::string_view text) {
    while (!text.empty() && isBreak(text.back())) text.remove_suffix(1);
    return shownText(text);
}

Qt::Alignment alignmentOf(ListAlignment alignment) {
    switch (alignment) {
    case ListAlignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case ListAlignment::Centre:
        return Qt::AlignCenter;
    case ListAlignment::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

QTreeWidgetItem* headOf(const ListLook& look) {
    auto* head = new QTreeWidgetItem;
    int number = 0;
    for (const ListColumn& column : look.columns) {
        const QString meaning = QString::fromLatin1(column.meaning);
        head->setText(number, QString::fromLatin1(column.heading));
        head->setTextAlignment(number, alignmentOf(column.alignment));
        head->setToolTip(number, meaning);
        head->setData(number, Qt::AccessibleTextRole, meaning);
        ++number;
    }
    return head;
}

QTreeWidgetItem* itemOf(const ListLook& look, const HistoryRow& row) {
    auto* item = new QTreeWidgetItem;
    QStringList words;
    int number = 0;
    for (const ListColumn& column : look.columns) {
        if (column.field >= 0) {
            const std::string& text = row[column.field];
            const QString spoken = shownCell(spokenCell(look, number, text));
            item->setText(number, shownCell(text));
            item->setTextAlignment(number, alignmentOf(column.alignment));
            item->setData(number, Qt::AccessibleTextRole, spoken);
            if (!spoken.isEmpty()) words << spoken;
        }
        ++number;
    }
    item->setData(0, Qt::AccessibleTextRole, words.join(QStringLiteral(", ")));
    return item;
}

} // namespace

HistoryTable::HistoryTable(QWidget* parent) : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(1);
}

void HistoryTable::setLook(const ListLook& look) {
    if (look_ == &look) return;
    look_ = &look;
    clear();
    setHeaderItem(headOf(look));
    fitColumns();
}

void HistoryTable::fill(const HistoryLists& lists) {
    clear();
    for (int row = 0; row < lists.HistCount; ++row) addTopLevelItem(itemOf(*look_, lists.HistRows[row]));
    fitColumns();
    if (topLevelItemCount() > 0) setCurrentItem(topLevelItem(0));
}

std::string HistoryTable::cell(int row, int column) const {
    const QTreeWidgetItem* item = topLevelItem(row);
    return item ? bytesOf(item->text(column)) : std::string();
}

int HistoryTable::selectedRow() const {
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? -1 : indexOfTopLevelItem(selected.first());
}

// The widest of the three looks, so that the window need not grow from one to the other.
QSize HistoryTable::sizeHint() const {
    int widest = 0;
    for (const std::int16_t kind : {HistoryKindGames, HistoryKindJournal, HistoryKindStored}) {
        int width = 0;
        for (const ListColumn& column : lookOf(kind).columns) width += leastWidth(column);
        widest = std::max(widest, width);
    }
    const int frame = 2 * frameWidth();
    return {widest + frame,
            header()->sizeHint().height() + MostRows * cellSize(*this, QStringLiteral("X")).height() + frame};
}

void HistoryTable::fitColumns() {
    int number = 0;
    for (const ListColumn& column : look_->columns) {
        header()->resizeSection(number, std::max(leastWidth(column), sizeHintForColumn(number)));
        ++number;
    }
}

// What is prescribed, or more where the font needs it.
int HistoryTable::leastWidth(const ListColumn& column) const {
    QStyleOptionHeader heading;
    heading.initFrom(header());
    heading.text = QString::fromLatin1(column.heading);
    const int headed = style()->sizeFromContents(QStyle::CT_HeaderSection, &heading, {}, header()).width();
    const int filled = cellSize(*this, QString::fromLatin1(column.widest)).width();
    return column.field < 0 ? column.twips / TwipsPerPixelX : std::max({column.twips / TwipsPerPixelX, headed, filled});
}

void HistoryTable::changeEvent(QEvent* event) {
    QTreeWidget::changeEvent(event);
    const auto type = event->type();
    if (look_ != nullptr && (type == QEvent::FontChange || type == QEvent::StyleChange)) fitColumns();
}

void HistoryTable::keyPressEvent(QKeyEvent* event) {
    const bool menu = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
    if (!isEnter(*event) && !menu) return QTreeWidget::keyPressEvent(event);
    if (selectedRow() < 0) return;
    menu ? wantMenuAtRow() : reviewWanted();
}

void HistoryTable::wantMenuAtRow() {
    scrollToItem(currentItem());
    Q_EMIT menuWantedAt(viewport()->mapToGlobal(visualItemRect(currentItem()).bottomLeft()));
}

void HistoryTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && itemAt(event->pos()) != nullptr) Q_EMIT reviewWanted();
}

void HistoryTable::contextMenuEvent(QContextMenuEvent* event) {
    if (selectedRow() < 0) return;
    event->reason() == QContextMenuEvent::Keyboard ? wantMenuAtRow() : menuWanted();
}
