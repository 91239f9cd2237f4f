// The tallies of the self check, and when they let a move through.
#include "panels/SelfCheckSheet.h"

#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

namespace {

struct SelfCheckSheetTest : testing::Test {
    SelfCheckSheetTest() {
        modChess = {};
        openWindows.windows.clear();
        SelfCheckSheet::load();
    }
    ~SelfCheckSheetTest() override {
        modChess = {};
        openWindows.windows.clear();
    }

    // The ten, in the order of the rows.
    std::array<SelfCheckSheet::Tally*, 10> all() {
        std::array<SelfCheckSheet::Tally*, 10> boxes{};
        for (int row = 0; row < 5; ++row) {
            boxes.at(static_cast<std::size_t>(2 * row)) = &sheet.txtAgainst[row];
            boxes.at(static_cast<std::size_t>(2 * row + 1)) = &sheet.txtBy[row];
        }
        return boxes;
    }
    void fill() {
        for (SelfCheckSheet::Tally* each : all()) sheet.press(*each, true);
    }
    bool isEmpty() {
        return std::ranges::none_of(all(), [](const auto* each) { return each->has_value(); });
    }

    SelfCheckSheet sheet;
    SelfCheckSheet::Tally& box = sheet.txtBy[2];
};

} // namespace

TEST_F(SelfCheckSheetTest, ItsLoadRaisesItsFlagAndTheBoardsWait) {
    EXPECT_TRUE(modChess.SelfCheckOpen);
    EXPECT_FALSE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, ItsUnloadFreesTheBoards) {
    SelfCheckSheet::unload();
    EXPECT_FALSE(modChess.SelfCheckOpen);
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, AnyButtonOnAnEmptyBoxGivesIt0) {
    sheet.press(box, true);
    EXPECT_EQ(box, 0);
    box.reset();
    sheet.press(box, false);
    EXPECT_EQ(box, 0);
}

TEST_F(SelfCheckSheetTest, TheLeftButtonCountsUpAndAnyOtherDownNotBelow0) {
    for (int i = 0; i < 4; ++i) sheet.press(box, true);
    EXPECT_EQ(box, 3);
    sheet.press(box, false);
    EXPECT_EQ(box, 2);
    for (int i = 0; i < 4; ++i) sheet.press(box, false);
    EXPECT_EQ(box, 0);
}

TEST_F(SelfCheckSheetTest, TypedDigitsMakeANumberOfThreeAtMost) {
    for (const int digit : {0, 1, 2, 3, 4}) sheet.type(box, digit);
    EXPECT_EQ(box, 123);
    sheet.empty(box);
    for (int times = 0; times < 4; ++times) sheet.type(box, 9);
    EXPECT_EQ(box, 999);
    sheet.empty(box);
    for (const int digit : {1, 0, 0, 0}) sheet.type(box, digit);
    EXPECT_EQ(box, 100);
}

TEST_F(SelfCheckSheetTest, AWholeNumberIsTakenUnlessItIsBelow0) {
    for (const int number : {7, 0, 1200}) {
        sheet.take(box, number);
        sheet.take(box, -1);
        EXPECT_EQ(box, number);
    }
}

TEST_F(SelfCheckSheetTest, DigitsAreErasedUntilTheBoxIsEmpty) {
    box = 12;
    sheet.eraseDigit(box);
    EXPECT_EQ(box, 1);
    sheet.eraseDigit(box);
    EXPECT_EQ(box, std::nullopt);
    sheet.eraseDigit(box);
    EXPECT_EQ(box, std::nullopt);
    box = 9;
    sheet.eraseDigit(box);
    EXPECT_EQ(box, std::nullopt);
    box = 10;
    sheet.eraseDigit(box);
    EXPECT_EQ(box, 1);
    box = 199;
    sheet.eraseDigit(box);
    EXPECT_EQ(box, 19);
    box = 12;
    sheet.empty(box);
    EXPECT_EQ(box, std::nullopt);
}

