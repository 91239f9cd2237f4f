// The text surface of the console and of the chat boxes: coloured text that goes in at the insertion point.
#include "platform/Console.h"

#include "common/TypingKey.h"
#include "platform/Colors.h"
#include "platform/FittingFont.h"
#include "platform/LightScrollBar.h"
#include "platform/OwnMemory.h"
#include "platform/StreamText.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QTextBlock>

#include <cmath>
#include <optional>
#include <tuple>

namespace {
constexpr int FrameMilliseconds = 16;
constexpr int CrowdedMilliseconds = 50; // once frames bring most of a page each, of which nobody reads one
constexpr int CrowdedFrames = 10;       // in a row, until then
constexpr qsizetype LongestLine = 4096; // characters
constexpr int MostTries = 4;            // to find the end; the second one does
// The sweep of lines, in lines and milliseconds.
constexpr int Kept = 500;         // above the place where text goes in, so that who reads there waits for nothing
constexpr int Worthwhile = 256;   // fewer are left for later
constexpr int AtOnce = 2000;      // some 6 ms
constexpr int SweepPause = 20;    // between two of these
constexpr int ResizePause = 1000; // a new width lays hands on all lines, and more such sizes may be to come
constexpr int SweptPages = 3;     // to either end of new text
constexpr int Many = 50000;       // whose memory is worth being handed back to the system

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

bool hasOneWidth(const QFont& font) {
    const QFontMetricsF letters(font);
    const qreal width = letters.horizontalAdvance(u'i');
    return width == letters.horizontalAdvance(u'W') && width == letters.horizontalAdvance(u'.');
}

} // namespace

Console::Console(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("txtOutput"));
    setAccessibleName(tr("Console"));
    setUndoRedoEnabled(false);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setCenterOnScroll(false);
    auto* bar = new LightScrollBar(this);
    followBar(bar);
    setVerticalScrollBar(bar);
    frame_.setSingleShot(true);
    connect(&frame_, &QTimer::timeout, this, &Console::flush);
    sweeping_.setSingleShot(true);
    connect(&sweeping_, &QTimer::timeout, this, &Console::sweep);
}

// Told of a change before the view is, which finds more lines while it scrolls and so may change the range once more.
void Console::followBar(QScrollBar* bar) {
    connect(bar, &QScrollBar::valueChanged, this, [this, bar](int value) {
        if (!keeping_) following_ = value >= bar->maximum();
    });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (keeping_) return;
        following_ = following_ || bar->value() >= maximum;
        if (following_) QMetaObject::invokeMethod(this, &Console::showEnd, Qt::QueuedConnection);
    });
}

// Sets the bar's range anew.
void Console::countLines() {
    QAbstractTextDocumentLayout* layout = document()->documentLayout();
    Q_EMIT layout->documentSizeChanged(layout->documentSize());
}

// Long lines are broken when the view comes near them, and only then the end is known.
void Console::showEnd() {
    if (!following_) return;
    QScrollBar* bar = verticalScrollBar();
    const bool before = std::exchange(keeping_, true);
    for (int tries = 0; tries < MostTries; ++tries) {
        bar->setValue(bar->maximum());
        const bool known = bar->maximum() + bar->pageStep() == document()->lineCount();
        if (known && bar->value() == bar->maximum()) break;
        countLines();
    }
    keeping_ = before;
}

// Runs what scrolls without being asked to. The view keeps its first line, or follows the end.
template <typename Act>
void Console::keepView(Act act) {
    QScrollBar* bar = verticalScrollBar();
    std::optional<QTextCursor> first; // goes along with text that comes in above
    if (!following_) first.emplace(firstVisibleBlock());
    const int line = first ? bar->value() - first->block().firstLineNumber() : 0;
    keeping_ = true;
    act();
    if (first) bar->setValue(first->block().firstLineNumber() + line);
    following_ = following_ || bar->value() >= bar->maximum();
    keeping_ = false;
    showEnd();
}

// The toolkit moves letters into the margin above the page.
void Console::scrollContentsBy(int dx, int dy) {
    QPlainTextEdit::scrollContentsBy(dx, dy);
    viewport()->update(0, 0, viewport()->width(), static_cast<int>(std::ceil(document()->documentMargin())));
}

// The toolkit lays hands on all lines between the first and the last that have to be painted.
void Console::paintEvent(QPaintEvent* event) {
    LineSweep::laidOut(firstVisibleBlock(), verticalScrollBar()->pageStep() + 2);
    for (const QRect& part : event->region()) {
        QPaintEvent one(part);
        QPlainTextEdit::paintEvent(&one);
    }
}

void Console::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) widthChanged();
    showEnd();
}

// The toolkit does not count the lines of another font.
void Console::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    document()->setDefaultFont(hasOneWidth(font()) ? unshaped(font()) : font());
    countLines();
    showEnd();
}

void Console::setColor(std::int32_t color) { format_.setForeground(colorOf(color)); }

void Console::setAllColor(std::int32_t color) {
    flush();
    setColor(color);
    QTextCharFormat colored;
    colored.setForeground(colorOf(color));
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeCharFormat(colored);
    moveToEnd();
}

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
    if (frame_.isActive()) return;
    const int pause = crowded_ < CrowdedFrames ? FrameMilliseconds : CrowdedMilliseconds;
    const qint64 passed = shown_.isValid() ? shown_.elapsed() : pause;
    frame_.start(static_cast<int>(std::max<qint64>(0, pause - passed)));
}

