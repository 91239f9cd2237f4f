// The options dialog: how it opens, its live boxes, OK, Cancel, and what it keeps.
#include "settings/OptionsWindowRig.h"

#include "platform/Spoken.h"
#include "settings/OptionChoices.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSet>
#include <QTabBar>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OptionsWindow : public OptionsWindowRig {
protected:
    bool ticked(const std::string& name) { return hand.part<QAbstractButton>(name).isChecked(); }
    std::string text(const std::string& name) { return hand.part<QLineEdit>(name).text().toStdString(); }
    int slip() { return hand.part<QComboBox>("cboSlip").currentIndex(); }

    // A window in the list, which writes down what it is told and what holds then.
    void stand(const char* className) {
        const std::string name = className;
        openWindows.add({.className = name,
                         .window = new int, // never dereferenced
                         .unload = [] {},
                         .takeTells = [this, name] { effects.push_back(name + " tells " + account.Tell[0]); },
                         .takeLook =
                             [this, name] {
                                 effects.push_back(name + " look " + std::to_string(modChess.ColorMain) + " " +
                                                   modChess.MainFont + " " + std::to_string(modChess.SoundOn) + " " +
                                                   std::to_string(modChess.AutoQueen) + " " +
                                                   std::to_string(modChess.SeekWhite));
                             }});
        stood.emplace_back(static_cast<const int*>(openWindows.windows.back().window));
    }

    // On no page.
    void expectNothingCut() {
        auto& pages = *hand.dialog().findChild<QTabWidget*>();
        for (int page = 0; page < pages.count(); ++page) {
            pages.setCurrentIndex(page);
            for (const auto* part : pages.currentWidget()->findChildren<QWidget*>()) {
                const bool worded = qobject_cast<const QAbstractButton*>(part) || qobject_cast<const QLabel*>(part) ||
                                    qobject_cast<const QComboBox*>(part);
                if (worded && part->isVisible()) {
                    EXPECT_GE(part->width(), part->sizeHint().width()) << part->objectName().toStdString();
                    EXPECT_GE(part->height(), part->sizeHint().height()) << part->objectName().toStdString();
                }
            }
        }
    }

    static QString bare(QString text) { return text.remove(u'&'); }
    static QString keyOf(const QString& text) {
        const auto mark = text.indexOf(u'&');
        return mark < 0 ? QString() : text.mid(mark + 1, 1).toLower();
    }

    std::vector<std::unique_ptr<const int>> stood;
};

} // namespace

// Opening

TEST_F(OptionsWindow, HasEveryControlWithItsCaption) {
    open();
    const std::vector<std::pair<const char*, const char*>> buttons{{"chkSounds", "Use Sounds"},
                                                                   {"chkMoves", "Moves"},
                                                                   {"optMoves(0)", "Ding"},
                                                                   {"optMoves(1)", "Clop"},
                                                                   {"chkGame", "Game Start / End"},
                                                                   {"optStart(0)", "Ding"},
                                                                   {"optStart(1)", "Clang"},
                                                                   {"chkTell", "Tell"},
                                                                   {"optTell(0)", "Ding"},
                                                                   {"optTell(1)", "Whistle"},
                                                                   {"chkArrival", "Arrival"},
                                                                   {"chkPreMove", "Pre-Move"},
                                                                   {"chkDrag", "Drag Mode"},
                                                                   {"chkQueen", "Always Promote to Queen"},
                                                                   {"chkSeekOff", "Seek Off During Games"},
                                                                   {"chkCnfResign", "Confirm Resign / Draw"},
                                                                   {"optSeekColors(0)", "Text Colors"},
                                                                   {"optSeekColors(1)", "White"}};
    for (const auto& [name, caption] : buttons) {
        EXPECT_EQ(bare(hand.part<QAbstractButton>(name).text()).toStdString(), caption) << name;
    }
    const std::vector<std::pair<const char*, const char*>> labels{
        {"lblMain", "Main Window"}, {"lblTellRec", "Tell Text"},  {"lblCopy", "Copy Text"},
        {"lblShout", "Shout Text"}, {"lblType", " Typing Bar"},   {"lblSlip", "Anti-Mouse Slip"},
        {"lblHandle", "Handle"},    {"lblPassword", "Password"},  {"lblICS_IP", "IP Address"},
        {"lblPort", "Port"},        {"lblWarn", "Warning below"}, {"lblSec", "sec"},
        {"lblTell(0)", "1"},        {"lblTell(9)", "10"}};
    for (const auto& [name, caption] : labels) {
        EXPECT_EQ(bare(hand.part<QLabel>(name).text()).toStdString(), caption) << name;
    }
    EXPECT_EQ(hand.part<QGroupBox>("fraTell").title(), QStringLiteral("Button Commands"));
    EXPECT_EQ(hand.part<QGroupBox>("fraSeekGraph").title(), QStringLiteral("Seek Graph"));
}

