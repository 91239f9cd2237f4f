// Tool tips of a table: what does not fit into its cell.
#pragma once

#include "platform/TipText.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QToolTip>

// For texts of others, which may be longer than any column.
class CellTips : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
        const bool cut = sizeHint(option, index).width() > view->visualRect(index).width();
        const QString text = index.data().toString();
        QToolTip::showText(event->globalPos(), cut ? tipText(text) : QString(), view);
        return true;
    }
};
