// The dialog for the colours of the boards: its sample, its buttons, and what it does to the boards that are open.
#include "view/frmBoardColors.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/Colors.h"
#include "platform/OpenWindows.h"
#include "platform/Spoken.h"
#include "platform/WaitUntil.h"
#include "view/BoardGeometry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

// Boards that only count their repaints stand in the list of windows.
class ColorDialog : public testing::Test {
protected:
    ColorDialog() {
        modChess = {};
        openWindows.windows.clear();
        boxes.colour = [this](QWidget*, std::int32_t start) {
            proposal = start;
            if (whileChoosing) whileChoosing();
            return choice;
        };
    }
    ~ColorDialog() override {
        delete dialog.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const int list : {0, 1}) imlPieces.removeAdded(list);
        boxes = Boxes();
        modChess = {};
        openWindows.windows.clear();
    }

    frmBoardColors& open() {
        frmBoardColors::showAt({30, 40});
        dialog = &frmBoardColors::loaded();
        return *dialog;
    }
    // A board; `repaint` is run by its zBoardSetup.
    void board(std::function<void()> repaint) {
        openWindows.add({.className = "frmChessBoard",
                         .window = &boardIds[boards++],
                         .unload = [] {},
                         .zBoardSetup = std::move(repaint)});
    }
    void press(const char* name) { dialog->findChild<QAbstractButton*>(QString::fromLatin1(name))->click(); }
    void choose(int index, std::int32_t color) {
        choice = color;
        press(("cmdColor(" + std::to_string(index) + ")").c_str());
    }
    ColorSample& sample(const char* name = "picSquares") const {
        return *static_cast<ColorSample*>(dialog->findChild<QWidget*>(QString::fromLatin1(name)));
    }
    QColor pixel(int x, int y, const char* name = "picSquares") const { return sample(name).picture.pixelColor(x, y); }
    static std::vector<std::int32_t> program() {
        return {modChess.ColorWhite, modChess.ColorBlack, modChess.ColorMove, modChess.ColorPreMove};
    }

    QPointer<frmBoardColors> dialog;
    std::optional<std::int32_t> choice;
    std::optional<std::int32_t> proposal;
    std::function<void()> whileChoosing;
    char boardIds[8]{};
    int boards = 0;
    int repaints = 0;
};

const QColor White(241, 234, 205);
const QColor Black(188, 131, 46);
const QColor Red(255, 0, 0);
const QColor Green(0, 255, 0);

} // namespace

// The form

TEST_F(ColorDialog, HasItsCaptionsAndItsSampleOf160By280) {
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Board Colors"));
    EXPECT_EQ(dialog->findChild<QGroupBox*>(QStringLiteral("Frame1"))->title(), QStringLiteral("All Pieces"));
    EXPECT_EQ(sample().size(), QSize(160, 280));
    const std::vector<std::pair<QString, QString>> captions{
        {QStringLiteral("cmdColor(0)"), QStringLiteral("White Squares")},
        {QStringLiteral("cmdColor(1)"), QStringLiteral("Black Squares")},
        {QStringLiteral("cmdColor(2)"), QStringLiteral("Normal Move")},
        {QStringLiteral("cmdColor(3)"), QStringLiteral("Pre-Move")},
        {QStringLiteral("cmdTest"), QStringLiteral("Default")}};
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(dialog->findChild<QAbstractButton*>(name)->text().remove(u'&'), caption);
    }
    EXPECT_FALSE(sample().accessibleName().isEmpty());
    EXPECT_FALSE(sample("picHL").accessibleName().isEmpty());
}

TEST_F(ColorDialog, IsInTheListOfWindowsUntilItCloses) {
    open();
    EXPECT_EQ(openWindows.count("frmBoardColors"), 1);
    press("cmdCancel");
    EXPECT_EQ(openWindows.count("frmBoardColors"), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog) << "it deletes itself";
}

