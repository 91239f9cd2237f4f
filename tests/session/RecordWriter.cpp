// Writes the move lists of its standard input, as a server answers "smoves" with them, to a PGN file:
//
//     record_writer FILE <answers
//
// Each answer ends in the prompt and is asked for, read and written as in the program.
#include "common/modChess.h"
#include "records/MoveListRequest.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <cstdio>
#include <iostream>
#include <iterator>
#include <memory>

namespace {

constexpr std::string_view Prompt = "fics% ";

SessionSurface connected() {
    SessionSurface surface = quietSurface();
    surface.socket.state = [] { return ServerRoad::Connected; };
    surface.user.message = [](const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); };
    return surface;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const std::string text{std::istreambuf_iterator<char>(std::cin), {}};
    const auto session = std::make_unique<Session>(connected());
    modChess.MovesFile = argv[1];
    modChess.MovesTarget = -1;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find(Prompt, begin)) != std::string::npos; begin = end + Prompt.size()) {
        session->zGetMoves(ByHandle, "Pupil -1");
        session->classifier.zDataParse(text.substr(begin, end + Prompt.size() - begin));
        if (modChess.MovesCapture) {
            std::fprintf(stderr, "an answer without an end\n");
            return 1;
        }
    }
    return 0;
}
