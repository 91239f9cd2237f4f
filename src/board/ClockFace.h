// One chess clock on a board window.
#pragma once

#include <QWidget>

#include <cstdint>
#include <string>

// `lblTime(side)`: a swatch of the side's colour and the time. Painted by itself, since it changes with every move.
class ClockFace : public QWidget {
public:
    // Side 0 is white, 1 is black.
    ClockFace(int side, QWidget* parent);

    // A time; whatever its length, it is shown whole.
    void setText(const std::string& text);
    const std::string& text() const { return text_; }
    // A ClockColor value; the system's button colour by its number.
    void setBackground(std::uint32_t color);
    std::uint32_t background() const { return background_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fit();

    int side_;
    std::string text_;
    QFont digits_; // in which the text fits
    std::uint32_t background_;
};
