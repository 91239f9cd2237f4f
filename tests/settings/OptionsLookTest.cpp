// The options dialog's preview: the seven colour buttons, the schemes and the fonts.
#include "settings/OptionsWindowRig.h"

#include "settings/OptionChoices.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QLabel>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::array Labels{"lblMain", "lblTellRec", "lblCopy", "lblShout", "lblType"};

class OptionsLook : public OptionsWindowRig {
protected:
    // What the preview shows.
    ConsoleColors preview() {
        return {.Main = hand.textColor("lblMain"),
                .Background = hand.ground("picMain"),
                .Bar = hand.ground("lblType"),
                .Tell = hand.textColor("lblTellRec"),
                .Copy = hand.textColor("lblCopy"),
                .Type = hand.textColor("lblType"),
                .Shout = hand.textColor("lblShout")};
    }
    void expectFont(const std::string& name) {
        for (const char* label : Labels) EXPECT_EQ(hand.fontName(label), name) << label;
    }
    bool white() { return hand.part<QAbstractButton>("optSeekColors(1)").isChecked(); }
};

const ConsoleColors Own{0x101010, 0x202020, 0x303030, 0x404040, 0x505050, 0x606060, 0x707070};

} // namespace

// Colours

TEST_F(OptionsLook, ThePreviewOpensWithTheColoursOfTheProgram) {
    setConsoleColors(Own);
    open();
    EXPECT_EQ(preview(), Own);
}

TEST_F(OptionsLook, EachButtonSetsItsOwnColourFromTheOneThatStands) {
    const std::vector<std::pair<const char*, std::int32_t ConsoleColors::*>> buttons{
        {"cmdBkGn", &ConsoleColors::Background}, {"cmdBar", &ConsoleColors::Bar},   {"cmdMain", &ConsoleColors::Main},
        {"cmdTell", &ConsoleColors::Tell},       {"cmdCopy", &ConsoleColors::Copy}, {"cmdType", &ConsoleColors::Type},
        {"cmdShout", &ConsoleColors::Shout}};
    for (const auto& [button, color] : buttons) {
        setConsoleColors(Own);
        proposals.clear();
        choice = 0xABCDEF;
        open();
        hand.click(button);
        ConsoleColors expected = Own;
        expected.*color = 0xABCDEF;
        EXPECT_EQ(preview(), expected) << button;
        EXPECT_THAT(proposals, ElementsAre(Own.*color)) << button;
        EXPECT_EQ(consoleColors(), Own) << "before OK";
        hand.ok();
        EXPECT_EQ(consoleColors(), expected) << button;
    }
}

TEST_F(OptionsLook, CancelInTheColourDialogLeavesTheColour) {
    setConsoleColors(Own);
    choice = std::nullopt;
    open();
    hand.click("cmdMain");
    hand.click("cmdBkGn");
    EXPECT_EQ(preview(), Own);
    EXPECT_EQ(proposals.size(), 2U);
}

TEST_F(OptionsLook, ADialogThatGoesWhileAColourIsChosenTakesNoColour) {
    setConsoleColors(Own);
    choice = 0xABCDEF;
    whileChoosing = [] { delete loadedWindow<frmOptions>(); };
    open();
    auto* button = &hand.shown<QAbstractButton>("cmdTell");
    button->click();
    EXPECT_EQ(loadedWindow<frmOptions>(), nullptr);
    EXPECT_EQ(consoleColors(), Own);
}

TEST_F(OptionsLook, TheBoardColoursAreShownAtTheDialogsCorner) {
    open().move(70, 35);
    hand.click("cmdBoard");
    EXPECT_THAT(boardColors, ElementsAre(QPoint(70, 35)));
    EXPECT_EQ(openWindows.count("frmOptions"), 1);
}

// Schemes

TEST_F(OptionsLook, TheListOfDefaultsHoldsSixItemsAndItsToolTip) {
    open();
    const auto& box = hand.part<QComboBox>("cboDefaults");
    std::vector<std::string> items;
    for (int index = 0; index < box.count(); ++index) items.push_back(box.itemText(index).toStdString());
    EXPECT_THAT(items, ElementsAre("Defaults", "Black", "Pastel", "White", "FixedSys", "Lucida"));
    EXPECT_EQ(box.currentIndex(), 0);
    EXPECT_EQ(box.toolTip(), QStringLiteral("Allows changing to standard color and font schemes "));
    EXPECT_EQ(box.accessibleName(), QStringLiteral("Defaults"));
}

