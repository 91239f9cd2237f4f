// The picture of the seek graph.
#include "seek/SeekPlot.h"

#include "common/Twips.h"
#include "platform/Colors.h"
#include "seek/SeekDots.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>

namespace {

constexpr double LabelTop = 15; // twips, of the times
constexpr double LineRoom = 15; // twips, of the base line below its height
constexpr double SideRoom = 150;

// Pixels.
constexpr double ChoiceGap = 1.5;
constexpr double ChoiceWidth = 2;
constexpr double LabelEdge = 2; // half of it outside the letters

double ringWidth(double side) { return std::clamp(side * 0.16, 1.0, 3.0); }

} // namespace

SeekPlot::SeekPlot(const SeekGraph& graph, QWidget* parent) : QWidget(parent), graph_(graph) {
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    describeDots(this, tr("Seeks"));
}

void SeekPlot::setColors(std::int32_t paper, std::int32_t ink) {
    paper_ = colorOf(paper);
    ink_ = colorOf(ink);
    redraw();
}

void SeekPlot::redraw() {
    picture_ = QPixmap();
    if (const int chosen = chosenDot(); chosen >= 0) lastChosen_ = chosen;
    if (underMouse()) showPointer(mapFromGlobal(QCursor::pos()));
    update();
}

// A window that cannot take the size of its whole cells, a maximised one, still shows all of the graph.
double SeekPlot::scale() const {
    const GraphGeometry& geometry = graph_.geometry;
    if (geometry.CellSize == 0) return 1;
    return std::min({1.0, width() * double(TwipsPerPixelX) / (geometry.RightX + SideRoom),
                     height() * double(TwipsPerPixelY) / (geometry.BaseY + LineRoom)});
}

double SeekPlot::pixels(double twips) const { return twips / TwipsPerPixelX * scale(); }

QRectF SeekPlot::squareOf(int dot) const {
    const double side = pixels(graph_.geometry.CellSize);
    return {pixels(graph_.dots[dot].Left), pixels(graph_.dots[dot].Top), side, side};
}

int SeekPlot::dotAt(QPointF point) const {
    const QPointF twips = point * TwipsPerPixelX / scale();
    return graph_.dotAt(twips.x(), twips.y());
}

// Keyboard

int SeekPlot::chosenDot() const {
    if (!chosenAd_) return -1;
    for (int dot = 0; dot < graph_.DotsDrawn; ++dot) {
        if (graph_.dots[dot].AdNumber == *chosenAd_) return dot;
    }
    return -1;
}

void SeekPlot::choose(int dot) {
    chosenAd_ = dot < 0 ? std::nullopt : std::optional(graph_.dots[dot].AdNumber);
    lastChosen_ = dot;
    update();
    if (dot >= 0) announceDot(this, dot);
    Q_EMIT dotPointedAt(dot);
}

bool SeekPlot::walk(int key) {
    static constexpr std::array Forward{Qt::Key_Right, Qt::Key_Down};
    static constexpr std::array Back{Qt::Key_Left, Qt::Key_Up};
    const int last = graph_.DotsDrawn - 1;
    int dot = lastChosen_;
    if (std::ranges::find(Forward, key) != Forward.end()) {
        if (dot < 0 || chosenDot() >= 0) ++dot; // the next one has come to the place of one that has gone
    } else if (std::ranges::find(Back, key) != Back.end()) {
        dot = dot < 0 ? last : dot - 1;
    } else if (key == Qt::Key_Home || key == Qt::Key_End) {
        dot = key == Qt::Key_Home ? 0 : last;
    } else {
        return false;
    }
    setFocus(); // first: what is told last is what the user is at
    if (last >= 0) choose(std::clamp(dot, 0, last));
    return true;
}

// Pointer

void SeekPlot::mousePressEvent(QMouseEvent* event) {
    const int dot = dotAt(event->position());
    if (dot >= 0) Q_EMIT dotPressed(dot, event->button());
}

// A double click plays an ad once; its first half was a press. A menu comes up as often as it is asked for.
void SeekPlot::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) mousePressEvent(event);
}

void SeekPlot::mouseMoveEvent(QMouseEvent* event) {
    showPointer(event->position());
    Q_EMIT dotPointedAt(dotAt(event->position()));
}

void SeekPlot::leaveEvent(QEvent*) { Q_EMIT dotPointedAt(-1); }

void SeekPlot::showPointer(QPointF point) {
    const Qt::CursorShape shape = dotAt(point) >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor;
    if (cursor().shape() != shape) setCursor(shape);
}

