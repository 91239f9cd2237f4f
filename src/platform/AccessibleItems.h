// The items of one picture for assistive tools, each made when it is first asked for.
#pragma once

#include <QAccessible>

#include <array>

// At most `Most` items, numbered from 0; how many there are at the moment is the picture's to say. An `Item` is made
// from the picture and its number, and goes with this object.
template <typename Item, typename Picture, int Most>
class AccessibleItems {
public:
    explicit AccessibleItems(Picture* picture) : picture_(picture) {}
    ~AccessibleItems() {
        for (const QAccessible::Id item : items_) {
            if (item != 0) QAccessible::deleteAccessibleInterface(item);
        }
    }
    AccessibleItems(const AccessibleItems&) = delete;
    AccessibleItems& operator=(const AccessibleItems&) = delete;

    // Whether item `index` (below `Most`) has been asked for.
    bool knows(int index) const { return items_.at(static_cast<std::size_t>(index)) != 0; }

    // None outside of the first `count`.
    QAccessibleInterface* at(int index, int count) {
        if (index < 0 || index >= count) return nullptr;
        QAccessible::Id& item = items_.at(static_cast<std::size_t>(index));
        if (item == 0) item = QAccessible::registerAccessibleInterface(new Item(picture_, index));
        return QAccessible::accessibleInterface(item);
    }

    // -1 if it is none of the first `count`; makes none.
    int indexOf(const QAccessibleInterface* item, int count) {
        for (int index = 0; index < count; ++index) {
            if (knows(index) && at(index, count) == item) return index;
        }
        return -1;
    }

    // The first of `count` whose rectangle has the point, in pixels of the screen.
    QAccessibleInterface* under(int x, int y, int count) {
        for (int index = 0; index < count; ++index) {
            if (at(index, count)->rect().contains(x, y)) return at(index, count);
        }
        return nullptr;
    }

private:
    Picture* picture_;
    std::array<QAccessible::Id, static_cast<std::size_t>(Most)> items_{}; // 0: not made
};
