// Gives back what the toolkit keeps for each line of a text that it has ever laid out.
#pragma once

#include <QTextBlock>
#include <QTextDocument>

#include <initializer_list>

// A layout takes more room than its line does. The toolkit frees it with the line alone, so the sweep joins a line with
// the one before it and parts them again, in one step of which nobody is told: text, formats, counted lines of the
// screen and cursors are what they were. A line that is looked at later is laid out anew.
class LineSweep {
public:
    explicit LineSweep(QTextDocument& text) : text_(text) {}

    // The lines from `line` (from 0) on have changed.
    void changedFrom(int line);
    // These lines may have been laid out, `count` of them from `first` on; no others are touched.
    static void laidOut(QTextBlock first, int count);
    // All have been.
    void allLaidOut();
    // How many lines before `end` have not been swept since they changed.
    int behind(int end) const;
    // Sweeps at most `most` of these, those from the top on. A line stays as it is when one of `cursors` (positions)
    // stands where it begins or the line above it ends, since that cursor would not come back to its place.
    void sweep(int end, int most, std::initializer_list<int> cursors);

private:
    QTextDocument& text_;
    int everyone_ = 0; // the lines above it are swept whether they are marked or not
    int swept_ = 1;    // all lines above it are done; the first has none to be joined with
};