void Console::flush() {
    if (waiting_.empty()) return;
    const QTextCursor before = textCursor();
    const bool grows = before.atEnd() && !before.hasSelection();
    const int last = document()->blockCount() - 1;
    bool moved = false;
    keepView([&] {
        const std::tuple page(viewport()->size(), verticalScrollBar()->value(), firstVisibleBlock());
        viewport()->setAttribute(Qt::WA_UpdatesDisabled, grows);
        insertAtCursor();
        viewport()->setAttribute(Qt::WA_UpdatesDisabled, false);
        moved = page != std::tuple(viewport()->size(), verticalScrollBar()->value(), firstVisibleBlock());
    });
    if (grows) paintFrom(moved ? 0 : last);
    const bool crowded = 2 * (document()->blockCount() - last) > verticalScrollBar()->pageStep();
    crowded_ = crowded ? crowded_ + 1 : 0;
    frame_.stop();
    shown_.start();
}

// The toolkit paints the whole page when a line is added. Where text comes in at the end, all above has been moved by
// scrolling and is as it was.
void Console::paintFrom(int line) {
    const int top = std::max(0, static_cast<int>(topOf(document()->findBlockByNumber(line))));
    viewport()->update(0, top, viewport()->width(), viewport()->height() - top);
}

// In the viewport, pixels.
qreal Console::topOf(const QTextBlock& line) const {
    return blockBoundingGeometry(line).translated(contentOffset()).top();
}

void Console::insertAtCursor() {
    const QTextCursor shown = textCursor();
    const int anchor = shown.anchor();
    const int position = shown.position();
    if (!shown.hasSelection() || shown != kept_) point_ = shown;
    insertWaiting();
    if (anchor < position) keepSelection(anchor, position);
    kept_ = textCursor();
}

// A cursor of the window that stands at the insertion point moves along with the text by itself.
void Console::insertWaiting() {
    point_.clearSelection();
    const int line = point_.blockNumber();
    point_.beginEditBlock();
    for (const Run& run : std::exchange(waiting_, {})) {
        point_.insertText(brokenLines(run.text, point_.positionInBlock()), run.format);
    }
    point_.endEditBlock();
    linesChanged(line);
}

// As it goes on, the place where text goes in is as far above as the user has put it.
int Console::sweepEnd() const { return point_.blockNumber() - Kept; }

// The toolkit has laid out the last page, to know how far one may scroll, and lines on its way there.
void Console::linesChanged(int from) {
    lines_.changedFrom(from);
    const int page = verticalScrollBar()->pageStep() + 1;
    const int end = document()->blockCount() - SweptPages * page;
    LineSweep::laidOut(document()->findBlockByNumber(from), SweptPages * page);
    LineSweep::laidOut(document()->findBlockByNumber(std::max(0, end)), SweptPages * page);
    if (!sweeping_.isActive() && lines_.behind(sweepEnd()) >= Worthwhile) sweeping_.start(SweepPause);
}

void Console::widthChanged() {
    lines_.allLaidOut();
    if (lines_.behind(sweepEnd()) >= Worthwhile) sweeping_.start(ResizePause);
}

// While a button is down the toolkit may hold cursors of its own.
void Console::sweep() {
    if (QGuiApplication::mouseButtons() != Qt::NoButton) return sweeping_.start(ResizePause);
    const QTextCursor shown = textCursor();
    const int before = lines_.behind(sweepEnd());
    lines_.sweep(sweepEnd(), AtOnce, {shown.anchor(), shown.position(), kept_.anchor(), kept_.position()});
    const int after = lines_.behind(sweepEnd());
    sweptOnce_ += before - after;
    if (after >= Worthwhile) return sweeping_.start(SweepPause);
    if (std::exchange(sweptOnce_, 0) >= Many) giveBackMemory();
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
    keepView([this] { moveCursor(QTextCursor::End); });
}

// An insertion point at the end moves along with the waiting text, which so need not go in. A line end of two
// characters becomes one, and a line that is broken gets one more for thousands.
bool Console::staysAtEnd(std::size_t position) const {
    auto longest = static_cast<std::size_t>(document()->characterCount());
    for (const Run& run : waiting_) longest += 2 * static_cast<std::size_t>(run.text.size());
    const QTextCursor shown = textCursor();
    return position >= longest && shown.atEnd() && !shown.hasSelection();
}

void Console::moveTo(std::size_t position) {
    if (staysAtEnd(position)) return;
    flush();
    keepView([this, position] {
        QTextCursor point = textCursor();
        point.setPosition(static_cast<int>(std::min(position, length())));
        setTextCursor(point);
    });
}

void Console::turnPage(int pages) {
    flush();
    const auto way = pages < 0 ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd;
    for (int page = 0; page < std::abs(pages); ++page) verticalScrollBar()->triggerAction(way);
}

std::size_t Console::length() {
    flush();
    return static_cast<std::size_t>(document()->characterCount()) - 1; // without the document's own end
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
    const int walk = event->key() == Qt::Key_Up ? KeyUp : event->key() == Qt::Key_Down ? KeyDown : 0;
    if (walk != 0 && keyDown(walk)) return;
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
    if (rightButtonEnds && event->button() == Qt::RightButton) {
        beep();
        following_ = true;
        moveToEnd();
    } else {
        QPlainTextEdit::mousePressEvent(event);
    }
    setFocus();
}

// A right press that belongs to the insertion point opens no menu.
void Console::contextMenuEvent(QContextMenuEvent* event) {
    if (rightButtonEnds) {
        event->accept();
    } else {
        QPlainTextEdit::contextMenuEvent(event);
    }
}
