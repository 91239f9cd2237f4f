// No text of others is taken for markup, in whatever label it lands; those of the toolkit are among them.
#include "platform/PlainText.h"

#include "platform/Boxes.h"
#include "platform/ShownTip.h"
#include "platform/WaitUntil.h"

#include <QDialog>
#include <QImage>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

namespace {

const char* const Markup = "<h1>Sale</h1> <a href='http://127.0.0.1/'>here</a> <img src='file:///x.png'> &amp;";

void expectPlain(const QLabel& label) {
    EXPECT_EQ(label.textFormat(), Qt::PlainText) << label.text().toStdString();
    EXPECT_TRUE(label.text().contains(QString::fromLatin1(Markup)));
}

// Lets `open` run a dialog, and its labels that hold the text be looked at.
template <typename Open>
void expectPlainBox(Open open) {
    int seen = 0;
    QTimer::singleShot(0, [&seen] {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        for (const QLabel* label : box->findChildren<QLabel*>()) {
            if (!label->text().contains(QString::fromLatin1("Sale"))) continue;
            expectPlain(*label);
            ++seen;
        }
        box->reject();
    });
    open();
    EXPECT_EQ(seen, 1);
}

} // namespace

TEST(PlainText, ALabelShowsWhatLooksLikeMarkup) {
    QWidget window;
    QLabel label(QString::fromLatin1(Markup), &window);
    window.show();
    expectPlain(label);
    const QImage shown = label.grab().toImage();
    QLabel twin(&window);
    twin.setTextFormat(Qt::PlainText);
    twin.setText(label.text());
    twin.setGeometry(label.geometry());
    twin.show();
    EXPECT_EQ(shown, twin.grab().toImage());
}

TEST(PlainText, ALaterTextOfALabelIsPlainToo) {
    QLabel label;
    label.show();
    label.setText(QString::fromLatin1(Markup));
    expectPlain(label);
}

TEST(PlainText, AToolTipShowsWhatLooksLikeMarkup) {
    QWidget window;
    window.show();
    QToolTip::showText(QPoint(5, 5), QString::fromLatin1(Markup), &window);
    ASSERT_NE(shownTip(), nullptr);
    expectPlain(*shownTip());
    QToolTip::hideText();
    EXPECT_TRUE(waitUntil([] { return shownTip() == nullptr; }));
}

TEST(PlainText, EveryBoxShowsWhatLooksLikeMarkup) {
    const Boxes real;
    QWidget window;
    window.show();
    const std::string text = Markup;
    expectPlainBox([&] { real.message(&window, "Brightrank", text); });
    expectPlainBox([&] { real.yesNo(&window, "Brightrank", text); });
    expectPlainBox([&] { real.confirm(&window, "Brightrank", text); });
    expectPlainBox([&] { real.okCancel(&window, "Brightrank", text); });
    expectPlainBox([&] { real.input(&window, text, "Brightrank", ""); });
    expectPlainBox([&] { real.inputAt(&window, 10, 10, text, "Brightrank", ""); });
}
