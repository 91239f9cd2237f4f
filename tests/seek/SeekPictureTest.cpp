// What the seek graph looks like, and what assistive tools read of it.
#include "seek/SeekWindowRig.h"

#include "platform/Spoken.h"
#include "seek/SeekDots.h"

#include <QAccessible>
#include <QImage>

namespace {

class SeekPicture : public SeekWindowRig {
protected:
    SeekPicture() { modChess.SeekWhite = -1; }

    QImage picture() const { return plot().grab().toImage(); }
    // The colour at a point of the picture, in pixels of the plot.
    static QColor at(const QImage& image, QPointF point) {
        return image.pixelColor((point * image.devicePixelRatio()).toPoint());
    }
    QAccessibleInterface& list() const { return *QAccessible::queryAccessibleInterface(&plot()); }
};

const QColor Teal(0, 128, 128);
const QColor White(255, 255, 255);

// Rows of the picture in which a column of pixels is not white.
int inkIn(const QImage& image, int column) {
    int ink = 0;
    for (int row = 0; row < image.height(); ++row) ink += image.pixelColor(column, row) != White ? 1 : 0;
    return ink;
}

} // namespace

TEST_F(SeekPicture, ARatedAdIsAFullCircleAndAnotherARing) {
    open();
    threeAds();
    const QImage rated = picture();
    EXPECT_EQ(at(rated, plot().squareOf(0).center()), Teal);
    EXPECT_EQ(at(rated, plot().squareOf(0).topLeft() + QPointF(0.5, 0.5)), White) << "round";
    add(11, "Anders", 5);
    table.SeekAds[0].AdRated = "unrated";
    answer();
    const QImage ring = picture();
    const QRectF square = plot().squareOf(0);
    EXPECT_EQ(at(ring, square.center()), White);
    EXPECT_NE(at(ring, {square.left() + 1, square.center().y()}), White);
}

TEST_F(SeekPicture, DotsThatHaveGoneAreNoLongerThere) {
    open();
    threeAds();
    const QPointF gone = plot().squareOf(2).center();
    add(11, "Anders", 5);
    answer();
    EXPECT_EQ(at(picture(), gone), White);
}

TEST_F(SeekPicture, OfTwoDotsOnASpotTheOneThatIsHitLiesOnTop) {
    open();
    add(11, "Anders", 5, 1634);
    add(12, "Berta", 5, 1540);
    add(13, "Carla", 5, 1540); // moves up, on the first
    table.SeekAds[2].AdType = "wild/2";
    answer();
    ASSERT_EQ(plot().squareOf(2), plot().squareOf(0));
    EXPECT_EQ(at(picture(), plot().squareOf(0).center()), Teal);
}

TEST_F(SeekPicture, TheThreeLinesAreWhereTheGeometryHasThem) {
    open();
    const GraphGeometry& geometry = plot().graph().geometry;
    const QImage image = picture();
    const double scale = image.devicePixelRatio();
    const auto column = [&](double twips) { return static_cast<int>(twips / 15 * scale); };
    const int high = static_cast<int>((geometry.BaseY - geometry.TopY) / 15.0 * scale);
    EXPECT_GT(inkIn(image, column(geometry.Line3X)), high * 9 / 10);
    EXPECT_GT(inkIn(image, column(geometry.Line15X)), high * 9 / 10);
    EXPECT_LT(inkIn(image, column(geometry.Line15X - 600)), 10);
    EXPECT_EQ(at(image, {geometry.RightX / 15.0 - 20, geometry.BaseY / 15.0}), QColor(Qt::black));
    EXPECT_EQ(at(image, {geometry.CellHalf / 15.0 - 2, geometry.BaseY / 15.0}), White);
}

TEST_F(SeekPicture, TheLabelsStandAtTheRightAndAboveTheLines) {
    open();
    const QImage image = picture();
    const auto inkAround = [&](QPointF center) {
        int ink = 0;
        for (int x = -12; x <= 12; ++x) {
            for (int y = -6; y <= 6; ++y) ink += at(image, center + QPointF(x, y)).lightness() < 128 ? 1 : 0;
        }
        return ink;
    };
    const GraphGeometry& geometry = plot().graph().geometry;
    for (const int rating : {2000, 1000}) {
        const auto corner = geometry.zRatingY(rating, {450, 240});
        EXPECT_GT(inkAround({corner.X / 15 + 15, corner.Y / 15 + 8}), 20) << rating;
    }
    EXPECT_GT(inkAround({geometry.Line3X / 15.0, 9}), 10);
    EXPECT_GT(inkAround({geometry.Line15X / 15.0, 9}), 10);
}

TEST_F(SeekPicture, AnotherFontIsSeenAtOnce) {
    open();
    const QImage before = picture();
    QFont bold = plot().font();
    bold.setBold(true);
    plot().setFont(bold);
    EXPECT_NE(picture(), before);
}

