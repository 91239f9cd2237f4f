// The delay that is chosen in the options dialog, as a board waits it.
#include "board/MouseWindowRig.h"
#include "settings/OptionsHand.h"

namespace {

class OptionsSlip : public MouseWindowRig {
protected:
    ~OptionsSlip() override { delete loadedWindow<frmOptions>(); }

    void chooseSlip(int index) {
        frmOptions::showIt(options);
        hand.choose("cboSlip", index);
        hand.ok();
    }

    OptionsHand hand;
    OptionsRoads options{
        .store = memoryStore(values),
        .account = [] { return OptionsAccount{}; },
        .takeAccount = [](const OptionsAccount&) {},
        .testWave = [](std::string_view) {},
        .testBeep = [] {},
        .showBoardColors = [](QPoint) {},
    };
};

} // namespace

TEST_F(OptionsSlip, EachDelayHoldsTheMoveAsLongAsItsRowSays) {
    constexpr std::array Delays{0, 165, 220, 275, 330, 440, 550, 770, 1045, 2035, 5000, 60000};
    for (int index = 0; index < static_cast<int>(Delays.size()); ++index) {
        sent.clear();
        chooseSlip(index);
        frmChessBoard& board = openMine();
        drag(board, "e2", "e4");
        const auto& timer = part<QTimer>(board, "tmrSlip");
        if (index == 0) {
            EXPECT_EQ(sent, std::vector<std::string>{"e2-e4"});
            EXPECT_FALSE(timer.isActive());
        } else {
            EXPECT_TRUE(sent.empty()) << index;
            EXPECT_TRUE(timer.isActive()) << index;
            EXPECT_EQ(timer.interval(), Delays[static_cast<std::size_t>(index)]) << index;
        }
        delete &board;
    }
}

TEST_F(OptionsSlip, WithDragModeUntickedTwoClicksPlayTheMove) {
    frmOptions::showIt(options);
    hand.click("chkDrag");
    hand.ok();
    frmChessBoard& board = openMine();
    press(board, "e2");
    release(board, "e2");
    EXPECT_TRUE(sent.empty());
    carry(board, "e2", "e4", Qt::NoButton);
    press(board, "e4");
    EXPECT_EQ(sent, std::vector<std::string>{"e2-e4"});
}
