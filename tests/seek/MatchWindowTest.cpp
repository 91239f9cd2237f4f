// The match dialog: how it opens, its two guises, its buttons, and what it keeps.
#include "seek/frmMatch.h"

#include "common/modChess.h"
#include "platform/OpenWindows.h"
#include "platform/Spoken.h"
#include "settings/MemoryStore.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class MatchWindow : public testing::Test {
protected:
    MatchWindow() {
        modChess = {};
        openWindows.windows.clear();
        QDir::setCurrent(folder.path());
    }
    ~MatchWindow() override {
        delete dialog.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir::setCurrent(startFolder);
        modChess = {};
        openWindows.windows.clear();
    }

    frmMatch& open(bool matchMode) {
        modChess.MatchMode = matchMode;
        dialog = &frmMatch::showIt(roads);
        return *dialog;
    }
    // The store has been written, with these texts in the section, by the order of its keys.
    void stored(const std::vector<std::string>& texts) {
        modChess.RegistryState = "Yes";
        const std::vector<std::string> keys{"Left",    "Top",     "Time",  "Increment", "Rated", "Server_Settings",
                                            "Minimum", "Maximum", "Color", "Type"};
        for (std::size_t index = 0; index < texts.size(); ++index) {
            values->texts[{"Match", keys[index]}] = texts[index];
        }
    }
    std::string kept(const char* key) const {
        const auto found = values->texts.find({"Match", key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }
    bool olderFile(const char* text) {
        QFile file(folder.filePath(QStringLiteral("match.def")));
        return file.open(QIODevice::WriteOnly) && file.write(text) > 0;
    }
    template <typename Control = QWidget>
    Control& part(const char* name) const {
        return *dialog->findChild<Control*>(QString::fromLatin1(name));
    }
    std::string text(const char* name) const { return part<QLineEdit>(name).text().toStdString(); }
    void type(const char* name, const char* text) { part<QLineEdit>(name).setText(QString::fromLatin1(text)); }
    void choose(const char* name, int index) { part<QComboBox>(name).setCurrentIndex(index); }
    bool ticked(const char* name) const { return part<QAbstractButton>(name).isChecked(); }
    void press(const char* name) { part<QAbstractButton>(name).click(); }
    int topOf(const char* name) const { return part(name).mapTo(dialog.data(), QPoint()).y(); }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    MatchRoads roads{
        .store = memoryStore(values),
        .zSendMsg = [this](const std::string& line) { sent.push_back(line); },
    };
    QPointer<frmMatch> dialog;
    std::vector<std::string> sent;
    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
};

} // namespace

// Opening

TEST_F(MatchWindow, WithNothingToReadTheDesignedValuesStay) {
    modChess.LastOpponent = "fred";
    open(true);
    EXPECT_EQ(text("txtTime"), "2");
    EXPECT_EQ(text("txtInc"), "12");
    EXPECT_EQ(text("txtMin"), "0");
    EXPECT_EQ(text("txtMax"), "9999");
    EXPECT_EQ(text("txtOpp"), "");
    EXPECT_TRUE(ticked("chkRated"));
    EXPECT_FALSE(ticked("chkServer"));
    EXPECT_EQ(dialog->challenge().cboColor.text, "Auto Color");
    EXPECT_EQ(dialog->challenge().cboColor.index, -1);
    EXPECT_EQ(dialog->challenge().cboType.text, "Normal");
    EXPECT_EQ(dialog->challenge().cboType.index, -1);
    EXPECT_THAT(values->keysRead, IsEmpty());
}

TEST_F(MatchWindow, TheListsHoldTheirItemsInOrder) {
    open(true);
    EXPECT_EQ(part<QComboBox>("cboColor").count(), 3);
    EXPECT_EQ(part<QComboBox>("cboType").count(), 17);
    EXPECT_EQ(part<QComboBox>("cboColor").itemText(2), QStringLiteral("Black"));
    EXPECT_EQ(part<QComboBox>("cboType").itemText(0), QStringLiteral("Normal Chess"));
    EXPECT_EQ(part<QComboBox>("cboType").itemText(5), QStringLiteral("Atomic"));
    EXPECT_EQ(part<QComboBox>("cboType").itemText(6), QStringLiteral("Wild 0"));
    EXPECT_EQ(part<QComboBox>("cboType").itemText(16), QStringLiteral("Wild fr"));
}

