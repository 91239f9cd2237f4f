// The program's help file on the screen.
#include "platform/HelpFile.h"

#include "platform/Boxes.h"
#include "platform/Described.h"
#include "platform/InFront.h"
#include "platform/NamedControl.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QKeyEvent>
#include <QScreen>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize StartSize(880, 660); // pixels, wide enough for the pictures of the manual
// Pages and pictures of the manual are far smaller. The toolkit's reader takes minutes for some megabytes of brackets.
constexpr qint64 MostPageBytes = 64 * 1024;
constexpr qint64 MostPictureBytes = 4 * 1024 * 1024;

// A file on this machine. A link leads nowhere else, for the file may come from anywhere.
bool isShown(const QUrl& target, qint64 mostBytes) {
    const QFileInfo file(target.toLocalFile());
    return target.isLocalFile() && file.isFile() && file.size() <= mostBytes;
}

// An installed program has its manual beside it, a built one in the source tree it came from.
QString helpFile() {
    for (const QString& path :
         {QDir::current().filePath(QStringLiteral("Brightrank.hlp")),
          QCoreApplication::applicationDirPath() + QStringLiteral("/../share/brightrank/help/Brightrank.hlp"),
          QCoreApplication::applicationDirPath() + QStringLiteral("/" BRIGHTRANK_MANUAL)}) {
        if (isShown(QUrl::fromLocalFile(path), MostPageBytes)) return path;
    }
    return {};
}

// "A first game, without an account" is a-first-game-without-an-account.
QString anchorOf(const QString& heading) {
    QString name = heading.toLower();
    const auto leftOut = [](QChar c) { return !c.isLetterOrNumber() && c != u' ' && c != u'-' && c != u'_'; };
    name.erase(std::remove_if(name.begin(), name.end(), leftOut), name.end());
    return name.replace(u' ', u'-');
}

// The toolkit's reader of Markdown leaves headings without the names that links give them.
void nameHeadings(QTextDocument& page) {
    const QSignalBlocker quiet(page); // a page that tells of a change is loaded anew for each link
    QHash<QString, int> met;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        const QString name = anchorOf(block.text());
        const int before = met[name]++;
        QTextCharFormat anchor;
        anchor.setAnchor(true);
        anchor.setAnchorNames({before == 0 ? name : QStringLiteral("%1-%2").arg(name).arg(before)});
        QTextCursor(block).mergeBlockCharFormat(anchor);
    }
}

// Without a picture of ours the document would open the file by itself, and wait for a pipe.
QImage noPicture() {
    QImage picture(1, 1, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    return picture;
}

// Takes every page as Markdown, whatever its file is called, and finds the headings in it.
class HelpBrowser : public QTextBrowser {
public:
    explicit HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
        connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) {
            nameHeadings(*document());
            if (page.hasFragment()) scrollToAnchor(page.fragment());
        });
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) {
            window()->close();
        } else {
            QTextBrowser::keyPressEvent(event);
        }
    }

    bool focusNextPrevChild(bool next) override {
        const bool moved = QTextBrowser::focusNextPrevChild(next);
        tellLink();
        return moved;
    }

    void doSetSource(const QUrl& page, QTextDocument::ResourceType) override {
        if (isShown(page, MostPageBytes)) QTextBrowser::doSetSource(page, QTextDocument::MarkdownResource);
    }

    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl target = source().resolved(name);
        return isShown(target, MostPictureBytes) ? QTextBrowser::loadResource(type, target) : QVariant(noPicture());
    }

private:
    // The link that Tab led to is selected, and the keyboard stays with the page.
    void tellLink() {
        const QString link = textCursor().selectedText();
        setAccessibleDescription(link.isEmpty() ? QString() : tr("Link: %1").arg(link));
    }
};

void addPage(QWidget& window, const QString& file) {
    auto* browser = named(new HelpBrowser(&window), "helpFile");
    browser->setAccessibleName(QStringLiteral("Page of the manual"));
    browser->setFrameStyle(QFrame::NoFrame);
    browser->setSource(QUrl::fromLocalFile(file));
    auto* whole = new QVBoxLayout(&window);
    whole->setContentsMargins({});
    whole->addWidget(browser);
}

QWidget* openWindow(QWidget* parent, const QString& file) {
    auto* window = named(new QWidget(parent, Qt::Window), "frmHelpFile");
    describeWindow(window);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(QStringLiteral("Brightrank Help"));
    const QSize frame = parent->window()->frameSize() - parent->window()->size(); // its own will be like it
    window->resize(StartSize.boundedTo(parent->screen()->availableSize() - frame));
    addPage(*window, file);
    return window;
}

} // namespace

void showHelpFile(QWidget* parent) {
    auto* window = parent->findChild<QWidget*>(QStringLiteral("frmHelpFile"), Qt::FindDirectChildrenOnly);
    if (window == nullptr) {
        const QString file = helpFile();
        if (file.isEmpty()) {
            boxes.message(parent, "Brightrank Help", "Brightrank.hlp not found.");
            return;
        }
        window = openWindow(parent, file);
    }
    bringInFront(*window);
}
