// The picture of the seek graph: lines, labels and dots as SeekGraph has them, under the pointer and the keyboard.
#pragma once

#include "seek/SeekGraph.h"

#include <QPixmap>
#include <QWidget>

#include <cstdint>
#include <optional>
#include <vector>

class QPainter;

// Has the size of the graph's geometry, or shows it smaller where it does not get that. One dot at most is chosen, by
// the keyboard; the choice stays with its ad's number while ads come and go.
class SeekPlot : public QWidget {
    Q_OBJECT
public:
    SeekPlot(const SeekGraph& graph, QWidget* parent);

    // 0xBBGGRR.
    void setColors(std::int32_t paper, std::int32_t ink);
    // The graph has other lines or dots now.
    void redraw();

    // Takes the keyboard and chooses the next dot in the order of the table, or the one before, or the first or last;
    // Left, Right, Up, Down, Home and End do. False for another key.
    bool walk(int key);
    // The index of the chosen dot, -1 for none or when its ad has gone.
    int chosenDot() const;
    void choose(int dot);

    // Twips to pixels of this widget, and the square of a dot in pixels.
    double pixels(double twips) const;
    QRectF squareOf(int dot) const;
    const SeekGraph& graph() const { return graph_; }

Q_SIGNALS:
    // A button went down on a dot.
    void dotPressed(int dot, Qt::MouseButton button);
    // The pointer, or the keyboard, is at this dot now; -1 for none.
    void dotPointedAt(int dot);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Label {
        QString text;
        QRectF place; // pixels
    };

    double scale() const;
    int dotAt(QPointF point) const;
    void showPointer(QPointF point);
    void paintFocus(QPainter& painter) const;
    void paintPicture();
    void paintLines(QPainter& painter) const;
    QFont labelFont() const;
    std::vector<Label> labels() const;
    void paintLabel(QPainter& painter, const Label& label) const;
    void paintDot(QPainter& painter, int dot) const;

    const SeekGraph& graph_;
    QColor paper_;
    QColor ink_;
    QPixmap picture_; // null when it has to be painted anew
    std::optional<std::int16_t> chosenAd_;
    int lastChosen_ = -1; // where the walk goes on when the chosen ad has gone
};
