// Which text the help shows, that there is one window of it, and that its links and pictures are found.
#include "platform/HelpFile.h"

#include "platform/Boxes.h"
#include "platform/Spoken.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include <gmock/gmock.h>

#include <stdexcept>

#include <sys/stat.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

struct HelpFileTest : testing::Test {
    QTemporaryDir folder;
    QString before = QDir::currentPath();
    QWidget window;
    Boxes realBoxes = boxes;

    // A box, which tells that there is no help, would wait for its user.
    HelpFileTest() {
        EXPECT_TRUE(QDir::setCurrent(folder.path()));
        boxes.message = [](QWidget*, const std::string&, const std::string& text) { throw std::runtime_error(text); };
    }
    ~HelpFileTest() override {
        boxes = realBoxes;
        QDir::setCurrent(before);
    }

    QList<QTextBrowser*> shown() const { return window.findChildren<QTextBrowser*>(); }

    QTextBrowser& open() {
        showHelpFile(&window);
        return *shown().front();
    }
    void write(const char* name, const char* text) const {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QTextBrowser& openText(const char* text) {
        write("Brightrank.hlp", text);
        return open();
    }
};

// Takes what would be given to another program: any object with a slot for an address does.
struct UrlNotes {
    QTextBrowser taken;

    UrlNotes() {
        QDesktopServices::setUrlHandler(QStringLiteral("http"), &taken, "setSource");
        QDesktopServices::setUrlHandler(QStringLiteral("mailto"), &taken, "setSource");
    }
    ~UrlNotes() {
        QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
        QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
    }
};

// The texts and pictures of the page, by the looks that hold for them.
template <typename Look>
void eachLook(const QTextBrowser& browser, const Look& look) {
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) look(piece.fragment().charFormat());
    }
}

QStringList linksOf(const QTextBrowser& browser) {
    QStringList links;
    eachLook(browser, [&links](const QTextCharFormat& look) {
        if (!look.anchorHref().isEmpty()) links += look.anchorHref();
    });
    return links;
}

std::vector<std::string> anchorsOf(const QTextBrowser& browser) {
    std::vector<std::string> names;
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (const QString& name : block.charFormat().anchorNames()) names.push_back(name.toStdString());
    }
    return names;
}

int picturesOf(const QTextBrowser& browser) {
    int count = 0;
    eachLook(browser, [&](const QTextCharFormat& look) {
        if (!look.isImageFormat()) return;
        ++count;
        const QString name = look.toImageFormat().name();
        const QVariant found = browser.document()->resource(QTextDocument::ImageResource, QUrl(name));
        EXPECT_FALSE(found.isNull() || found.value<QImage>().size() == QSize(1, 1)) << name.toStdString();
    });
    return count;
}

// Where the link is on the window now.
QPoint placeOf(const QTextBrowser& browser, const QString& link) {
    const QTextCursor found = browser.document()->find(link);
    EXPECT_FALSE(found.isNull()) << link.toStdString();
    QTextCursor first(found);
    first.setPosition(found.selectionStart() + 1);
    return browser.cursorRect(first).center();
}

void click(QTextBrowser& browser, const QString& link) {
    QTest::mouseClick(browser.viewport(), Qt::LeftButton, {}, placeOf(browser, link));
}

std::string topLine(const QTextBrowser& browser) {
    return browser.cursorForPosition(QPoint(10, 2)).block().text().toStdString();
}

} // namespace

TEST_F(HelpFileTest, TheFileInTheCurrentDirectoryIsShown) {
    openText("# Of our own\n\nRead *this*.\n");
    ASSERT_EQ(shown().size(), 1);
    EXPECT_TRUE(shown().front()->isVisible());
    EXPECT_EQ(shown().front()->toPlainText(), QStringLiteral("Of our own\nRead this."));
}

TEST_F(HelpFileTest, WithoutOneTheProgramsManualIsShown) {
    showHelpFile(&window);
    ASSERT_EQ(shown().size(), 1);
    EXPECT_TRUE(shown().front()->toPlainText().startsWith(QStringLiteral("Manual")));
}

TEST_F(HelpFileTest, AskedForAgainItIsTheSameWindow) {
    showHelpFile(&window);
    showHelpFile(&window);
    EXPECT_EQ(shown().size(), 1);
}

TEST_F(HelpFileTest, AskedForAgainWhileMinimisedItComesBack) {
    open().window()->showMinimized();
    EXPECT_FALSE(open().window()->isMinimized());
}

TEST_F(HelpFileTest, ItIsNoLargerThanTheScreen) {
    const QWidget& manual = *open().window();
    const QSize screen = manual.screen()->availableSize();
    EXPECT_EQ(manual.size().boundedTo(screen), manual.size());
}