TEST_F(SeekPicture, TheChosenDotHasARingAroundItThatGoesWithTheChoice) {
    open();
    threeAds();
    const QRectF square = plot().squareOf(0);
    const QPointF around(square.center().x(), square.top() - 3);
    EXPECT_EQ(at(picture(), around), White);
    QTest::keyClick(seek.data(), Qt::Key_Right);
    EXPECT_LT(at(picture(), around).lightness(), 100);
    QTest::keyClick(&plot(), Qt::Key_Escape);
    EXPECT_EQ(at(picture(), around), White);
}

// Assistive tools

TEST_F(SeekPicture, TheGraphIsAListOfItsAdsInTheOrderOfTheTable) {
    open();
    EXPECT_EQ(list().role(), QAccessible::List);
    EXPECT_EQ(list().childCount(), 0);
    threeAds();
    ASSERT_EQ(list().childCount(), 3);
    EXPECT_EQ(list().text(QAccessible::Name), QStringLiteral("Seeks"));
    EXPECT_EQ(list().child(0)->text(QAccessible::Name),
              QStringLiteral("Anders(C) (1540) seeks blitz 5 0 rated    0-9999"));
    EXPECT_EQ(list().child(2)->text(QAccessible::Name),
              QStringLiteral("Carla (1540) seeks blitz 30 0 rated    0-9999"));
    EXPECT_EQ(list().child(3), nullptr);
    EXPECT_EQ(list().child(1)->role(), QAccessible::ListItem);
    EXPECT_EQ(list().indexOfChild(list().child(1)), 1);
    EXPECT_EQ(list().child(1)->parent(), &list());
}

TEST_F(SeekPicture, AnEntryIsWhereItsDotIs) {
    open();
    threeAds();
    const QPoint center = plot().mapToGlobal(dot(1));
    EXPECT_TRUE(list().child(1)->rect().contains(center));
    EXPECT_EQ(list().childAt(center.x(), center.y()), list().child(1));
    EXPECT_EQ(list().childAt(plot().mapToGlobal(QPoint(1, 1)).x(), plot().mapToGlobal(QPoint(1, 1)).y()), nullptr);
}

TEST_F(SeekPicture, TheChosenEntryIsTheSelectedOne) {
    open();
    threeAds();
    ASSERT_TRUE(QTest::qWaitForWindowActive(seek.data()));
    QTest::keyClick(seek.data(), Qt::Key_End);
    EXPECT_TRUE(list().child(2)->state().selected);
    EXPECT_FALSE(list().child(1)->state().selected);
    EXPECT_EQ(list().focusChild(), list().child(2));
    EXPECT_TRUE(list().child(2)->state().focused);
    part("cmddummy").setFocus();
    EXPECT_TRUE(list().child(2)->state().selected);
    EXPECT_FALSE(list().child(2)->state().focused) << "the keyboard is elsewhere";
}

TEST_F(SeekPicture, WalkingTellsOfEachDotWhenTheKeyboardIsThere) {
    std::vector<int> told;
    const auto before = announceDot;
    announceDot = [&told](const SeekPlot* graph, int dot) { told.push_back(graph->hasFocus() ? dot : -1); };
    open();
    threeAds();
    ASSERT_TRUE(QTest::qWaitForWindowActive(seek.data()));
    QTest::keyClick(seek.data(), Qt::Key_Right);
    QTest::keyClick(&plot(), Qt::Key_Right);
    QTest::keyClick(&plot(), Qt::Key_Escape);
    announceDot = before;
    EXPECT_EQ(told, (std::vector{0, 1})) << "the focus itself, which is told of too, comes first";
}

TEST_F(SeekPicture, WithoutAChoiceAFrameShowsThatTheKeyboardIsHere) {
    open();
    threeAds();
    ASSERT_TRUE(QTest::qWaitForWindowActive(seek.data()));
    const auto edge = [this] { return inkIn(picture(), 1); };
    const int without = edge();
    plot().setFocus();
    EXPECT_GT(edge(), without + 100);
    QTest::keyClick(&plot(), Qt::Key_Right);
    EXPECT_EQ(edge(), without) << "the dot shows it";
}

TEST_F(SeekPicture, AnEntryCanBePressedAndChosen) {
    open();
    threeAds();
    sent.clear();
    auto* entry = list().child(1)->actionInterface();
    ASSERT_TRUE(entry);
    entry->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(sent, std::vector<std::string>{"Play 12"});
    entry->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(plot().chosenDot(), 1);
}

TEST_F(SeekPicture, AnEntryWhoseAdHasGoneIsInvalidAndDoesNothing) {
    open();
    threeAds();
    QAccessibleInterface* entry = list().child(2);
    add(11, "Anders", 5);
    answer();
    EXPECT_FALSE(entry->isValid());
    EXPECT_EQ(entry->text(QAccessible::Name), QString());
    sent.clear();
    entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(sent.empty());
}

TEST_F(SeekPicture, EachControlHasAName) {
    open();
    EXPECT_EQ(spokenText(part("cmdSeek"), QAccessible::Name), QStringLiteral("Seek"));
    EXPECT_EQ(spokenText(part("cmddummy"), QAccessible::Name), QStringLiteral("Seek graph"));
    EXPECT_NE(spokenText(part("cmddummy"), QAccessible::Description), QString());
}
