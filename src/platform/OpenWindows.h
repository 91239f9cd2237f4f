// The one list of loaded windows, in order of creation.
#pragma once

#include <algorithm>
#include <any>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// One loaded window. `window` is its identity only and is never dereferenced here.
struct OpenWindow {
    std::string className; // "frmChessClient", "frmChessBoard", "frmChat", ...
    const void* window = nullptr;
    std::function<void()> unload; // asks the window to close; it may refuse
    std::any content = {};        // a pointer to the window-free part that others ask for: a board's game, a box's chat
    // Shows the answer of the server that was captured for this window.
    std::function<void()> answered = [] {};
    // Takes the ten button commands of the options, which have changed.
    std::function<void()> takeTells = [] {};
    // The same of their colours and their font.
    std::function<void()> takeLook = [] {};
    // Of a "frmChessBoard": fits and repaints it whole.
    std::function<void()> zBoardSetup = [] {};
};

// A window number is a position in `windows` and is good only until a window opens or closes.
struct OpenWindows {
    std::vector<OpenWindow> windows;

    void add(OpenWindow window) { windows.push_back(std::move(window)); }

    void remove(const void* window) {
        std::erase_if(windows, [window](const OpenWindow& open) { return open.window == window; });
    }

    // True from the window's load until it closes.
    bool holds(const void* window) const {
        return std::ranges::find(windows, window, &OpenWindow::window) != windows.end();
    }

    // How many windows of the class are loaded.
    int count(std::string_view className) const {
        return static_cast<int>(std::ranges::count(windows, className, &OpenWindow::className));
    }

    // Tells the window of the class, if one is loaded, that its answer is complete.
    void answer(std::string_view className) const {
        const auto open = std::ranges::find(windows, className, &OpenWindow::className);
        if (open == windows.end()) return;
        const auto answered = open->answered; // the list may change meanwhile
        answered();
    }

    // Asks the window of the class to close, if one is loaded; for classes of which there is one at most.
    void unload(std::string_view className) const {
        const auto open = std::ranges::find(windows, className, &OpenWindow::className);
        if (open == windows.end()) return;
        const auto close = open->unload; // the entry goes meanwhile
        close();
    }
};

inline OpenWindows openWindows;
