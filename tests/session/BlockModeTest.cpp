// Block Mode's caption and pile.
#include "session/BlockMode.h"

#include "common/modChess.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <gtest/gtest.h>

namespace {

struct BlockModeTest : testing::Test {
    Session session{quietSurface()};
    BlockMode& mode = session.blockMode;
    std::string caption = "Client";
    std::string inserted;
    bool mnuBlocked = false;

    BlockModeTest() {
        modChess = ModChess{};
        mode.hooks.caption = [this] { return caption; };
        mode.hooks.setCaption = [this](const std::string& text) { caption = text; };
        mode.hooks.insertAtEnd = [this](const std::string& text) { inserted += text; };
    }
};

} // namespace

TEST_F(BlockModeTest, OnAddsTheSuffixToTheCaption) {
    mode.toggle(mnuBlocked);
    EXPECT_TRUE(mnuBlocked);
    EXPECT_EQ(caption, "Client - Incomming Text Blocked");
    EXPECT_EQ(mode.BlockedCaption, "Client");
}

TEST_F(BlockModeTest, OffLetsThePileGoAndPutsTheCaptionBack) {
    mode.toggle(mnuBlocked);
    modChess.BlockedText = "1\r\n2\r\n";
    mode.toggle(mnuBlocked);
    EXPECT_FALSE(mnuBlocked);
    EXPECT_EQ(inserted, "1\r\n2\r\n");
    EXPECT_EQ(modChess.BlockedText, "");
    EXPECT_EQ(caption, "Client");
}