TEST_F(HelpFileTest, EscapeClosesIt) {
    QTest::keyClick(&open(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(HelpFileTest, AssistiveToolsFindAWindowWithAPageInIt) {
    QTextBrowser& browser = open();
    const auto* manual = QAccessible::queryAccessibleInterface(browser.window());
    EXPECT_EQ(manual->role(), QAccessible::Window);
    EXPECT_EQ(manual->text(QAccessible::Name), QStringLiteral("Brightrank Help"));
    EXPECT_EQ(spokenText(browser, QAccessible::Name), QStringLiteral("Page of the manual"));
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&browser)->textInterface()->text(0, 100).startsWith(
        QStringLiteral("Manual")));
}

// Links

TEST_F(HelpFileTest, TheLinkThatTabLeadsToIsTold) {
    QTextBrowser& browser = openText("[one](second.md) and [two](third.md)\n");
    browser.activateWindow();
    QTest::keyClick(&browser, Qt::Key_Tab);
    EXPECT_EQ(spokenText(browser, QAccessible::Description), QStringLiteral("Link: one"));
    QTest::keyClick(&browser, Qt::Key_Tab);
    EXPECT_EQ(spokenText(browser, QAccessible::Description), QStringLiteral("Link: two"));
    QTest::keyClick(&browser, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(spokenText(browser, QAccessible::Description), QStringLiteral("Link: one"));
}

TEST_F(HelpFileTest, AHeadingsAnchorIsItsTextInSmallLettersWithoutMarksAndWithoutBlanks) {
    const QTextBrowser& browser = openText("# A first game, without (an) account\n\nText.\n\n## `Pre-moves` & so_on\n");
    EXPECT_THAT(anchorsOf(browser), ElementsAre("a-first-game-without-an-account", "pre-moves--so_on"));
}

TEST_F(HelpFileTest, HeadingsOfTheSameTextAreCounted) {
    EXPECT_THAT(anchorsOf(openText("# One\n\n## Two\n\n# One\n\n# One\n")),
                ElementsAre("one", "two", "one-1", "one-2"));
}

TEST_F(HelpFileTest, TextThatIsNoHeadingHasNoAnchor) {
    EXPECT_THAT(anchorsOf(openText("One\n\n- Two\n\n**Three**\n")), IsEmpty());
}

TEST_F(HelpFileTest, ALinkOfTheContentsBringsItsHeadingToTheTop) {
    QTextBrowser& browser = open();
    click(browser, QStringLiteral("Chat boxes"));
    EXPECT_EQ(topLine(browser), "Chat boxes");
}

TEST_F(HelpFileTest, ALinkOpensTheSecondPageAndBackwardLeadsToTheFirst) {
    QTextBrowser& browser = open();
    const QString manual = browser.toPlainText();
    click(browser, QStringLiteral("The practice server"));
    EXPECT_EQ(topLine(browser), "The practice server");
    EXPECT_THAT(anchorsOf(browser), testing::Contains("opponents"));
    QTest::keyClick(&browser, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(browser.toPlainText(), manual);
}

TEST_F(HelpFileTest, ALinkIntoAnotherPageBringsItsHeadingToTheTop) {
    write("second.md", ("# Second\n\n" + std::string(9000, 'x') + "\n\n## Below\n\n" + std::string(9000, 'y')).c_str());
    QTextBrowser& browser = openText("[there](second.md#below)\n");
    click(browser, QStringLiteral("there"));
    EXPECT_EQ(topLine(browser), "Below");
}

TEST_F(HelpFileTest, BackFromAnAnchorThePageIsStillReadAsMarkdown) {
    write("second.md", "# Second\n");
    QTextBrowser& browser = openText("[here](#one) [there](second.md)\n\n# One\n\nRead *this*.\n");
    const QString page = browser.toPlainText();
    click(browser, QStringLiteral("here"));
    click(browser, QStringLiteral("there"));
    ASSERT_EQ(browser.toPlainText(), QStringLiteral("Second"));
    browser.backward();
    EXPECT_EQ(browser.toPlainText(), page);
    EXPECT_THAT(anchorsOf(browser), ElementsAre("one"));
}

TEST_F(HelpFileTest, ALinkOutOfTheMachineLeadsNowhere) {
    QTextBrowser& browser = openText("[there](http://127.0.0.1/) [here](mailto:a@b.c) ![it](http://127.0.0.1/x.png)\n");
    const UrlNotes notes;
    const QString page = browser.toPlainText();
    click(browser, QStringLiteral("there"));
    click(browser, QStringLiteral("here"));
    EXPECT_EQ(notes.taken.source(), QUrl()) << "nothing is started for it";
    EXPECT_EQ(browser.toPlainText(), page);
    EXPECT_FALSE(browser.openExternalLinks());
}

TEST_F(HelpFileTest, ALinkToAPipeAFolderADeviceOrAHugeFileLeadsNowhere) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600), 0);
    write("huge.md", "x");
    ASSERT_TRUE(QFile::resize(folder.filePath(QStringLiteral("huge.md")), 100'000'000));
    QTextBrowser& browser = openText("[one](pipe) [two](.) [three](/dev/zero) [four](huge.md) ![five](pipe)\n");
    const QString page = browser.toPlainText();
    for (const char* link : {"one", "two", "three", "four"}) {
        click(browser, QString::fromLatin1(link));
        EXPECT_EQ(browser.toPlainText(), page) << link;
    }
}

