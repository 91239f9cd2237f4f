// The dots of the seek graph for assistive tools.
#include "seek/SeekDots.h"

#include "platform/AccessibleItems.h"
#include "platform/StreamText.h"
#include "seek/AdTexts.h"
#include "seek/SeekPlot.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace {

// One dot. It outlives neither the graph nor, as something to act on, its ad.
class DotEntry : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    DotEntry(SeekPlot* plot, int dot) : plot_(plot), dot_(dot) {}

    bool isValid() const override { return plot_ && dot_ < plot_->graph().DotsDrawn; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return plot_ ? plot_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(plot_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name || !isValid()) return {};
        return shownText(adText(plot_->graph().ads.SeekAds[dot_]));
    }
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect square = plot_->squareOf(dot_).toAlignedRect();
        return {plot_->mapToGlobal(square.topLeft()), square.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        state.focusable = true;
        state.selectable = true;
        state.selected = isValid() && plot_->chosenDot() == dot_;
        state.focused = state.selected && plot_->hasFocus();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (!isValid()) return;
        if (action == pressAction()) Q_EMIT plot_->dotPressed(dot_, Qt::LeftButton);
        if (action == setFocusAction()) plot_->choose(dot_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<SeekPlot> plot_;
    int dot_;
};

class DotList : public QAccessibleWidget {
public:
    explicit DotList(SeekPlot* plot) : QAccessibleWidget(plot, QAccessible::List), plot_(plot), entries_(plot) {}

    int childCount() const override { return std::max(plot_->graph().DotsDrawn, 0); }
    QAccessibleInterface* child(int index) const override { return entries_.at(index, childCount()); }
    int indexOfChild(const QAccessibleInterface* child) const override { return entries_.indexOf(child, childCount()); }
    QAccessibleInterface* childAt(int x, int y) const override { return entries_.under(x, y, childCount()); }
    QAccessibleInterface* focusChild() const override {
        const int chosen = plot_->hasFocus() ? plot_->chosenDot() : -1;
        return chosen < 0 ? QAccessibleWidget::focusChild() : child(chosen);
    }

private:
    SeekPlot* plot_;
    mutable AccessibleItems<DotEntry, SeekPlot, 201> entries_;
};

} // namespace

void describeDots(SeekPlot* plot, const QString& name) {
    QAccessible::registerAccessibleInterface(new DotList(plot)); // goes with the widget
    plot->setAccessibleName(name);
}

std::function<void(SeekPlot* plot, int dot)> announceDot = [](SeekPlot* plot, int dot) {
    QAccessibleEvent event(plot, QAccessible::Focus);
    event.setChild(dot);
    QAccessible::updateAccessibility(&event);
};
