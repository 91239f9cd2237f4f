// The mark of something that the user has changed.
#include "panels/ChangeMark.h"

#include "platform/Colors.h"

#include <QWidget>

namespace {

constexpr std::int32_t Red = 255;
constexpr std::int32_t RedOnDark = 0x8080FF;

} // namespace

void showMark(QWidget* drawn, QWidget* told, bool changed) {
    QPalette look; // without colours of its own: those of the desktop
    if (changed) {
        const bool dark = drawn->window()->palette().color(QPalette::Window).lightness() < 128;
        look.setColor(QPalette::WindowText, colorOf(dark ? RedOnDark : Red));
    }
    drawn->setPalette(look);
    told->setAccessibleDescription(changed ? QWidget::tr("changed") : QString());
}