TEST_F(HelpFileTest, AFolderAPipeOrAHugeFileOfItsNameIsPassedOver) {
    const QString path = folder.filePath(QStringLiteral("Brightrank.hlp"));
    QDir().mkdir(path);
    EXPECT_TRUE(open().toPlainText().startsWith(QStringLiteral("Manual")));
    shown().front()->window()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QDir().rmdir(path);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_TRUE(open().toPlainText().startsWith(QStringLiteral("Manual")));
    shown().front()->window()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QFile::remove(path);
    write("Brightrank.hlp", "x");
    ASSERT_TRUE(QFile::resize(path, 100'000'000));
    EXPECT_TRUE(open().toPlainText().startsWith(QStringLiteral("Manual")));
}

TEST_F(HelpFileTest, APageOfMoreThanSixtyFourKilobytesIsPassedOver) {
    const QString path = folder.filePath(QStringLiteral("Brightrank.hlp"));
    write("Brightrank.hlp", "[a page](page.md)\n");
    QFile file(path); // blanks, for the reader is slow with NULs
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(QByteArray(static_cast<qsizetype>(65536 - file.size()), 0x20));
    file.close();
    EXPECT_FALSE(open().toPlainText().startsWith(QStringLiteral("Manual")));
    shown().front()->window()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(QFile::resize(path, 65537));
    EXPECT_TRUE(open().toPlainText().startsWith(QStringLiteral("Manual")));
}

TEST_F(HelpFileTest, APictureOfMoreThanFourMegabytesIsNotRead) {
    write("large.png", "x");
    ASSERT_TRUE(QFile::resize(folder.filePath(QStringLiteral("large.png")), 4 * 1024 * 1024 + 1));
    const QTextBrowser& browser = openText("![large](large.png)\n");
    const QVariant picture =
        browser.document()->resource(QTextDocument::ImageResource, QUrl(QStringLiteral("large.png")));
    EXPECT_EQ(picture.value<QImage>().size(), QSize(1, 1));
}

TEST_F(HelpFileTest, EveryLinkAndPictureOfTheManualIsFound) {
    QTextBrowser& browser = open();
    std::vector<QUrl> pages{browser.source()};
    int pictures = 0;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        browser.setSource(pages[page]);
        ASSERT_FALSE(browser.toPlainText().isEmpty()) << pages[page].toString().toStdString();
        pictures += picturesOf(browser);
        for (const QString& link : linksOf(browser)) {
            const QUrl target = pages[page].resolved(QUrl(link));
            const QUrl whole = target.adjusted(QUrl::RemoveFragment);
            if (target.isLocalFile() && std::ranges::find(pages, whole) == pages.end()) pages.push_back(whole);
        }
    }
    EXPECT_GT(pages.size(), 15U);
    EXPECT_GT(pictures, 20);
}

TEST_F(HelpFileTest, EveryPageOfTheManualIsReachedFromTheFirst) {
    QTextBrowser& browser = open();
    const QUrl manual = browser.source();
    QStringList pages{QFileInfo(manual.toLocalFile()).fileName()};
    for (const QString& link : linksOf(browser)) pages.push_back(QFileInfo(QUrl(link).path()).fileName());
    for (const QString& page : QFileInfo(manual.toLocalFile()).dir().entryList({QStringLiteral("*.md")})) {
        EXPECT_TRUE(pages.contains(page)) << page.toStdString();
    }
}

TEST_F(HelpFileTest, EveryLinkToAHeadingOfTheManualFindsIt) {
    QTextBrowser& browser = open();
    const QDir pages = QFileInfo(browser.source().toLocalFile()).dir();
    for (const QString& page : pages.entryList({QStringLiteral("*.md")})) {
        const QUrl source = QUrl::fromLocalFile(pages.filePath(page));
        browser.setSource(source);
        for (const QString& link : linksOf(browser)) {
            const QUrl target = source.resolved(QUrl(link));
            if (!target.isLocalFile() || !target.hasFragment()) continue;
            browser.setSource(target);
            EXPECT_THAT(anchorsOf(browser), testing::Contains(target.fragment().toStdString())) << page.toStdString();
            browser.setSource(source);
        }
    }
}
