// Fuzzes the readers of board lines: the cut of a Style 12 line, its fields, the move's marks and the holdings.
#include "Require.h"
#include "board/QuietGame.h"
#include "board/Style12Line.h"
#include "common/Fault.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace {

std::string joined(const Style12Tokens& tokens) {
    std::string text;
    for (const auto token : tokens) text.append(text.empty() ? 0 : 1, ' ').append(token);
    return text;
}

void checkCut(std::string_view line, const Style12Tokens& tokens) {
    require(line.substr(line.find("<12> ")).starts_with(joined(tokens)), "the tokens are the line, cut at blanks");
}

// The reading that passes over faults agrees with the strict one wherever that one gets through.
void checkFields(const Style12Tokens& tokens) {
    Style12Record lenient;
    Style12Record strict;
    readStyle12PassingOver(tokens, Style12Fields::All, lenient);
    const bool whole = passOver([&] { readStyle12(tokens, Style12Fields::All, strict); });
    require(!whole || strict == lenient, "both readings give the same record");
    require(lenient.SideToMove == 0 || lenient.SideToMove == 1, "one of two sides is to move");
}

void checkHoldings(std::string_view line) {
    const HoldingsLine holdings = readHoldings(line);
    for (const auto& kind : holdings.counts) {
        for (const std::int16_t held : kind) {
            require(held >= 0 && static_cast<std::size_t>(held) <= line.size(), "no more is held than the line names");
        }
    }
    for (const std::string* text : {&holdings.whiteText, &holdings.blackText}) {
        require(text->empty() || text->front() == '[', "a holding stands in brackets");
        require(text->find_first_of("\r\n") == std::string::npos || text->ends_with(']'), "a holding has one line");
    }
}

void checkBoard(std::string_view line) {
    const auto game = quietGame();
    game->surface.zDrawSquare = [](int square, int) { require(square >= 0 && square < 64, "a mark is on the board"); };
    game->zHighlightMove(line);
    game->zHighlightMove(line.substr(line.size() / 2));
    game->zSetBughouse(line);
    require(game->HoldingsShown, "holdings are shown from their first line on");
    for (const bool ics : {false, true}) {
        game->icsMode = ics;
        passOver([&] { game->zParseStyle12(line); });
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    for (const LineEnd end : {LineEnd::RestIsToken, LineEnd::BlankNeeded}) {
        const auto tokens = cutStyle12(line, end);
        if (!tokens) continue;
        checkCut(line, *tokens);
        checkFields(*tokens);
    }
    checkHoldings(line);
    checkBoard(line);
    return 0;
}