TEST_F(MatchWindow, AWrittenStoreFillsEveryControl) {
    stored({"1500", "750", "5", "8", "0", "1", "1200", "1900", "2", "16"});
    modChess.LastOpponent = "fr\xE9"
                            "d";
    open(true);
    EXPECT_EQ(text("txtTime"), "5");
    EXPECT_EQ(text("txtInc"), "8");
    EXPECT_EQ(text("txtMin"), "1200");
    EXPECT_EQ(text("txtMax"), "1900");
    EXPECT_FALSE(ticked("chkRated"));
    EXPECT_TRUE(ticked("chkServer"));
    EXPECT_EQ(part<QComboBox>("cboColor").currentIndex(), 2);
    EXPECT_EQ(part<QComboBox>("cboType").currentIndex(), 16);
    EXPECT_EQ(dialog->challenge().txtOpp, modChess.LastOpponent);
    EXPECT_EQ(dialog->pos(), QPoint(100, 50));
}

TEST_F(MatchWindow, BeforeItsFirstSaveInAWrittenStoreEverythingIsZeroAndTheFirstItem) {
    stored({});
    open(false);
    for (const char* box : {"txtTime", "txtInc", "txtMin", "txtMax"}) EXPECT_EQ(text(box), "0") << box;
    EXPECT_FALSE(ticked("chkRated"));
    EXPECT_EQ(part<QComboBox>("cboColor").currentIndex(), 0);
    EXPECT_EQ(part<QComboBox>("cboType").currentIndex(), 0);
    EXPECT_THAT(values->keysRead, ElementsAre("Left", "Top", "Time"));
    press("cmdOK");
    EXPECT_THAT(sent, ElementsAre("Seek 0 0 u 0-0"));
}

TEST_F(MatchWindow, TheFirstKeyThatFailsEndsTheReadingAndTheRestIsZero) {
    stored({"1500", "750", "5", "8", "yes", "1", "1200", "1900", "2", "16"});
    open(false);
    EXPECT_EQ(text("txtTime"), "5");
    EXPECT_EQ(text("txtInc"), "8");
    EXPECT_FALSE(ticked("chkRated"));
    EXPECT_FALSE(ticked("chkServer"));
    EXPECT_EQ(text("txtMax"), "0");
    EXPECT_EQ(part<QComboBox>("cboType").currentIndex(), 0);
}

TEST_F(MatchWindow, BeforeTheFirstExitTheOlderFileFillsTheControlsButTheType) {
    ASSERT_TRUE(olderFile("1500,750,5,8,1,0,1200,1900,1\r\n"));
    modChess.LastOpponent = "fred";
    open(true);
    EXPECT_EQ(text("txtTime"), "5");
    EXPECT_EQ(text("txtMax"), "1900");
    EXPECT_EQ(text("txtOpp"), "fred");
    EXPECT_EQ(part<QComboBox>("cboColor").currentIndex(), 1);
    EXPECT_EQ(part<QComboBox>("cboType").currentIndex(), 0);
    EXPECT_EQ(dialog->pos(), QPoint(100, 50));
}

TEST_F(MatchWindow, AStoredIndexThatTheListDoesNotHaveChoosesNoItem) {
    stored({"1500", "750", "5", "8", "1", "0", "0", "9999", "7", "-3"});
    open(false);
    press("cmdOK");
    EXPECT_THAT(sent, ElementsAre("Seek 5 8 Normal r Auto Color 0-9999"));
}

TEST_F(MatchWindow, ASavedPositionBelow1OrBeyondTheScreenGivesTheCorner) {
    const std::vector<std::pair<std::string, std::string>> places{{"0", "750"}, {"1500", "0"}, {"1500", "32000"}};
    for (const auto& [left, top] : places) {
        stored({left, top});
        open(true);
        EXPECT_EQ(dialog->pos(), QPoint(0, 0)) << left << " " << top;
        delete dialog.data();
    }
}

// The two guises

TEST_F(MatchWindow, AMatchHasAnOpponentAndNoRating) {
    open(true);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Match"));
    EXPECT_TRUE(part("lblOpp").isVisible());
    EXPECT_TRUE(part("txtOpp").isVisible());
    EXPECT_FALSE(part("fraRating").isVisible());
}

TEST_F(MatchWindow, ASeekHasARatingAndNoOpponent) {
    open(false);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Seek"));
    EXPECT_FALSE(part("lblOpp").isVisible());
    EXPECT_FALSE(part("txtOpp").isVisible());
    EXPECT_TRUE(part("fraRating").isVisible());
}

