// The program's help file on the screen.
#include "platform/HelpFile.h"

#include "platform/Boxes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>

namespace {

// An installed program has its manual beside it, a built one in the source tree it came from.
QString helpFile() {
    for (const QString& path :
         {QDir::current().filePath(QStringLiteral("Brightrank.hlp")),
          QCoreApplication::applicationDirPath() + QStringLiteral("/../share/brightrank/help/Brightrank.hlp"),
          QStringLiteral(BRIGHTRANK_MANUAL)}) {
        if (QFileInfo(path).isFile()) return path;
    }
    return {};
}

QTextBrowser* openBrowser(QWidget* parent, const QString& file) {
    auto* browser = new QTextBrowser(parent);
    browser->setObjectName(QStringLiteral("helpFile"));
    browser->setAccessibleName(QTextBrowser::tr("Help"));
    browser->setWindowFlag(Qt::Window);
    browser->setAttribute(Qt::WA_DeleteOnClose);
    browser->setWindowTitle(QStringLiteral("Brightrank Help"));
    browser->setOpenExternalLinks(true);
    browser->resize(820, 640);
    browser->setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
    return browser;
}

} // namespace

void showHelpFile(QWidget* parent) {
    auto* browser = parent->findChild<QTextBrowser*>(QStringLiteral("helpFile"), Qt::FindDirectChildrenOnly);
    if (browser == nullptr) {
        const QString file = helpFile();
        if (file.isEmpty()) {
            boxes.message(parent, "Brightrank Help", "Brightrank.hlp not found.");
            return;
        }
        browser = openBrowser(parent, file);
    }
    browser->show();
    browser->raise();
    browser->activateWindow();
}
