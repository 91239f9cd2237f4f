// The options dialog by keys and assistive tools: what is ticked or chosen without a pointer counts as a click does.
#include "settings/OptionsWindowRig.h"

#include "settings/OptionChoices.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OptionsTools : public OptionsWindowRig {
protected:
    // As an assistive tool does it.
    void toggle(const std::string& name) {
        auto* actions = QAccessible::queryAccessibleInterface(&hand.shown(name))->actionInterface();
        actions->doAction(QAccessibleActionInterface::toggleAction());
    }
    void press(const std::string& name, Qt::Key key) {
        auto& control = hand.shown(name);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&hand.dialog()));
        control.setFocus();
        QTest::keyClick(&control, key);
    }
    bool chosen(const std::string& name) { return hand.part<QAbstractButton>(name).isChecked(); }
};

} // namespace

TEST_F(OptionsTools, DragModeTickedByAToolEnablesTheDelay) {
    open();
    for (const bool on : {false, true}) {
        toggle("chkDrag");
        EXPECT_EQ(chosen("chkDrag"), on);
        EXPECT_EQ(hand.part("cboSlip").isEnabled(), on);
        EXPECT_EQ(hand.part("lblSlip").isEnabled(), on);
    }
}

TEST_F(OptionsTools, ASoundTickedByAToolIsPlayed) {
    modChess.SoundMove = modChess.SoundStart = modChess.SoundTell = 2;
    modChess.SoundArrive = 0;
    open();
    for (const char* box : {"chkMoves", "chkGame", "chkTell", "chkArrival"}) toggle(box);
    EXPECT_THAT(takeSounds(), ElementsAre("capture.wav", "fitebell.wav", "whistle.wav", "beep"));
    for (const char* box : {"chkMoves", "chkGame", "chkTell", "chkArrival"}) toggle(box);
    EXPECT_THAT(takeSounds(), IsEmpty());
}

TEST_F(OptionsTools, ASoundChosenByAToolIsPlayedOnce) {
    open();
    toggle("optMoves(0)");
    EXPECT_TRUE(chosen("optMoves(0)"));
    EXPECT_THAT(takeSounds(), ElementsAre("beep"));
    toggle("optMoves(1)");
    EXPECT_THAT(takeSounds(), ElementsAre("move.wav"));
}

TEST_F(OptionsTools, ASoundThatIsChosenAlreadyIsHeardAgainWithEachClick) {
    open();
    hand.click("optMoves(1)");
    hand.click("optMoves(1)");
    press("optMoves(1)", Qt::Key_Space);
    EXPECT_THAT(takeSounds(), ElementsAre("move.wav", "move.wav", "move.wav"));
}

TEST_F(OptionsTools, TheSpaceBarTicksAndPlaysOnce) {
    modChess.SoundMove = 2;
    open();
    press("chkMoves", Qt::Key_Space);
    EXPECT_TRUE(chosen("chkMoves"));
    EXPECT_THAT(takeSounds(), ElementsAre("capture.wav"));
}

TEST_F(OptionsTools, ArrowsChooseTheOtherSoundAndPlayItOnce) {
    open();
    press("optStart(1)", Qt::Key_Left);
    EXPECT_TRUE(chosen("optStart(0)"));
    EXPECT_THAT(takeSounds(), ElementsAre("beep"));
    press("optStart(0)", Qt::Key_Right);
    EXPECT_TRUE(chosen("optStart(1)"));
    EXPECT_THAT(takeSounds(), ElementsAre("fitebell.wav"));
}

TEST_F(OptionsTools, ArrowsInTheClosedListShowOneSchemeAfterTheOther) {
    open();
    for (const ColorScheme& scheme : colorSchemes) {
        press("cboDefaults", Qt::Key_Down);
        EXPECT_EQ(hand.ground("picMain"), scheme.colors.Background) << scheme.name;
        EXPECT_EQ(hand.textColor("lblShout"), scheme.colors.Shout) << scheme.name;
        EXPECT_EQ(chosen("optSeekColors(1)"), scheme.whiteGraph) << scheme.name;
    }
}