TEST_F(MatchWindow, ASeekIs24PixelsLowerAndItsFramesStandThatMuchHigher) {
    open(true);
    const int height = dialog->height();
    const int timing = topOf("fraTiming");
    const int settings = topOf("fraSettings");
    delete dialog.data();
    open(false);
    EXPECT_EQ(dialog->height(), height - 360 / 15);
    EXPECT_EQ(topOf("fraTiming"), timing - 360 / 15);
    EXPECT_EQ(topOf("fraRating"), timing - 360 / 15);
    EXPECT_EQ(topOf("fraSettings"), settings - 360 / 15);
}

TEST_F(MatchWindow, TheOpponentStandsClearOfTheFrameBelow) {
    open(true);
    EXPECT_GE(topOf("fraTiming") - topOf("txtOpp") - part("txtOpp").height(), 6);
}

TEST_F(MatchWindow, TheFirstBoxHasTheFocusAndTypingReplacesItsText) {
    stored({"1500", "750", "5", "8", "1", "0", "0", "9999", "0", "0"});
    modChess.LastOpponent = "fred";
    open(true);
    QTest::keyClicks(dialog->focusWidget(), QStringLiteral("berta"));
    EXPECT_EQ(text("txtOpp"), "berta");
    open(false);
    QTest::keyClicks(dialog->focusWidget(), QStringLiteral("3"));
    EXPECT_EQ(text("txtTime"), "3");
}

TEST_F(MatchWindow, AskedForInTheOtherGuiseTheOpenDialogTakesItAndKeepsItsTexts) {
    open(false);
    type("txtTime", "7");
    const frmMatch* first = dialog;
    const int height = dialog->height();
    EXPECT_EQ(&open(true), first);
    EXPECT_EQ(openWindows.count("frmMatch"), 1);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Match"));
    EXPECT_TRUE(part("txtOpp").isVisible());
    EXPECT_EQ(dialog->height(), height + 24);
    EXPECT_EQ(text("txtTime"), "7");
}

TEST_F(MatchWindow, AskedForWhileMinimisedTheOpenDialogComesBack) {
    open(false).showMinimized();
    ASSERT_TRUE(dialog->isMinimized());
    EXPECT_FALSE(open(true).isMinimized());
}

TEST_F(MatchWindow, MatchModeIsLeftAsItWasSet) {
    open(true);
    press("cmdOK");
    EXPECT_TRUE(modChess.MatchMode);
    open(false);
    press("cmdCancel");
    EXPECT_FALSE(modChess.MatchMode);
}

// Use Server Setting

TEST_F(MatchWindow, TheServersSettingDisablesAllButTheType) {
    open(false);
    EXPECT_EQ(part<QAbstractButton>("chkServer").text().remove(u'&'), QStringLiteral("Use Server Setting"));
    const std::vector<const char*> controls{"lblTime", "lblInc", "txtTime",  "txtInc",
                                            "txtMax",  "txtMin", "cboColor", "chkRated"};
    press("chkServer");
    for (const char* name : controls) EXPECT_FALSE(part(name).isEnabled()) << name;
    EXPECT_TRUE(part("cboType").isEnabled());
    press("chkServer");
    for (const char* name : controls) EXPECT_TRUE(part(name).isEnabled()) << name;
}

TEST_F(MatchWindow, AStoredTickDisablesThemFromTheStart) {
    stored({"1500", "750", "5", "8", "1", "1", "0", "9999", "0", "0"});
    open(false);
    EXPECT_FALSE(part("txtTime").isEnabled());
}

// OK

TEST_F(MatchWindow, OkSendsTheChallengeAndUnloads) {
    open(true);
    type("txtOpp", "fred");
    type("txtTime", "5");
    type("txtInc", "0");
    choose("cboColor", 1);
    choose("cboType", 1);
    press("chkRated");
    press("cmdOK");
    EXPECT_THAT(sent, ElementsAre("Match fred 5 0 Crazyhouse u White "));
    EXPECT_EQ(openWindows.count("frmMatch"), 0);
}

TEST_F(MatchWindow, OkSendsTheSeekAndUnloads) {
    open(false);
    type("txtTime", "3");
    type("txtInc", "0");
    choose("cboColor", 0);
    choose("cboType", 0);
    press("cmdOK");
    EXPECT_THAT(sent, ElementsAre("Seek 3 0 r 0-9999"));
    EXPECT_EQ(openWindows.count("frmMatch"), 0);
}

TEST_F(MatchWindow, EnterInABoxIsOk) {
    open(true);
    type("txtOpp", "fred");
    press("chkServer");
    QTest::keyClick(&part("txtOpp"), Qt::Key_Return);
    EXPECT_THAT(sent, ElementsAre("Match fred "));
}

