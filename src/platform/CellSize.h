// The room that a text takes in a table.
#pragma once

#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWidget>

// Pixels, margins and all, of a cell of `table` that shows `text` whole.
inline QSize cellSize(const QWidget& table, const QString& text) {
    QStyleOptionViewItem cell;
    cell.initFrom(&table);
    cell.font = table.font();
    cell.features |= QStyleOptionViewItem::HasDisplay;
    cell.text = text;
    return table.style()->sizeFromContents(QStyle::CT_ItemViewItem, &cell, {}, &table);
}
