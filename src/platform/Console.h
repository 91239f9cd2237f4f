// The text surface of the console and of the chat boxes: coloured text that goes in at the insertion point.
#pragma once

#include "platform/LineSweep.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// `txtOutput` and `txtChat`. Only grows; nothing is ever cut off its front. Text waits for at most one frame (16 ms)
// and then goes in together, so a flood is laid out and painted at the screen's pace; everything that looks at the text
// or moves the insertion point lets the waiting text in first, so nobody can see the difference.
// The view follows the end, whatever becomes of its size and its lines, until the user scrolls up; at the end it
// follows again.
class Console : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit Console(QWidget* parent = nullptr);

    // Colour (0xBBGGRR) of what is inserted from now on.
    void setColor(std::int32_t color);
    // Switches bold on for what is inserted from now on; it is never switched off again.
    void setEmphasis();
    // Puts `text` (one character a byte) at the insertion point; a line of more than 4096 characters goes on in a new
    // one. A selection of the user's stays as it is, and what arrives meanwhile keeps its order.
    void insert(const std::string& text);
    // The insertion point goes to the end of the text; the view stays where it is, or follows the end if it was there.
    void moveToEnd();
    // The same behind the first `position` characters, or to the end if there are fewer.
    void moveTo(std::size_t position);
    // Scrolls by so many pages, up where that is below 0; the insertion point stays.
    void turnPage(int pages);
    // The number of characters; a line end counts as one.
    std::size_t length();
    // The whole text, a line feed between lines.
    std::string text();
    // All text takes this colour (0xBBGGRR), and so does what is inserted from now on; the insertion point goes to the
    // end as with moveToEnd.
    void setAllColor(std::int32_t color);
    // Empties the console.
    void clearScreen();
    // Lets the waiting text in now.
    void flush();
    // Colour (0xBBGGRR) of the paper.
    void setPaper(std::int32_t color);

    // Up (38) or Down (40) was pressed; true takes the key, false lets it scroll.
    std::function<bool(int code)> keyDown = [](int) { return false; };
    // A character was typed that belongs to the command line.
    std::function<void(const QString& text)> typed = [](const QString&) {};
    // A right press beeps and moves the insertion point and the view to the end; otherwise it opens the menu with which
    // text is copied.
    bool rightButtonEnds = true;
    std::function<void()> beep = [] {};

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Run {
        QTextCharFormat format;
        QString text;
    };

    void followBar(QScrollBar* bar);
    void countLines();
    void showEnd();
    template <typename Act>
    void keepView(Act act);
    void linesChanged(int from);
    void widthChanged();
    int sweepEnd() const;
    void sweep();
    void insertAtCursor();
    void insertWaiting();
    void paintFrom(int line);
    qreal topOf(const QTextBlock& line) const;
    bool staysAtEnd(std::size_t position) const;
    void keepSelection(int anchor, int position);

    std::vector<Run> waiting_;
    QTextCharFormat format_;
    QTextCursor kept_;  // the selection as the last insertion left it; while it stands, text goes on behind point_
    QTextCursor point_; // behind the text that went in last
    QTimer frame_;
    LineSweep lines_{*document()}; // so that a line that has been shown costs no more than another
    QTimer sweeping_;
    int sweptOnce_ = 0;     // lines since the sweep was behind
    QElapsedTimer shown_;   // since text went in
    int crowded_ = 0;       // frames in a row that brought more than half a page
    bool following_ = true; // the user has not scrolled up from the end
    bool keeping_ = false;  // what scrolls now is not the user
};
