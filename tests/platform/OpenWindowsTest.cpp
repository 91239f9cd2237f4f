// The list of loaded windows.
#include "platform/OpenWindows.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

// A console, two boards and a chat box, as they were opened.
struct OpenWindowsTest : testing::Test {
    OpenWindows list;
    int console = 0;
    int first = 0;
    int second = 0;
    int chat = 0;

    OpenWindowsTest() {
        list.add({"frmChessClient", &console, {}});
        list.add({"frmChessBoard", &first, {}});
        list.add({"frmChat", &chat, {}});
        list.add({"frmChessBoard", &second, {}});
    }
};

} // namespace

TEST_F(OpenWindowsTest, TheOrderIsThatOfCreation) {
    EXPECT_EQ(list.windows.front().window, &console);
    EXPECT_EQ(list.windows.back().window, &second);
}

TEST_F(OpenWindowsTest, WindowsAreCountedByTheirClass) {
    EXPECT_EQ(list.count("frmChessBoard"), 2);
    EXPECT_EQ(list.count("frmHistory"), 0);
}

TEST_F(OpenWindowsTest, AWindowThatGoesLeavesTheOthersInTheirOrder) {
    list.remove(&first);
    ASSERT_EQ(list.windows.size(), 3U);
    EXPECT_EQ(list.windows[1].window, &chat);
    EXPECT_EQ(list.windows[2].window, &second);
    list.remove(&first);
    EXPECT_EQ(list.windows.size(), 3U) << "gone already";
}

TEST_F(OpenWindowsTest, AWindowIsHeldFromItsLoadUntilItGoes) {
    EXPECT_TRUE(list.holds(&first));
    list.remove(&first);
    EXPECT_FALSE(list.holds(&first));
    EXPECT_TRUE(list.holds(&second));
}

TEST_F(OpenWindowsTest, TheWindowOfAClassIsAskedToCloseAndMayGoMeanwhile) {
    int seek = 0;
    int asked = 0;
    list.add({"frmSeek", &seek, [&] {
                  ++asked;
                  list.remove(&seek);
              }});
    list.unload("frmSeek");
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(list.holds(&seek));
    list.unload("frmSeek"); // nobody is asked
    EXPECT_EQ(asked, 1);
}

TEST_F(OpenWindowsTest, AWindowMayGoAsItTakesItsAnswer) {
    int notes = 0;
    auto alive = std::make_shared<int>(0);
    std::weak_ptr<int> watched = alive;
    bool aliveBehind = false;
    list.add({.className = "frmNotes", .window = &notes, .unload = {}, .answered = [&, alive = std::move(alive)] {
                  list.remove(&notes);
                  aliveBehind = !watched.expired();
              }});
    list.answer("frmNotes");
    EXPECT_TRUE(aliveBehind) << "what the routine holds";
    EXPECT_EQ(list.count("frmNotes"), 0);
    list.answer("frmNotes"); // nobody is told
}