TEST_F(SelfCheckSheetTest, TenClicksFillItForABoxWith0Counts) {
    int clicks = 0;
    for (SelfCheckSheet::Tally* each : all()) {
        EXPECT_FALSE(modChess.SelfCheckOK) << clicks;
        sheet.press(*each, true);
        ++clicks;
    }
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, AnyOneEmptyBoxHoldsTheMoveBack) {
    for (SelfCheckSheet::Tally* left : all()) {
        sheet.zReset();
        for (SelfCheckSheet::Tally* each : all()) {
            if (each != left) sheet.type(*each, 5);
        }
        EXPECT_FALSE(modChess.SelfCheckOK);
    }
}

TEST_F(SelfCheckSheetTest, TypingFillsItToo) {
    for (SelfCheckSheet::Tally* each : all()) sheet.type(*each, 0);
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, AForcedMoveOpensTheWayWithAllBoxesEmpty) {
    sheet.force(true);
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, UntickedTheWayIsClosedUnlessAllBoxesAreFilled) {
    sheet.force(true);
    sheet.force(false);
    EXPECT_FALSE(modChess.SelfCheckOK);
    fill();
    sheet.force(true);
    sheet.force(false);
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, ABoxThatIsEmptiedAgainDoesNotCloseTheWay) {
    fill();
    sheet.empty(box);
    EXPECT_TRUE(modChess.SelfCheckOK);
    sheet.force(false);
    EXPECT_FALSE(modChess.SelfCheckOK) << "only a click on the tick box lowers the flag";
}

TEST_F(SelfCheckSheetTest, EachChangeOfABoxIsLookedAt) {
    const std::array<std::function<void()>, 5> changes{[this] { sheet.press(box, false); },
                                                       [this] { sheet.type(box, 1); }, [this] { sheet.take(box, 15); },
                                                       [this] { sheet.eraseDigit(box); }, [this] { sheet.empty(box); }};
    sheet.chkForced = true;
    for (std::size_t number = 0; number < changes.size(); ++number) {
        modChess.SelfCheckOK = false;
        changes.at(number)();
        EXPECT_TRUE(modChess.SelfCheckOK) << number;
    }
}

TEST_F(SelfCheckSheetTest, ABoxThatWasEmptiedDoesNotOpenTheWay) {
    for (const auto& change : {&SelfCheckSheet::eraseDigit, &SelfCheckSheet::empty}) {
        fill();
        modChess.SelfCheckOK = false;
        (sheet.*change)(box);
        EXPECT_FALSE(modChess.SelfCheckOK);
    }
}

TEST_F(SelfCheckSheetTest, ZEvalNeverLowersTheFlag) {
    modChess.SelfCheckOK = true;
    sheet.zEval();
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, ZResetEmptiesAllUnticksAndClosesTheWay) {
    fill();
    sheet.force(true);
    bool shown = false;
    sheet.shownAnew = [&] {
        shown = true;
        EXPECT_TRUE(isEmpty());
        EXPECT_FALSE(sheet.chkForced);
        EXPECT_FALSE(modChess.SelfCheckOK);
    };
    sheet.zReset();
    EXPECT_TRUE(shown);
}

TEST_F(SelfCheckSheetTest, APieceThatWasDroppedResetsTheSheetOfTheOpenPanel) {
    openWindows.add({"frmChessClient", this, [] {}});
    openWindows.add({"frmSelfCheck", &sheet, [] {}, &sheet});
    fill();
    resetSelfCheck();
    EXPECT_TRUE(isEmpty());
    EXPECT_FALSE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckSheetTest, WithoutThePanelNothingHoldsTheNextMoveBack) {
    SelfCheckSheet::unload();
    openWindows.add({"frmSelfCheck", &sheet, [] {}, &sheet});
    resetSelfCheck();
    EXPECT_TRUE(modChess.SelfCheckOK);
    modChess.SelfCheckOpen = true;
    openWindows.windows.clear();
    resetSelfCheck();
    EXPECT_TRUE(modChess.SelfCheckOK);
}
