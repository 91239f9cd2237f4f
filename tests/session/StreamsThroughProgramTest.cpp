// Recorded server text through the whole program, in packets of four sizes.
#include "session/ProgramRig.h"

#include "common/modChess.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

std::string streamText(const std::string& name) {
    std::ifstream file(std::string(TEST_DATA) + "/streams/" + name, std::ios::binary);
    EXPECT_TRUE(file.good()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Outcome {
    std::string boards;
    std::string console;
    std::vector<std::string> commands, updates, holdings, sounds, messages;
    std::string fault;
};

Outcome outcomeOf(const std::string& name, Packets packets) {
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    rig.replay(streamText(name), packets);
    return {rig.boardsText(), rig.console().text(), rig.server.commands(), rig.updates, rig.holdings, rig.sounds, rig.messages,
            rig.fault.value_or("none")};
}

struct Stream {
    const char* file;
};
void PrintTo(const Stream& stream, std::ostream* out) { *out << stream.file; }
class StreamsThroughProgram : public testing::TestWithParam<Stream> {};

} // namespace

TEST_P(StreamsThroughProgram, Explore) {
    int n = 0;
    for (Packets p : {Packets::OneByte, Packets::SevenBytes, Packets::OneLine, Packets::UpToAPause}) {
        Outcome o = outcomeOf(GetParam().file, p);
        std::string name = GetParam().file;
        std::replace(name.begin(), name.end(), '/', '_');
        std::ofstream f("/tmp/explore/" + name + "." + std::to_string(n++));
        f << o.boards << "=== fault " << o.fault << "\n=== commands\n";
        for (auto& x : o.commands) f << x << "\n";
        f << "=== updates\n";
        for (auto& x : o.updates) f << x << "\n";
        f << "=== holdings\n";
        for (auto& x : o.holdings) f << x << "\n";
        f << "=== sounds\n";
        for (auto& x : o.sounds) f << x << "\n";
        f << "=== messages\n";
        for (auto& x : o.messages) f << x << "\n";
        f << "=== console\n" << o.console << "\n";
    }
}
INSTANTIATE_TEST_SUITE_P(Recorded, StreamsThroughProgram, testing::Values(
    Stream{"server-a/01_anders_registered.raw"},
    Stream{"server-a/02_berta_registered.raw"},
    Stream{"server-a/03_guest_observer.raw"},
    Stream{"server-a/10_login_wrong_password.raw"},
    Stream{"server-a/12_login_unregistered_name.raw"},
    Stream{"server-a/13_login_odd_names.raw"},
    Stream{"server-a/14_block_mode_and_styles.raw"},
    Stream{"server-a/20_bughouse_GuestABCD.raw"},
    Stream{"server-a/21_bughouse_GuestEFGH.raw"},
    Stream{"server-a/24_bughouse_observer.raw"},
    Stream{"server-a/45_observer_two_games.raw"},
    Stream{"server-b/01_anders_registered.raw"},
    Stream{"server-b/02_berta_registered.raw"},
    Stream{"server-b/03_long_game_smoves.raw"},
    Stream{"server-b/10_examine_journal.raw"},
    Stream{"server-b/20_bughouse_GuestEFGH.raw"},
    Stream{"text/bughouse_two_boards.txt"},
    Stream{"text/challenges.txt"},
    Stream{"text/finger.txt"},
    Stream{"text/game_start_with_seekinfo.txt"},
    Stream{"text/help_style12.txt"},
    Stream{"text/history.txt"},
    Stream{"text/login_failure.txt"},
    Stream{"text/login_guest_question.txt"},
    Stream{"text/login_guest_success.txt"},
    Stream{"text/login_screen.txt"},
    Stream{"text/login_success.txt"},
    Stream{"text/moves_crazyhouse.txt"},
    Stream{"text/moves_relayed.txt"},
    Stream{"text/moves_standard.txt"},
    Stream{"text/moves_with_milliseconds.txt"},
    Stream{"text/observation_two_games.txt"},
    Stream{"text/seek_announcements.txt"},
    Stream{"text/seek_taken.txt"},
    Stream{"text/session_1997.txt"},
    Stream{"text/smoves_standard_and_fr.txt"},
    Stream{"text/sought.txt"},
    Stream{"text/stored_history_journal.txt"},
    Stream{"text/style12_lines.txt"},
    Stream{"text/tells_shouts_events.txt"},
    Stream{"text/variables_guest.txt"},
    Stream{"text/variables_registered.txt"}));
