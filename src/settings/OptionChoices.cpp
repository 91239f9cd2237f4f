// What the controls of the options dialog stand for.
#include "settings/OptionChoices.h"

#include "common/Numbers.h"

#include <algorithm>
#include <limits>

ConsoleColors consoleColors() {
    return {modChess.ColorMain, modChess.ColorBackground, modChess.ColorBar,  modChess.ColorTell,
            modChess.ColorCopy, modChess.ColorType,       modChess.ColorShout};
}

void setConsoleColors(const ConsoleColors& colors) {
    modChess.ColorBackground = colors.Background;
    modChess.ColorBar = colors.Bar;
    modChess.ColorMain = colors.Main;
    modChess.ColorTell = colors.Tell;
    modChess.ColorCopy = colors.Copy;
    modChess.ColorType = colors.Type;
    modChess.ColorShout = colors.Shout;
}

std::int16_t warnTimeOf(std::string_view text) {
    using Limits = std::numeric_limits<std::int16_t>;
    return toInt16(std::clamp<double>(leadingNumber(text), Limits::min(), Limits::max()));
}
