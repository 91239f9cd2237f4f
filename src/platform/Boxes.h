// The one seam for boxes that ask the user or tell him something.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class QAction;
class QMenu;
class QWidget;

// Function members with real boxes as defaults; a test replaces them by its next answer. `parent` is the window the box
// belongs to, null for the active window. Texts are Latin-1, file names are in the file system's own bytes. A box
// closed without an answer counts as No or Cancel. While a real box is up the message loop runs.
struct Boxes {
    using Question = std::function<bool(QWidget* parent, const std::string& title, const std::string& text)>;
    using FileChoice = std::function<std::optional<std::string>(QWidget* parent, const std::string& title,
                                                                const std::string& start, const std::string& filter)>;

    Boxes(); // fills in the real boxes

    std::function<void(QWidget* parent, const std::string& title, const std::string& text)> message;
    Question yesNo;
    Question confirm; // yesNo with No as the default: what cannot be taken back
    Question okCancel;

    // The text entered; nothing on Cancel.
    std::function<std::optional<std::string>(QWidget* parent, const std::string& prompt, const std::string& title,
                                             const std::string& proposal)>
        input;

    // The same with the upper left corner of the box's frame at `left` and `top` on the screen (pixels).
    std::function<std::optional<std::string>(QWidget* parent, int left, int top, const std::string& prompt,
                                             const std::string& title, const std::string& proposal)>
        inputAt;

    // A colour 0xBBGGRR chosen from `start`; nothing on Cancel.
    std::function<std::optional<std::int32_t>(QWidget* parent, std::int32_t start)> colour;

    // The path of a file to read, or to write (asked again before one that exists is chosen); nothing on Cancel.
    // `start` is a folder or a file to start from; `filter` reads "PGN Files (*.pgn);;All Files (*)". A name to write
    // that is typed without an ending gets that of the filter.
    FileChoice fileOpen;
    FileChoice fileSave;

    // A folder; nothing on Cancel.
    std::function<std::optional<std::string>(QWidget* parent, const std::string& title, const std::string& start)>
        folder;

    // Has `menu` shown at the pointer from the message loop, and returns. When the menu has come down, `answer` gets
    // the entry that was chosen, null for none, from the message loop too; never if the menu is gone by then, or was
    // asked for once more.
    std::function<void(QMenu& menu, const std::function<void(QAction* chosen)>& answer)> popup;
};

// The boxes of the program.
extern Boxes boxes;

// Tells the program's version.
void showAbout(QWidget* parent);
