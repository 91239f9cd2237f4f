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

    void setText(const std::string& text);
    const std::string& text() const { return text_; }
    // A ClockColor value; the system's button colour by its number.
    void setBackground(std::uint32_t color);
    std::uint32_t background() const { return background_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int side_;
    std::string text_;
    std::uint32_t background_;
};