TEST_F(OptionsWindow, TheListOfDelaysHoldsTwelveItemsAndItsToolTip) {
    open();
    const auto& box = hand.part<QComboBox>("cboSlip");
    std::vector<std::string> items;
    for (int index = 0; index < box.count(); ++index) items.push_back(box.itemText(index).toStdString());
    EXPECT_THAT(items, ElementsAre("Inactive", "150 mSec", "200 mSec", "250 mSec", "300 mSec", "400 mSec", "500 mSec",
                                   "750 mSec", "1 Sec", "2 Sec", "5 Sec", "Infinite"));
    EXPECT_EQ(box.toolTip(), QStringLiteral("Mouse-up delay time for moves.  Defeated with right-click"));
}

TEST_F(OptionsWindow, EveryControlShowsWhatTheProgramHolds) {
    for (int index = 0; index <= 9; ++index) account.Tell[index] = "tell " + std::to_string(index);
    modChess.ServerIP = "10.1.2.3";
    modChess.ServerPort = 6001;
    modChess.WarnTime = 25;
    modChess.SoundOn = 0;
    modChess.SoundArrive = 0;
    modChess.PreMoveOK = 1;
    modChess.DragMode = 0;
    modChess.MouseSlip = 7;
    modChess.AutoQueen = 1;
    modChess.ConfirmResign = 0;
    modChess.SeekOff = 0;
    modChess.SeekWhite = 5;
    open();
    EXPECT_EQ(text("txtHandle"), "fred");
    EXPECT_EQ(text("txtPassword"), "secret");
    for (int index = 0; index <= 9; ++index) {
        EXPECT_EQ(text("txtTell(" + std::to_string(index) + ")"), account.Tell[index]);
    }
    EXPECT_EQ(text("txtICS_IP"), "10.1.2.3");
    EXPECT_EQ(text("txtPort"), "6001");
    EXPECT_EQ(text("txtWarn"), "25");
    for (const char* box : {"chkPreMove", "chkQueen", "optSeekColors(1)"}) EXPECT_TRUE(ticked(box)) << box;
    for (const char* box : {"chkSounds", "chkArrival", "chkDrag", "chkCnfResign", "chkSeekOff", "optSeekColors(0)"}) {
        EXPECT_FALSE(ticked(box)) << box;
    }
    EXPECT_EQ(slip(), 7);
}

TEST_F(OptionsWindow, ThePasswordIsNotReadableOverTheShoulder) {
    open();
    EXPECT_EQ(hand.part<QLineEdit>("txtPassword").echoMode(), QLineEdit::Password);
}

TEST_F(OptionsWindow, ASoundSwitchTicksItsBoxByBit0AndChoosesTheSecondSoundByBit1) {
    for (int value = 0; value <= 3; ++value) {
        modChess.SoundMove = modChess.SoundStart = modChess.SoundTell = static_cast<std::int16_t>(value);
        open();
        for (const auto& [box, options] :
             {std::pair{"chkMoves", "optMoves"}, {"chkGame", "optStart"}, {"chkTell", "optTell"}}) {
            EXPECT_EQ(ticked(box), value == 1 || value == 3) << box << value;
            EXPECT_EQ(ticked(std::string(options) + "(1)"), value >= 2) << box << value;
            EXPECT_EQ(ticked(std::string(options) + "(0)"), value < 2) << box << value;
        }
        hand.cancel();
    }
}