TEST_F(ColorDialog, ShownAgainTheSameDialogComesToTheNewPlace) {
    open();
    EXPECT_EQ(dialog->pos(), QPoint(30, 40));
    frmBoardColors::showAt({70, 80});
    EXPECT_EQ(openWindows.count("frmBoardColors"), 1);
    EXPECT_EQ(dialog->pos(), QPoint(70, 80));
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(ColorDialog, AMinimisedOneComesUpWhenItIsAskedForAgain) {
    open().showMinimized();
    EXPECT_FALSE(open().isMinimized());
}

TEST_F(ColorDialog, OneThatHasClosedIsNotShownAgain) {
    open();
    const frmBoardColors* first = dialog;
    dialog->close();
    frmBoardColors& second = frmBoardColors::loaded();
    EXPECT_NE(&second, first);
    second.close();
}

TEST_F(ColorDialog, EscapeClosesItAsCancelDoes) {
    board([] {});
    open();
    choose(0, 0x010203);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(openWindows.count("frmBoardColors"), 0);
    EXPECT_EQ(modChess.ColorWhite, DefaultColorWhite);
}

// zDraw and zHL

TEST_F(ColorDialog, FourBandsOf39PixelsAlternateBlackAndWhiteOverTheWholeHeight) {
    open();
    for (int band = 0; band < 4; ++band) {
        const QColor color = band % 2 == 0 ? Black : White;
        const int left = 40 * band;
        for (const int x : {left, left + 38}) {
            EXPECT_EQ(pixel(x, 0), color) << x;
            EXPECT_EQ(pixel(x, 239), color) << x;
        }
        EXPECT_NE(pixel(left + 39, 100), White);
        EXPECT_NE(pixel(left + 39, 100), Black);
    }
    EXPECT_EQ(pixel(3, 277), Black);
    EXPECT_EQ(pixel(43, 277), White);
}

TEST_F(ColorDialog, TheSixPiecesOfEachColourStandOnBothSquares) {
    open();
    const int list = 4;
    ASSERT_EQ(pieceListSize(list), 38) << "the largest that fits 40 pixels";
    for (int band = 0; band < 4; ++band) {
        for (int kind = 0; kind < 6; ++kind) {
            QImage square(39, 40, QImage::Format_RGB32);
            square.fill(band % 2 == 0 ? Black : White);
            constexpr int offset = 2; // half of 40 - 37, to the even neighbour
            const auto image = static_cast<std::size_t>(1 + kind + (band < 2 ? 0 : 6));
            QPainter(&square).drawImage(offset, offset, imlPieces.images(list, 1)[image]);
            EXPECT_EQ(sample().picture.copy(40 * band, 40 * kind, 39, 40), square) << band << " " << kind;
        }
    }
}

TEST_F(ColorDialog, ThePiecesAreThoseOfTheSetInUse) {
    open();
    const QImage bookup = sample().picture;
    modChess.ChessSet = 2;
    dialog->zDraw();
    EXPECT_NE(sample().picture, bookup);
}

TEST_F(ColorDialog, TwoFramesOfEachHighlightStandUnderThePieces) {
    open();
    for (int band = 0; band < 4; ++band) {
        const QColor color = band < 2 ? Red : Green;
        EXPECT_EQ(pixel(40 * band, 240), color);
        EXPECT_EQ(pixel(40 * band + 39, 279), color);
    }
}

TEST_F(ColorDialog, AHighlightIsAFrameTwoPixelsThickFromXYToXPlus39) {
    open();
    dialog->zHL(40, 80, 0x563412);
    const QColor color(0x12, 0x34, 0x56);
    for (const int edge : {0, 1, 38, 39}) {
        EXPECT_EQ(pixel(40 + edge, 100), color) << edge;
        EXPECT_EQ(pixel(60, 80 + edge), color) << edge;
    }
    for (const int beside : {-1, 2, 37, 40}) {
        EXPECT_NE(pixel(40 + beside, 100), color) << beside;
        EXPECT_NE(pixel(60, 80 + beside), color) << beside;
    }
}

TEST_F(ColorDialog, TheHighlightSampleShowsBothHighlights) {
    open();
    EXPECT_EQ(pixel(0, 0, "picHL"), Red);
    EXPECT_EQ(pixel(2, 2, "picHL"), White);
    EXPECT_EQ(pixel(40, 0, "picHL"), Green);
    EXPECT_EQ(pixel(42, 2, "picHL"), Black);
}

TEST_F(ColorDialog, OnAnotherScreenTheSamplesAreDrawnAsFinelyAsItIs) {
    open();
    QScreen* fine = QGuiApplication::screens().last();
    ASSERT_NE(sample().picture.devicePixelRatio(), fine->devicePixelRatio());
    dialog->windowHandle()->setScreen(fine);
    dialog->move(fine->geometry().topLeft());
    EXPECT_TRUE(waitUntil([&] { return sample().picture.devicePixelRatio() == fine->devicePixelRatio(); }));
    EXPECT_TRUE(waitUntil([&] { return sample("picHL").picture.devicePixelRatio() == fine->devicePixelRatio(); }));
}

// cmdColor and cmdTest

TEST_F(ColorDialog, AColourIsChosenFromTheOneThatStandsAndShownAtOnce) {
    open();
    for (int index = 0; index < 4; ++index) {
        choose(index, 0x100000 * (index + 1));
        EXPECT_EQ(proposal, program()[static_cast<std::size_t>(index)]);
    }
    EXPECT_EQ(pixel(40, 0), QColor(0, 0, 0x10));
    EXPECT_EQ(pixel(0, 0), QColor(0, 0, 0x20));
    EXPECT_EQ(pixel(0, 240), QColor(0, 0, 0x30));
    EXPECT_EQ(pixel(80, 240), QColor(0, 0, 0x40));
    EXPECT_EQ(program(), (std::vector<std::int32_t>{DefaultColorWhite, DefaultColorBlack, 255, 65280}))
        << "not before OK";
}

TEST_F(ColorDialog, CancelInTheColourBoxChangesNothing) {
    open();
    const QImage before = sample().picture;
    choice = std::nullopt;
    press("cmdColor(0)");
    EXPECT_EQ(sample().picture, before);
}

TEST_F(ColorDialog, MayGoWhileTheColourBoxIsUp) {
    open();
    whileChoosing = [this] { delete dialog.data(); };
    choose(0, 1);
    EXPECT_FALSE(dialog);
}

TEST_F(ColorDialog, DefaultSetsTheSquaresAndLeavesTheHighlights) {
    modChess.ColorWhite = modChess.ColorBlack = modChess.ColorMove = modChess.ColorPreMove = 0x808080;
    board([] {});
    open();
    press("cmdTest");
    EXPECT_EQ(pixel(40, 0), White);
    EXPECT_EQ(pixel(0, 0), Black);
    EXPECT_EQ(pixel(0, 240), QColor(0x80, 0x80, 0x80));
    press("cmdOK");
    EXPECT_EQ(program(), (std::vector<std::int32_t>{13495025, 3048380, 0x808080, 0x808080}));
}

TEST_F(ColorDialog, DefaultThenCancelChangesNothing) {
    modChess.ColorWhite = 0x808080;
    board([this] { ++repaints; });
    open();
    press("cmdTest");
    press("cmdCancel");
    EXPECT_EQ(modChess.ColorWhite, 0x808080);
    EXPECT_EQ(repaints, 0);
}

// zBuildMasks

TEST_F(ColorDialog, SevenImagesAreAddedUnderTheirKeys) {
    open();
    dialog->zBuildMasks(imlPieces, 1);
    EXPECT_EQ(imlPieces.count(1), 19);
    for (const char* key : {"Sw", "Fw", "Tw", "Sb", "Fb", "Tb", "Tf"}) {
        const QImage* image = imlPieces.find(1, QString::fromLatin1(key));
        ASSERT_NE(image, nullptr) << key;
        EXPECT_EQ(image->size(), QSize(39, 39)) << key;
    }
}

TEST_F(ColorDialog, BuildingTheImagesTwiceLeaves19) {
    open();
    dialog->zBuildMasks(imlPieces, 0);
    dialog->zBuildMasks(imlPieces, 0);
    EXPECT_EQ(imlPieces.count(0), 19);
}

TEST_F(ColorDialog, TheImagesAreTheSquaresWithAndWithoutFramesAndAGreenOne) {
    open();
    dialog->zBuildMasks(imlPieces, 0);
    const auto at = [](const char* key, int x, int y) {
        return imlPieces.find(0, QString::fromLatin1(key))->pixelColor(x, y);
    };
    const std::tuple<const char*, QColor, QColor> table[]{{"Sw", White, White}, {"Fw", White, Green},
                                                          {"Tw", White, Red},   {"Sb", Black, Black},
                                                          {"Fb", Black, Green}, {"Tb", Black, Red}};
    for (const auto& [key, square, frame] : table) {
        for (const int edge : {0, 1, 38}) EXPECT_EQ(at(key, edge, 20), frame) << key << " " << edge;
        for (const int inside : {2, 20, 37}) EXPECT_EQ(at(key, inside, 20), square) << key << " " << inside;
    }
    EXPECT_EQ(at("Tf", 0, 0), QColor(0, 128, 0));
    EXPECT_EQ(at("Tf", 20, 20), QColor(0, 128, 0));
}

TEST_F(ColorDialog, AListThatIsNotThereFaults) { EXPECT_THROW(open().zBuildMasks(imlPieces, 26), Fault); }

// zSave

TEST_F(ColorDialog, OkStoresTheColoursRepaintsEveryBoardAndUnloads) {
    for (int number = 0; number < 3; ++number) {
        board([this] {
            EXPECT_EQ(program(), (std::vector<std::int32_t>{1, 2, 3, 4})) << "the colours stand before the repaint";
            EXPECT_EQ(imlPieces.count(0), 19);
            EXPECT_EQ(imlPieces.count(1), 19);
            ++repaints;
        });
    }
    openWindows.add({.className = "frmChat",
                     .window = &boardIds[7],
                     .unload = [] {},
                     .zBoardSetup = [] { ADD_FAILURE() << "no board"; }});
    open();
    for (int index = 0; index < 4; ++index) choose(index, index + 1);
    press("cmdOK");
    EXPECT_EQ(repaints, 3);
    EXPECT_EQ(openWindows.count("frmBoardColors"), 0);
}

TEST_F(ColorDialog, WithNoBoardOpenTheColoursAreNotStored) {
    open();
    choose(0, 1);
    press("cmdOK");
    EXPECT_EQ(modChess.ColorWhite, DefaultColorWhite);
    EXPECT_EQ(imlPieces.count(0), 12);
}

TEST_F(ColorDialog, CancelLeavesColoursAndBoardsAsTheyWereEvenAfterChanges) {
    board([this] { ++repaints; });
    open();
    for (int index = 0; index < 4; ++index) choose(index, index + 1);
    press("cmdCancel");
    EXPECT_EQ(program(), (std::vector<std::int32_t>{DefaultColorWhite, DefaultColorBlack, 255, 65280}));
    EXPECT_EQ(repaints, 0);
}

TEST_F(ColorDialog, AFaultInARepaintEndsTheSavingSilently) {
    board([] { throw Fault(FaultKind::Overflow, "too wide"); });
    board([this] { ++repaints; });
    open();
    choose(0, 1);
    EXPECT_NO_THROW(dialog->zSave());
    EXPECT_EQ(repaints, 0);
    EXPECT_EQ(modChess.ColorWhite, 1);
}

// Assistive tools

TEST_F(ColorDialog, EachSwatchHasANameAndSaysItsColour) {
    QWidget& white = *open().findChild<QWidget*>(QStringLiteral("swatch(0)"));
    EXPECT_EQ(spokenText(white, QAccessible::Name), QStringLiteral("White Squares"));
    EXPECT_EQ(spokenText(white, QAccessible::Description), QStringLiteral("red 241, green 234, blue 205"));
    choose(0, 0x0000FF);
    EXPECT_EQ(spokenText(white, QAccessible::Description), QStringLiteral("red 255, green 0, blue 0"));
    QWidget& preMove = *dialog->findChild<QWidget*>(QStringLiteral("swatch(3)"));
    EXPECT_EQ(spokenText(preMove, QAccessible::Name), QStringLiteral("Pre-Move"));
}