TEST_F(MatchWindow, ALineBreakThatWasPastedInGoesOutAsTheBlankThatIsShown) {
    open(true);
    type("txtOpp", "fred\nresign");
    type("txtTime", "5\n");
    type("txtInc", "0\r\n");
    press("cmdOK");
    EXPECT_THAT(sent, ElementsAre("Match fred resign 5 0 Normal r Auto Color "));
    EXPECT_EQ(modChess.LastOpponent, "fred resign");
}

TEST_F(MatchWindow, TheHeadFollowsMatchModeAsItStandsAtOk) {
    open(true);
    press("chkServer");
    modChess.MatchMode = false;
    press("cmdOK");
    EXPECT_THAT(sent, ElementsAre("Seek "));
}

TEST_F(MatchWindow, OkKeepsTheEightValuesThePlaceAndTheOpponent) {
    stored({"1500", "750", "5", "8", "1", "0", "0", "9999", "0", "0"});
    open(true);
    type("txtOpp", " fred ");
    type("txtTime", "3");
    type("txtInc", "12");
    type("txtMin", "1500");
    type("txtMax", "1800");
    choose("cboColor", 2);
    choose("cboType", 16);
    press("chkRated");
    press("chkServer");
    dialog->move(40, 30);
    press("cmdOK");
    std::vector<std::string> texts;
    for (const char* key :
         {"Left", "Top", "Time", "Increment", "Rated", "Server_Settings", "Minimum", "Maximum", "Color", "Type"}) {
        texts.push_back(kept(key));
    }
    EXPECT_THAT(texts, ElementsAre("600", "450", "3", "12", "0", "1", "1500", "1800", "2", "16"));
    EXPECT_EQ(modChess.LastOpponent, " fred ");
}

// Cancel and the other ends

TEST_F(MatchWindow, CancelSendsNothingKeepsTheOldValuesAndTheChangedOpponent) {
    stored({"1500", "750", "5", "8", "1", "0", "0", "9999", "0", "0"});
    open(true);
    type("txtTime", "99");
    type("txtOpp", "berta");
    press("cmdCancel");
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(kept("Time"), "5");
    EXPECT_EQ(kept("Maximum"), "9999");
    EXPECT_EQ(modChess.LastOpponent, "berta");
    EXPECT_EQ(openWindows.count("frmMatch"), 0);
}

TEST_F(MatchWindow, CancelOverAnEmptyBoxIsNoFault) {
    open(true);
    type("txtTime", "");
    EXPECT_NO_THROW(press("cmdCancel"));
    EXPECT_EQ(kept("Time"), "0") << "nothing had been read";
}

TEST_F(MatchWindow, EscapeAndTheCloseDownUnloadItAsCancelDoes) {
    open(true);
    type("txtOpp", "a");
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(modChess.LastOpponent, "a");
    open(true);
    type("txtOpp", "b");
    openWindows.unload("frmMatch");
    EXPECT_EQ(modChess.LastOpponent, "b");
    EXPECT_EQ(kept("Left"), "0");
    EXPECT_THAT(openWindows.windows, IsEmpty());
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(MatchWindow, AChangedOpponentIsOfferedAgain) {
    stored({"1500", "750", "5", "8", "1", "0", "0", "9999", "0", "0"});
    open(true);
    type("txtOpp", "berta");
    press("cmdCancel");
    open(true);
    EXPECT_EQ(text("txtOpp"), "berta");
}

TEST_F(MatchWindow, DeletesItselfAfterClosing) {
    open(true).close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);
}

TEST_F(MatchWindow, EveryControlHasANameForAssistiveTools) {
    open(true);
    for (const char* name : {"txtOpp", "txtTime", "txtInc", "txtMin", "txtMax", "cboColor", "cboType"}) {
        EXPECT_FALSE(part(name).accessibleName().isEmpty()) << name;
    }
}

// Assistive tools

TEST_F(MatchWindow, AListWithNoItemChosenSaysTheTextItShows) {
    open(true);
    auto& color = part<QComboBox>("cboColor");
    EXPECT_EQ(spokenText(color, QAccessible::Name), QStringLiteral("Color"));
    EXPECT_EQ(spokenText(color, QAccessible::Description), QStringLiteral("Color: Auto Color"));
    color.setCurrentIndex(2);
    EXPECT_EQ(spokenText(color, QAccessible::Value), QStringLiteral("Black"));
    EXPECT_EQ(spokenText(color, QAccessible::Description), QStringLiteral("Color"));
    EXPECT_EQ(spokenText(part<QComboBox>("cboType"), QAccessible::Name), QStringLiteral("Type"));
    EXPECT_EQ(spokenText(part<QComboBox>("cboType"), QAccessible::Description), QStringLiteral("Type: Normal"));
}