TEST_F(OptionsLook, EachColourSchemeSetsThePreviewAndTheGraphAndOkTheProgram) {
    for (int index = 1; index <= 3; ++index) {
        const ColorScheme& scheme = colorSchemes[static_cast<std::size_t>(index - 1)];
        setConsoleColors(Own);
        modChess.MainFont = "Mine";
        modChess.SeekWhite = scheme.whiteGraph ? 0 : -1;
        open();
        hand.choose("cboDefaults", index);
        EXPECT_EQ(preview(), scheme.colors) << scheme.name;
        EXPECT_EQ(white(), scheme.whiteGraph) << scheme.name;
        expectFont("Mine");
        EXPECT_EQ(consoleColors(), Own) << "before OK";
        hand.ok();
        EXPECT_EQ(consoleColors(), scheme.colors) << scheme.name;
        EXPECT_EQ(modChess.SeekWhite, scheme.whiteGraph ? -1 : 0) << scheme.name;
    }
}

TEST_F(OptionsLook, EachFontSchemeSetsTheFontOfAllLabelsAndLeavesTheColours) {
    for (const auto& [index, name] : {std::pair{4, "Fixedsys"}, {5, "Lucida COnsole"}}) {
        setConsoleColors(Own);
        modChess.MainFont = "Mine";
        modChess.SeekWhite = -1;
        open();
        hand.choose("cboDefaults", index);
        expectFont(name);
        EXPECT_EQ(preview(), Own);
        EXPECT_TRUE(white());
        EXPECT_EQ(modChess.MainFont, "Mine") << "before OK";
        hand.ok();
        EXPECT_EQ(modChess.MainFont, name);
    }
}

TEST_F(OptionsLook, TheFirstItemDoesNothing) {
    open();
    hand.choose("cboDefaults", 2);
    choice = 0xABCDEF;
    hand.click("cmdTell");
    const ConsoleColors before = preview();
    hand.choose("cboDefaults", 0);
    EXPECT_EQ(preview(), before);
}

TEST_F(OptionsLook, TheSameSchemeChosenAgainUndoesAColourSetByHand) {
    open();
    hand.choose("cboDefaults", 1);
    choice = 0xABCDEF;
    hand.click("cmdTell");
    hand.choose("cboDefaults", 1);
    EXPECT_EQ(preview(), colorSchemes[0].colors);
}

TEST_F(OptionsLook, ASchemeAndThenCancelChangesNothing) {
    setConsoleColors(Own);
    modChess.SeekWhite = 0;
    modChess.MainFont = "Mine";
    open();
    hand.choose("cboDefaults", 1);
    hand.choose("cboDefaults", 4);
    hand.cancel();
    EXPECT_EQ(consoleColors(), Own);
    EXPECT_EQ(modChess.SeekWhite, 0);
    EXPECT_EQ(modChess.MainFont, "Mine");
    EXPECT_THAT(effects, IsEmpty());
}

TEST_F(OptionsLook, NoSchemeTouchesSoundsOrMoves) {
    const std::vector<std::int16_t ModChess::*> fields{
        &ModChess::SoundOn,   &ModChess::SoundMove, &ModChess::SoundArrive, &ModChess::SoundStart,
        &ModChess::SoundTell, &ModChess::PreMoveOK, &ModChess::DragMode,    &ModChess::ConfirmResign,
        &ModChess::MouseSlip, &ModChess::AutoQueen, &ModChess::SeekOff};
    std::int16_t flip = 0;
    for (const auto field : fields) modChess.*field = flip = static_cast<std::int16_t>(1 - flip);
    const ModChess before = modChess;
    open();
    for (int index = 0; index <= 5; ++index) hand.choose("cboDefaults", index);
    hand.ok();
    for (const auto field : fields) EXPECT_EQ(modChess.*field, before.*field);
    EXPECT_THAT(sounds, IsEmpty());
}

// Fonts

TEST_F(OptionsLook, WithAnEmptyFontTheLabelsKeepFixedsysAndOkStoresThatName) {
    ASSERT_EQ(modChess.MainFont, "");
    open();
    expectFont("Fixedsys");
    hand.ok();
    EXPECT_EQ(modChess.MainFont, "Fixedsys");
}

TEST_F(OptionsLook, AFontThatTheMachineDoesNotHaveIsShownInAFixedWidthOneAndKeepsItsName) {
    modChess.MainFont = "No Such Font 7";
    open();
    for (const char* label : Labels) {
        const QFontMetrics letters(hand.part(label).font());
        EXPECT_EQ(letters.horizontalAdvance(u'i'), letters.horizontalAdvance(u'W')) << label;
    }
    hand.ok();
    EXPECT_EQ(modChess.MainFont, "No Such Font 7");
}
