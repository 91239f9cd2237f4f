// Gives back what the toolkit keeps for each line of a text that it has ever laid out.
#include "platform/LineSweep.h"

#include <QAbstractTextDocumentLayout>
#include <QSignalBlocker>
#include <QTextCursor>

#include <algorithm>

namespace {

constexpr int Plain = -1; // the toolkit's own mark of a line
constexpr int LaidOut = 1;

// The line behind an end of line has that end's format.
void partAnew(QTextCursor& at, const QTextBlock& line) {
    const int rows = line.lineCount();
    const QTextBlockFormat blockFormat = line.blockFormat();
    const QTextCharFormat endFormat = line.charFormat();
    at.setPosition(line.position() - 1);
    at.deleteChar();
    at.insertBlock(blockFormat, endFormat);
    at.block().setLineCount(rows);
    at.block().previous().setUserState(Plain); // it got the mark of what it was joined with
}

} // namespace

void LineSweep::changedFrom(int line) { swept_ = std::max(1, std::min(swept_, line)); }

void LineSweep::laidOut(QTextBlock first, int count) {
    for (; first.isValid() && count > 0; --count, first = first.next()) first.setUserState(LaidOut);
}

void LineSweep::allLaidOut() {
    everyone_ = text_.blockCount();
    changedFrom(0);
}

int LineSweep::behind(int end) const { return std::max(0, end - swept_); }

void LineSweep::sweep(int end, int most, std::initializer_list<int> cursors) {
    const int last = std::min({end, swept_ + most, text_.blockCount()});
    if (last <= swept_) return;
    const QSignalBlocker noNews(text_);
    const QSignalBlocker noPainting(text_.documentLayout());
    QTextCursor at(&text_);
    at.beginEditBlock();
    for (QTextBlock line = text_.findBlockByNumber(swept_); swept_ < last; ++swept_) {
        const int begin = line.position();
        const auto isAt = [begin](int cursor) { return cursor == begin || cursor == begin - 1; };
        const bool laidOut = swept_ < everyone_ || line.userState() == LaidOut;
        if (laidOut && std::ranges::none_of(cursors, isAt)) {
            partAnew(at, line);
            line = at.block();
        }
        line = line.next();
    }
    at.endEditBlock();
    if (swept_ >= everyone_) everyone_ = 0;
}