TEST_F(OptionsWindow, AValueThatATickBoxRefusesLeavesItAsDesigned) {
    for (const TickOption& option :
         {UseSounds, ArrivalSound, PreMoves, Dragging, AlwaysQueen, ConfirmResigning, SeekOffInGames}) {
        for (const int value : {-1, 2, 300}) {
            modChess.*option.held = static_cast<std::int16_t>(value);
            open();
            EXPECT_FALSE(ticked(option.name)) << option.name << value;
            hand.cancel();
            EXPECT_EQ(modChess.*option.held, value) << option.name;
        }
    }
}

TEST_F(OptionsWindow, ADelayThatTheListDoesNotHaveChoosesNoneAndOkLeavesIt) {
    for (const int value : {-1, -7, 12, 32767}) {
        modChess.MouseSlip = static_cast<std::int16_t>(value);
        open();
        EXPECT_EQ(slip(), -1);
        hand.ok();
        EXPECT_EQ(modChess.MouseSlip, value);
    }
}

TEST_F(OptionsWindow, TheDelayIsEnabledOnlyWhileDragModeIsAbove0) {
    for (const int value : {-1, 0, 1, 2}) {
        modChess.DragMode = static_cast<std::int16_t>(value);
        open();
        EXPECT_EQ(hand.part("cboSlip").isEnabled(), value > 0) << value;
        EXPECT_EQ(hand.part("lblSlip").isEnabled(), value > 0) << value;
        hand.cancel();
    }
}

TEST_F(OptionsWindow, TickingDragModeEnablesTheDelay) {
    open();
    for (const bool on : {false, true}) {
        hand.click("chkDrag");
        EXPECT_EQ(hand.part("cboSlip").isEnabled(), on);
        EXPECT_EQ(hand.part("lblSlip").isEnabled(), on);
    }
}

TEST_F(OptionsWindow, WithoutAnOlderFileOrAWrittenStoreItOpensAtTheCorner) {
    open();
    EXPECT_EQ(hand.dialog().pos(), QPoint(0, 0));
    EXPECT_THAT(values->keysRead, IsEmpty());
}

TEST_F(OptionsWindow, AWrittenStoreOrAnOlderFilePlacesIt) {
    QFile file(folder.filePath(QStringLiteral("options.def")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("300,600\r\n") > 0);
    file.close();
    open();
    EXPECT_EQ(hand.dialog().pos(), QPoint(20, 40));
    hand.cancel();
    stored("Left", "1500");
    stored("Top", "750");
    open();
    EXPECT_EQ(hand.dialog().pos(), QPoint(100, 50));
}

TEST_F(OptionsWindow, APositionBelow1OrBeyondTheScreenGivesTheCorner) {
    for (const auto& [left, top] : {std::pair{"0", "750"}, {"1500", "0"}, {"1500", "32000"}, {"x", "750"}}) {
        stored("Left", left);
        stored("Top", top);
        open();
        EXPECT_EQ(hand.dialog().pos(), QPoint(0, 0)) << left << " " << top;
        delete &hand.dialog();
    }
}

TEST_F(OptionsWindow, ThereIsOneAtMostWhichComesBackWhenAskedForAgain) {
    frmOptions& first = open();
    hand.type("txtHandle", "berta");
    first.showMinimized();
    EXPECT_EQ(&open(), &first);
    EXPECT_FALSE(first.isMinimized());
    EXPECT_EQ(openWindows.count("frmOptions"), 1);
    EXPECT_EQ(text("txtHandle"), "berta");
}

// Live boxes

TEST_F(OptionsWindow, TheAddressGoesIntoTheProgramWithEveryChange) {
    open();
    hand.type("txtICS_IP", "10.0");
    EXPECT_EQ(modChess.ServerIP, "10.0");
    QTest::keyClicks(&hand.part("txtICS_IP"), QStringLiteral(".0.7"));
    EXPECT_EQ(modChess.ServerIP, "10.0.0.7");
    hand.type("txtICS_IP", "");
    EXPECT_EQ(modChess.ServerIP, "");
}

TEST_F(OptionsWindow, ANewPortStaysWithCancel) {
    open();
    hand.type("txtPort", "6000");
    EXPECT_EQ(modChess.ServerPort, 6000);
    hand.cancel();
    EXPECT_EQ(modChess.ServerPort, 6000);
}

TEST_F(OptionsWindow, ThePortTakes32Bits) {
    open();
    hand.part<QLineEdit>("txtPort").setText(QStringLiteral("2147483647"));
    EXPECT_EQ(modChess.ServerPort, 2147483647);
    hand.part<QLineEdit>("txtPort").setText(QStringLiteral(" -5 "));
    EXPECT_EQ(modChess.ServerPort, -5);
}

TEST_F(OptionsWindow, TheWarningTakesTheNumericPrefixAndNothingInItFails) {
    open();
    for (const auto& [typed, seconds] : {std::pair{"45", 45}, {"7x", 7}, {"", 0}, {"soon", 0}, {"99999", 32767}}) {
        hand.type("txtWarn", typed);
        EXPECT_EQ(modChess.WarnTime, seconds) << typed;
    }
}

TEST_F(OptionsWindow, OpeningItChangesNothing) {
    modChess.WarnTime = -7;
    modChess.ServerPort = -1;
    modChess.ServerIP = " x ";
    const ModChess before = modChess;
    open();
    EXPECT_EQ(modChess.WarnTime, before.WarnTime);
    EXPECT_EQ(modChess.ServerPort, before.ServerPort);
    EXPECT_EQ(modChess.ServerIP, before.ServerIP);
}

// OK

TEST_F(OptionsWindow, OkTellsTheWindowsInItsOrder) {
    for (const char* name :
         {"frmSeek", "frmChessClient", "frmChessBoard", "frmHistory", "frmChessHelp", "frmChat", "frmChessBoard"})
        stand(name);
    modChess.MainFont = "Old";
    modChess.SeekWhite = 0;
    open();
    hand.type("txtTell(0)", "sought");
    hand.choose("cboDefaults", 1);
    hand.choose("cboDefaults", 5);
    hand.click("chkSounds");
    hand.click("chkQueen");
    hand.ok();
    const std::string look = " look 33023 Lucida COnsole 1 0 0";
    EXPECT_THAT(effects,
                ElementsAre("account", "frmChessBoard tells sought", "frmChessBoard tells sought",
                            "frmChessBoard" + look, "frmChessHelp" + look, "frmChat" + look, "frmChessBoard" + look,
                            "frmChessClient" + look, "frmSeek look 33023 Lucida COnsole 0 1 -1"));
}

TEST_F(OptionsWindow, OkWithoutAChangeChangesNothingTheSecondTime) {
    open();
    hand.ok();
    const ModChess before = modChess;
    const OptionsAccount accountBefore = account;
    open();
    hand.ok();
    EXPECT_EQ(consoleColors(),
              (ConsoleColors{before.ColorMain, before.ColorBackground, before.ColorBar, before.ColorTell,
                             before.ColorCopy, before.ColorType, before.ColorShout}));
    EXPECT_EQ(modChess.MainFont, before.MainFont);
    for (const auto field :
         {&ModChess::SoundOn, &ModChess::SoundMove, &ModChess::SoundArrive, &ModChess::SoundStart, &ModChess::SoundTell,
          &ModChess::PreMoveOK, &ModChess::AutoQueen, &ModChess::ConfirmResign, &ModChess::MouseSlip,
          &ModChess::SeekWhite, &ModChess::DragMode, &ModChess::SeekOff, &ModChess::WarnTime}) {
        EXPECT_EQ(modChess.*field, before.*field);
    }
    EXPECT_EQ(account.handle, accountBefore.handle);
    EXPECT_EQ(account.Tell, accountBefore.Tell);
}

TEST_F(OptionsWindow, OkAndCancelStoreThePlaceAloneAndUnload) {
    for (const char* button : {"cmdOK", "cmdCancel"}) {
        values->keysWritten.clear();
        open().move(40, 30);
        hand.click(button);
        EXPECT_THAT(values->keysWritten, ElementsAre("Left", "Top"));
        EXPECT_EQ(kept("Left"), "600");
        EXPECT_EQ(kept("Top"), "450");
        EXPECT_EQ(openWindows.count("frmOptions"), 0);
    }
}

TEST_F(OptionsWindow, EnterInABoxIsOkAndEscapeIsCancel) {
    open();
    hand.type("txtHandle", "berta");
    QTest::keyClick(&hand.part("txtHandle"), Qt::Key_Return);
    EXPECT_EQ(account.handle, "berta");
    EXPECT_EQ(openWindows.count("frmOptions"), 0);
    open();
    hand.type("txtHandle", "carla");
    QTest::keyClick(&hand.part("txtHandle"), Qt::Key_Escape);
    EXPECT_EQ(account.handle, "berta");
    EXPECT_EQ(openWindows.count("frmOptions"), 0);
}

TEST_F(OptionsWindow, ALineBreakThatWasPastedInIsTheBlankThatIsShown) {
    open();
    hand.part<QLineEdit>("txtTell(3)").setText(QStringLiteral("tell 4 hi\nresign"));
    hand.ok();
    EXPECT_EQ(account.Tell[3], "tell 4 hi resign");
}

TEST_F(OptionsWindow, OkLeavesEveryCharacterOfATextAsItWas) {
    std::string all;
    for (int code = 0; code <= 255; ++code) {
        if (code != '\r' && code != '\n') all += static_cast<char>(code);
    }
    all = "  " + all + "  ";
    account = {.handle = all, .password = all, .Tell = {}};
    account.Tell[9] = all;
    open();
    hand.ok();
    EXPECT_EQ(account.handle, all);
    EXPECT_EQ(account.password, all);
    EXPECT_EQ(account.Tell[9], all);
}

TEST_F(OptionsWindow, TheProgramsEndUnloadsItAsCancelDoes) {
    open();
    hand.type("txtHandle", "berta");
    openWindows.unload("frmOptions");
    EXPECT_EQ(account.handle, "fred");
    EXPECT_EQ(kept("Left"), "0");
    EXPECT_THAT(openWindows.windows, IsEmpty());
}

TEST_F(OptionsWindow, AMinimisedOneIsSetBackToNormalBeforeItStoresItsPlace) {
    frmOptions& dialog = open();
    dialog.showMinimized();
    dialog.close();
    EXPECT_FALSE(dialog.isMinimized());
}

TEST_F(OptionsWindow, DeletesItselfAfterClosing) {
    const QPointer<frmOptions> dialog(&open());
    hand.cancel();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);
}