// Picture

void SeekPlot::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) redraw();
    QWidget::changeEvent(event);
}

void SeekPlot::paintEvent(QPaintEvent*) {
    const QSize size = this->size() * devicePixelRatioF();
    if (picture_.size() != size) {
        picture_ = QPixmap(size);
        picture_.setDevicePixelRatio(devicePixelRatioF());
        paintPicture();
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    const int chosen = chosenDot();
    if (chosen < 0) {
        if (hasFocus()) paintFocus(painter);
        return;
    }
    const double out = ChoiceGap + ChoiceWidth / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink_, ChoiceWidth));
    painter.drawEllipse(squareOf(chosen).adjusted(-out, -out, out, out));
}

// No dot shows that the keyboard is here.
void SeekPlot::paintFocus(QPainter& painter) const {
    painter.setPen(QPen(ink_, ChoiceWidth, Qt::DotLine));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void SeekPlot::paintPicture() {
    picture_.fill(paper_);
    if (graph_.geometry.CellSize == 0) return;
    QPainter painter(&picture_);
    const std::vector<Label> all = labels();
    paintLines(painter);
    for (const Label& label : all) painter.fillRect(label.place, paper_); // no line runs through one
    painter.setRenderHint(QPainter::Antialiasing);
    for (int dot = graph_.dots.last; dot >= 0; --dot) { // of two on a spot the one that is hit lies on top
        if (graph_.dots[dot].shown) paintDot(painter, dot);
    }
    for (const Label& label : all) paintLabel(painter, label);
}

void SeekPlot::paintLines(QPainter& painter) const {
    const GraphGeometry& at = graph_.geometry;
    const auto line = [&](double left, double top, double right, double bottom) {
        painter.drawLine(QPointF(pixels(left), pixels(top)), QPointF(pixels(right), pixels(bottom)));
    };
    painter.setPen(QPen(ink_, 1));
    line(at.CellHalf, at.BaseY, at.RightX, at.BaseY);
    line(at.Line3X, at.BaseY, at.Line3X, at.TopY);
    line(at.Line15X, at.BaseY, at.Line15X, at.TopY);
}

QFont SeekPlot::labelFont() const {
    QFont font = this->font();
    font.setPointSizeF(std::max(1.0, graph_.geometry.FontPoints * scale()));
    return font;
}

// One that would lie on another is left out.
std::vector<SeekPlot::Label> SeekPlot::labels() const {
    const GraphGeometry& geometry = graph_.geometry;
    const QFontMetricsF metrics(labelFont());
    const double widest = metrics.horizontalAdvance(QStringLiteral("2000"));
    const double high = metrics.height();
    const double twips = TwipsPerPixelX / scale();
    const Extent text{static_cast<float>(widest * twips), static_cast<float>(high * twips)};
    std::vector<Label> found;
    const auto add = [&found](int number, const QRectF& place) {
        const auto overlaps = [&place](const Label& other) { return other.place.intersects(place); };
        if (std::ranges::none_of(found, overlaps)) found.push_back({QString::number(number), place});
    };
    for (const int rating : {2000, 1000}) {
        const auto corner = geometry.zRatingY(rating, text);
        add(rating, {pixels(corner.X), pixels(corner.Y), widest, high});
    }
    for (const auto& [minutes, line] : {std::pair(3, geometry.Line3X), std::pair(15, geometry.Line15X)}) {
        const double wide = metrics.horizontalAdvance(QString::number(minutes));
        add(minutes, {pixels(line) - wide / 2, pixels(LabelTop), wide, high});
    }
    return found;
}

// With an edge of paper, for the dots that it may lie on.
void SeekPlot::paintLabel(QPainter& painter, const Label& label) const {
    const QFont font = labelFont();
    QPainterPath letters;
    letters.addText(label.place.left(), label.place.top() + QFontMetricsF(font).ascent(), font, label.text);
    painter.strokePath(letters, QPen(paper_, LabelEdge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setPen(ink_);
    painter.setFont(font);
    painter.drawText(label.place, Qt::AlignCenter | Qt::TextDontClip, label.text);
}

void SeekPlot::paintDot(QPainter& painter, int dot) const {
    const QRectF square = squareOf(dot);
    const QColor color = colorOf(graph_.dots[dot].color);
    if (graph_.dots[dot].filled) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(square);
        return;
    }
    const double ring = ringWidth(square.width());
    painter.setPen(QPen(color, ring));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(square.adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2));
}
