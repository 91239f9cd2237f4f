// One chess clock on a board window.
#include "board/ClockFace.h"

#include "board/BoardClock.h"
#include "platform/Colors.h"

#include <QPainter>

namespace {
constexpr int Swatch = 10; // pixels
}

ClockFace::ClockFace(int side, QWidget* parent) : QWidget(parent), side_(side), background_(ClockColor::Waiting) {
    setObjectName(QStringLiteral("lblTime(%1)").arg(side));
    setAccessibleName(side == 0 ? tr("White's clock") : tr("Black's clock"));
    QFont big = font();
    big.setPointSizeF(big.pointSizeF() * 1.35);
    big.setBold(true);
    setFont(big);
}

void ClockFace::setText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    setAccessibleDescription(QString::fromStdString(text));
    update();
}

void ClockFace::setBackground(std::uint32_t color) {
    if (color == background_) return;
    background_ = color;
    update();
}

void ClockFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool waiting = background_ == ClockColor::Waiting;
    const QColor paper = waiting ? palette().color(QPalette::Button) : colorOf(static_cast<std::int32_t>(background_));
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(paper);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(QColor(96, 96, 96));
    painter.setBrush(side_ == 0 ? Qt::white : Qt::black);
    painter.drawRect(QRectF(6.5, (height() - Swatch) / 2 + 0.5, Swatch, Swatch));
    painter.setPen(waiting ? palette().color(QPalette::ButtonText) : QColor(Qt::black));
    painter.drawText(rect().adjusted(Swatch + 8, 0, -6, 0), Qt::AlignRight | Qt::AlignVCenter,
                     QString::fromStdString(text_));
}
