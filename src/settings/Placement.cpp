// Where a window opens.
#include "settings/Placement.h"

#include <algorithm>

WindowPlace placed(const WindowPlace& read, Extent designed, Extent screen, std::optional<int> limit) {
    const bool beyond = read.Left >= screen.Width || read.Top >= screen.Height;
    const bool below = limit && (read.Left < static_cast<float>(*limit) || read.Top < static_cast<float>(*limit));
    if (beyond || below) return designedPlace(designed);
    return read;
}

WindowPlace designedPlace(Extent designed) { return {0, 0, designed.Width, designed.Height}; }

WindowPlace centred(Extent size, Extent screen) {
    return {(screen.Width - size.Width) / 2, (screen.Height - size.Height) / 2, size.Width, size.Height};
}

std::optional<WindowPlace> beside(const WindowPlace& other, Extent size, const WindowPlace& screen) {
    constexpr float Gap = 180;   // room for the frames' edges
    constexpr float Title = 600; // and for a title bar, which nothing tells before a window shows
    WindowPlace place{other.Left + other.Width + Gap, std::max(other.Top, screen.Top), size.Width, size.Height};
    if (place.Top + place.Height + Title > screen.Top + screen.Height) return std::nullopt;
    if (place.Left + place.Width + Gap <= screen.Left + screen.Width) return place;
    place.Left = other.Left - Gap - size.Width;
    return place.Left >= screen.Left ? std::optional(place) : std::nullopt;
}

void cascade(WindowPlace& read, const std::vector<float>& openLefts) {
    float step = 300;
    for (const float left : openLefts) {
        if (left == step) step += 300;
    }
    if (openLefts.size() <= 1) return;
    read.Left = step;
    read.Top = step;
}

WindowPlace placedBoard(const WindowPlace& read, const WindowPlace& designed, Extent screen) {
    const bool fits = read.Left + read.Width <= screen.Width && read.Top + read.Height <= screen.Height;
    return read.Left >= 1 && read.Top >= 1 && fits ? read : designed;
}