// Keyboard and assistive tools

TEST_F(OptionsWindow, EachPageIsReachedByALetterAndEveryKeyOfAPageIsItsOwn) {
    open();
    auto& pages = *hand.dialog().findChild<QTabWidget*>();
    ASSERT_EQ(pages.count(), 5);
    for (int page = 0; page < pages.count(); ++page) {
        QStringList keys;
        for (int tab = 0; tab < pages.count(); ++tab) keys << keyOf(pages.tabText(tab));
        for (const auto* button : pages.widget(page)->findChildren<QAbstractButton*>()) keys << keyOf(button->text());
        for (const auto* label : pages.widget(page)->findChildren<QLabel*>()) {
            if (label->buddy()) keys << keyOf(label->text());
        }
        EXPECT_FALSE(keys.contains(QString())) << "page " << page;
        EXPECT_EQ(QSet<QString>(keys.begin(), keys.end()).size(), keys.size()) << keys.join(u' ').toStdString();
    }
}

TEST_F(OptionsWindow, TabLeadsThroughEachPageFromItsFirstControlToOkAndCancel) {
    const std::vector<std::vector<std::string>> orders{
        {"txtHandle", "txtPassword", "txtICS_IP", "txtPort"},
        {"txtTell(0)", "txtTell(1)", "txtTell(2)", "txtTell(3)", "txtTell(4)", "txtTell(5)", "txtTell(6)", "txtTell(7)",
         "txtTell(8)", "txtTell(9)"},
        {"chkSounds", "chkMoves", "optMoves(0)", "optMoves(1)", "chkGame", "optStart(0)", "optStart(1)", "chkTell",
         "optTell(0)", "optTell(1)", "chkArrival"},
        {"chkPreMove", "chkDrag", "cboSlip", "chkQueen", "chkCnfResign", "txtWarn", "chkSeekOff"},
        {"cmdMain", "cmdTell", "cmdCopy", "cmdShout", "cmdBkGn", "cmdType", "cmdBar", "cboDefaults", "optSeekColors(0)",
         "optSeekColors(1)", "cmdBoard"}};
    open();
    auto& pages = *hand.dialog().findChild<QTabWidget*>();
    for (int page = 0; page < pages.count(); ++page) {
        pages.setCurrentIndex(page);
        pages.tabBar()->setFocus();
        std::vector<std::string> expected = orders[static_cast<std::size_t>(page)];
        expected.insert(expected.end(), {"cmdOK", "cmdCancel"});
        std::vector<std::string> walked;
        for (std::size_t step = 0; step < expected.size(); ++step) {
            QTest::keyClick(hand.dialog().focusWidget(), Qt::Key_Tab);
            walked.push_back(hand.dialog().focusWidget()->objectName().toStdString());
        }
        EXPECT_EQ(walked, expected) << "page " << page;
    }
}

