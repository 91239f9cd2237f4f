// Where a window opens: the values it read, tested against the screen.
#pragma once

#include <optional>
#include <vector>

// A place on the screen in twips, 15 to the pixel.
struct WindowPlace {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;

    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

// A width and a height in twips: a screen, or the designed size of a window.
struct Extent {
    float Width = 0;
    float Height = 0;
};

// The limit of frmChessClient. The other windows' limits are in their WindowSection.
inline constexpr int ClientLimit = 0;

// The placement rule. A `read` position at or beyond the screen, or below `limit`, gives 0, 0 with the designed size;
// any other gives what was read. Without a limit only the screen is tested. Callers whose section has no size pass the
// designed size in `read` too.
WindowPlace placed(const WindowPlace& read, Extent designed, Extent screen, std::optional<int> limit);

// Where a window starts of which nothing was read: the corner of the screen, in its designed size.
WindowPlace designedPlace(Extent designed);

// The first start of the client window: `size` in the middle of the screen. The placement rule, which runs behind it,
// takes its effect away again.
WindowPlace centred(Extent size, Extent screen);

// The place of a window of `size` beside `other`, with their upper edges in one line: to the right of it or, where it
// does not fit on `screen` there, to the left; nothing where it fits on neither side.
std::optional<WindowPlace> beside(const WindowPlace& other, Extent size, const WindowPlace& screen);

// The cascade of a new board: 300, raised by 300 for each entry of `openLefts` (left edges of the boards loaded, in the
// order of opening) that equals it. With more than one board open, `read` gets it as Left and Top.
void cascade(WindowPlace& read, const std::vector<float>& openLefts);

// The place of a new board: `read` when Left and Top are at least 1 and the window fits inside the screen by both
// measures; otherwise `designed`, where the window stands already.
WindowPlace placedBoard(const WindowPlace& read, const WindowPlace& designed, Extent screen);
