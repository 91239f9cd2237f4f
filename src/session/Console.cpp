// The console's text surface: coloured text that goes in at the insertion point.
#include "session/Console.h"

#include "platform/Colors.h"
#include "platform/LightScrollBar.h"
#include "platform/StreamText.h"

#include <QKeyEvent>
#include <QMimeData>

namespace {
constexpr int FrameMilliseconds = 16;
constexpr qsizetype LongestLine = 4096; // characters

// `text` with a line break wherever a line of the screen would get longer than `LongestLine`: the toolkit's time for a
// line grows with the square of its length. The line begins `column` characters before the text.
QString brokenLines(const QString& text, qsizetype column) {
    if (column + text.size() <= LongestLine) return text;
    QString broken;
    for (const QChar c : text) {
        const bool ends = c == u'\n' || c == u'\r';
        if (!ends && column == LongestLine) {
            broken += u'\n';
            column = 0;
        }
        broken += c;
        column = ends ? 0 : column + 1;
    }
    return broken;
}

} // namespace

Console::Console(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("txtOutput"));
    setAccessibleName(tr("Console"));
    setUndoRedoEnabled(false);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setCenterOnScroll(false);
    setVerticalScrollBar(new LightScrollBar(this));
    frame_.setSingleShot(true);
    frame_.setInterval(FrameMilliseconds);
    connect(&frame_, &QTimer::timeout, this, [this] {
        if (!waiting_.empty()) flush();
    });
}

void Console::setColor(std::int32_t color) { format_.setForeground(colorOf(color)); }

void Console::setEmphasis() { format_.setFontWeight(QFont::Bold); }

void Console::setPaper(std::int32_t color) {
    QPalette look = palette();
    look.setColor(QPalette::Base, colorOf(color));
    setPalette(look);
}

void Console::insert(const std::string& text) {
    const QString piece = shownText(text);
    if (!waiting_.empty() && waiting_.back().format == format_) {
        waiting_.back().text += piece;
    } else {
        waiting_.push_back({format_, piece});
    }
    if (!frame_.isActive()) frame_.start();
}

void Console::flush() {
    if (waiting_.empty()) return;
    QScrollBar* bar = verticalScrollBar();
    const bool following = bar->value() >= bar->maximum();
    const int seen = bar->value();
    const QTextCursor shown = textCursor();
    const int anchor = shown.anchor();
    const int position = shown.position();
    if (!shown.hasSelection() || shown != kept_) point_ = shown;
    insertWaiting();
    if (anchor < position) keepSelection(anchor, position);
    kept_ = textCursor();
    bar->setValue(following ? bar->maximum() : seen);
    frame_.start();
}

// A cursor of the window that stands at the insertion point moves along with the text by itself.
void Console::insertWaiting() {
    point_.clearSelection();
    point_.beginEditBlock();
    for (const Run& run : std::exchange(waiting_, {})) {
        point_.insertText(brokenLines(run.text, point_.positionInBlock()), run.format);
    }
    point_.endEditBlock();
}

// Text that goes in at the end of a selection would become part of it.
void Console::keepSelection(int anchor, int position) {
    QTextCursor selection = textCursor();
    selection.setPosition(anchor);
    selection.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(selection);
}

void Console::moveToEnd() {
    flush();
    moveCursor(QTextCursor::End);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

std::string Console::text() {
    flush();
    return bytesOf(toPlainText());
}

void Console::clearScreen() {
    waiting_.clear();
    clear();
}

// The console never keeps the focus for typing: characters go to the command line, Ctrl+C stays for copying.
void Console::keyPressEvent(QKeyEvent* event) {
    flush();
    if (event->key() == Qt::Key_Up && upKey()) return;
    const QString text = event->text();
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    if (text.isEmpty() || control || text.at(0).unicode() == 27) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    typed(text);
    event->accept();
}

void Console::mousePressEvent(QMouseEvent* event) {
    flush();
    if (event->button() == Qt::RightButton) {
        beep();
        moveToEnd();
    } else {
        QPlainTextEdit::mousePressEvent(event);
    }
    setFocus();
}

// A right press belongs to the insertion point; it opens no menu.
void Console::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }
