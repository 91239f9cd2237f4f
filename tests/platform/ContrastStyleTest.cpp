// Edges on a black window, and nothing else anywhere.
#include "platform/ContrastStyle.h"

#include "platform/LightScrollBar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>

#include <gtest/gtest.h>

namespace {

QPalette colorsOf(const QColor& paper, const QColor& ink) {
    QPalette colors(paper, paper);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) colors.setColor(role, ink);
    for (const auto role : {QPalette::Base, QPalette::Mid, QPalette::Dark}) colors.setColor(role, paper);
    return colors;
}

const QPalette Stark = colorsOf(Qt::black, Qt::white);
const QPalette DarkDesktop = colorsOf(QColor(42, 46, 50), Qt::white);

class ContrastStyleTest : public testing::Test {
protected:
    ContrastStyleTest() { style.setBaseStyle(QStyleFactory::create(QStringLiteral("Fusion"))); }

    QImage picture(QWidget& widget, const QPalette& colors, QStyle* drawnBy) {
        widget.setStyle(drawnBy);
        widget.setPalette(colors);
        widget.resize(widget.sizeHint());
        return widget.grab().toImage();
    }
    // Pixels that are as good as white.
    static int ink(const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y).lightness() > 200 ? 1 : 0;
        }
        return count;
    }

    ContrastStyle style;
    std::unique_ptr<QStyle> fusion{QStyleFactory::create(QStringLiteral("Fusion"))};
};

} // namespace

TEST_F(ContrastStyleTest, OnlyABlackWindowIsStark) {
    EXPECT_TRUE(isStark(Stark));
    EXPECT_FALSE(isStark(DarkDesktop));
    EXPECT_FALSE(isStark(colorsOf(Qt::white, Qt::black)));
}

TEST_F(ContrastStyleTest, EveryThingThatCanBeUsedHasAnEdgeOnABlackWindow) {
    QCheckBox box;
    QRadioButton choice;
    QLineEdit field;
    QComboBox list;
    QPushButton button;
    QScrollBar bar(Qt::Vertical);
    for (QWidget* each : std::initializer_list<QWidget*>{&box, &choice, &field, &list, &button, &bar}) {
        EXPECT_GT(ink(picture(*each, Stark, &style)), ink(picture(*each, Stark, fusion.get())) + 16)
            << each->metaObject()->className();
    }
}

TEST_F(ContrastStyleTest, TipsAndMenusHaveAnEdgeAndAFieldWithTheKeyboardKeepsTheDesktops) {
    const auto drawn = [this](QStyle::PrimitiveElement element, QStyle::State state, QStyle& by) {
        QStyleOptionFrame option;
        option.rect = QRect(0, 0, 40, 20);
        option.palette = Stark;
        option.state = state;
        option.lineWidth = 1;
        QImage image(option.rect.size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        by.drawPrimitive(element, &option, &painter, nullptr);
        return ink(image);
    };
    for (const auto element : {QStyle::PE_PanelTipLabel, QStyle::PE_FrameMenu}) {
        EXPECT_GE(drawn(element, QStyle::State_Enabled, style), 2 * 40 + 2 * 18) << element;
    }
    const auto focused = QStyle::State_Enabled | QStyle::State_HasFocus;
    EXPECT_EQ(drawn(QStyle::PE_FrameLineEdit, focused, style), drawn(QStyle::PE_FrameLineEdit, focused, *fusion));
}

TEST_F(ContrastStyleTest, OtherWindowsLookAsTheDesktopWantsThem) {
    QCheckBox box;
    QLineEdit field;
    QComboBox list;
    for (const QPalette& colors : {DarkDesktop, colorsOf(Qt::white, Qt::black)}) {
        for (QWidget* each : std::initializer_list<QWidget*>{&box, &field, &list}) {
            EXPECT_EQ(picture(*each, colors, &style), picture(*each, colors, fusion.get()));
        }
    }
}

TEST_F(ContrastStyleTest, TheConsolesBarShowsItsSliderOnABlackWindow) {
    LightScrollBar bar;
    bar.setRange(0, 10);
    bar.setPageStep(10);
    bar.resize(16, 200);
    bar.setPalette(Stark);
    EXPECT_GT(ink(bar.grab().toImage()), 300);
}