TEST_F(OptionsWindow, EveryControlHasANameForAssistiveTools) {
    open();
    QStringList radios;
    for (auto* control : hand.dialog().findChildren<QWidget*>()) {
        const bool used = qobject_cast<QAbstractButton*>(control) || qobject_cast<QComboBox*>(control) ||
                          (qobject_cast<QLineEdit*>(control) && !control->objectName().startsWith(u"qt_"));
        if (!used || control->objectName().isEmpty() || control->objectName().startsWith(u"Scroll")) continue;
        EXPECT_FALSE(spokenText(*control, QAccessible::Name).isEmpty()) << control->objectName().toStdString();
        if (control->inherits("QRadioButton")) radios << spokenText(*control, QAccessible::Name);
    }
    EXPECT_EQ(radios.size(), 8);
    EXPECT_EQ(QSet<QString>(radios.begin(), radios.end()).size(), 8) << "three of them are captioned Ding";
}

TEST_F(OptionsWindow, ThePreviewTellsItsColours) {
    modChess.ColorMain = 0x0080FF;
    modChess.ColorBackground = 0x030201;
    open();
    EXPECT_EQ(spokenText(hand.part("lblMain"), QAccessible::Name), QStringLiteral("Main Window"));
    EXPECT_EQ(spokenText(hand.part("lblMain"), QAccessible::Description), QStringLiteral("red 255, green 128, blue 0"));
    EXPECT_EQ(spokenText(hand.part("picMain"), QAccessible::Description), QStringLiteral("red 1, green 2, blue 3"));
}

TEST_F(OptionsWindow, FitsAScreenOf1024By600WithLettersOf8To20Points) {
    const QFont before = QApplication::font();
    for (const int points : {8, 11, 14, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        open();
        EXPECT_LE(hand.dialog().width(), 1014) << points;
        EXPECT_LE(hand.dialog().height(), 565) << points << ", a title bar aside";
        expectNothingCut();
        delete &hand.dialog();
    }
    QApplication::setFont(before);
}
