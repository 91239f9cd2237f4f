// Cuts a Style 12 line of the server into tokens and fills a record from them.
#pragma once

#include "common/FixedArray.h"
#include "common/Style12Record.h"

#include <optional>
#include <string_view>

// The position of a new board, of a cleared board and of a game read from a file; only `zStyle12` ever reads it.
inline constexpr std::string_view FixedStartLine = "<12> rnbqkbnr pppppppp -------- -------- -------- -------- "
                                                   "PPPPPPPP RNBQKBNR W -1 1 1 1 1 0 72 quillfen Marrowdale "
                                                   "-1 0 0 39 39 0 0 1 none (0:00) none 1 0 0";

// The 31 tokens of a line, cut at single blanks from the first "<12> " on; token 0 is "<12>", token 30 the flip.
// The views point into the line and are good as long as it is.
using Style12Tokens = FixedArray<std::string_view, 30>;

// How the last token may end.
enum class LineEnd {
    RestIsToken, // the line may end straight after the flip token (lines of the server)
    BlankNeeded, // the flip token must be followed by a blank (a board's own reading)
};

// Which fields are taken from the tokens.
enum class Style12Fields {
    All,
    PositionOnly, // Position, SideToMove and Flip; all others keep their values
};

// The tokens of `line`; none when "<12> " is absent or when there are too few tokens. Allocates nothing.
std::optional<Style12Tokens> cutStyle12(std::string_view line, LineEnd end);

// Fills `record`. Clocks and flip are read leniently (no number gives 0), the other numbers strictly: faults (type
// mismatch, overflow) at the first field that does not fit, with the fields before it already taken.
void readStyle12(const Style12Tokens& tokens, Style12Fields fields, Style12Record& record);

// The same, but a field that faults keeps its old value and the reading goes on with the next.
void readStyle12PassingOver(const Style12Tokens& tokens, Style12Fields fields, Style12Record& record);
