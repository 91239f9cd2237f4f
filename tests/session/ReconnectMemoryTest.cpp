// A program that is left open for weeks loses its line every day: what a connection took is given back at its end.
#include "session/ProgramRig.h"

#include "common/HeapInUse.h"
#include "common/RecordedText.h"

#include <gtest/gtest.h>

namespace {

constexpr int First = 15; // until boards, fonts and caches are there
constexpr int More = 40;
constexpr std::size_t AllowedEach = 1024; // bytes a connection

std::string sessionText() {
    const std::string all = recordedText("server-b/01_anders_registered.raw");
    const std::size_t end = all.find(FicsPrompt, all.find("<12> ", all.find("<12> ") + 1));
    EXPECT_NE(end, std::string::npos);
    return all.substr(0, end + 6);
}

// A session on a line that is reset behind it. What the rig and the console wrote down does not count.
void session(ProgramRig& rig, const std::string& stream) {
    rig.replayMessages(stream, {1'000'000, 0, 50});
    rig.client->session.timerFired(SessionTimer::tmrTCP); // sees the connection: only one that was seen ends
    ASSERT_NE(rig.boards().front()->game.gameIndex, 0);
    rig.cutLine();
    ASSERT_EQ(rig.boards().front()->game.gameIndex, 0) << "the game of a lost line ends";
    rig.connectAgain();
    rig.learnPrompt();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // a program's own loop does so
    rig.console().clearScreen();
    for (auto* notes : {&rig.sounds, &rig.updates, &rig.holdings, &rig.batches, &rig.messages}) *notes = {};
}

} // namespace

TEST(Reconnecting, KeepsNoMemoryOfTheConnectionsBefore) {
    if (heapInUse() == 0) GTEST_SKIP() << "the allocator does not tell";
    const std::string stream = sessionText();
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    for (int count = 0; count < First; ++count) session(rig, stream);
    const std::size_t before = heapInUse();
    for (int count = 0; count < More; ++count) session(rig, stream);
    EXPECT_EQ(rig.boards().size(), 1U);
    EXPECT_LT(heapInUse(), before + More * AllowedEach);
}
