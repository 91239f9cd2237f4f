// The font of the console and of all typing lines.
#include "platform/ConsoleFont.h"

#include "common/modChess.h"
#include "platform/StreamText.h"

#include <QFontDatabase>
#include <QStringList>

namespace {

constexpr int PointSize = 9;

} // namespace

// The prescribed fonts are those of another desktop; where they are missing the system's fixed font stands in.
QFont consoleFont(const std::string& name) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamilies({shownText(name), font.family(), QStringLiteral("monospace")});
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSize(PointSize);
    return font;
}

QFont consoleFont() { return consoleFont(modChess.MainFont.empty() ? "fixedsys" : modChess.MainFont); }
