// What assistive tools are told of widgets that show a text or a picture of their own.
#include "platform/Described.h"

#include <QAccessibleWidget>
#include <QWidget>

#include <utility>

namespace {

class DescribedWidget : public QAccessibleWidget {
public:
    DescribedWidget(QWidget* widget, QAccessible::Role role, std::function<QString()> description)
        : QAccessibleWidget(widget, role), description_(std::move(description)) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? description_() : QAccessibleWidget::text(kind);
    }

private:
    std::function<QString()> description_;
};

} // namespace

void describe(QWidget* widget, QAccessible::Role role, const QString& name, std::function<QString()> text) {
    QAccessible::registerAccessibleInterface(
        new DescribedWidget(widget, role, std::move(text))); // goes with the widget
    widget->setAccessibleName(name);                         // announced, and so behind the interface
}

void describeWindow(QWidget* window) {
    QAccessible::registerAccessibleInterface(new QAccessibleWidget(window, QAccessible::Window));
}

std::function<void(QWidget* widget)> announceDescription = [](QWidget* widget) {
    QAccessibleEvent event(widget, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
};
