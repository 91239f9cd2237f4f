// The program without its windows: the seek graph opens, is answered and closes, and what has to hold of it.
#include "Require.h"
#include "StreamRig.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <algorithm>
#include <array>

// The entry of the menu opens it; the user gives it another size, and closes it by its window.
void StreamRig::switchSeek(std::size_t size) {
    // twips; the last is so narrow for its height that its columns run to the left
    constexpr std::array<Extent, 4> Sizes{{{7800, 6900}, {3000, 1600}, {28800, 6900}, {3000, 30000}}};
    bool& tick = session_.classifier.menu.mnuSeekGrf;
    tick = !tick;
    if (tick) {
        showSeek();
        seek_->graph.geometry.zSize(Sizes.at(size), false);
    } else if (seek_) {
        closeSeek();
    }
}

void StreamRig::showSeek() {
    if (seek_) return;
    require(!modChess.AppClosing, "no graph opens while the program closes");
    session_.road.zSendMsg("Set Seek 0");
    seek_ = std::make_unique<RigSeek>(session_, clock_);
    openWindows.add({.className = "frmSeek",
                     .window = seek_.get(),
                     .unload = [this] { closeSeek(); },
                     .answered = [this] { drawSeeks(); }});
    modChess.gSeekOn = true;
    seek_->poll.start();
}

void StreamRig::closeSeek() {
    modChess.gSeekOn = false;
    seek_->poll.stop();
    require(!seek_->due, "a closed graph polls no more");
    modChess.gConsoleQuiet = false;
    openWindows.remove(seek_.get());
    seek_.reset();
}

void StreamRig::drawSeeks() {
    SeekGraph& graph = seek_->graph;
    const std::int32_t count = session_.seekAds.SeekAdCount;
    graph.zGraph();
    if (session_.seekAds.SeekAdCount != 0) return; // a fault has ended it silently
    require(graph.DotsDrawn == count, "each ad is drawn");
    require(seek_->caption == "Seek Graph (" + std::to_string(count) + " Ads)", "the caption counts the ads");
    const auto shown = std::ranges::count_if(graph.dots, [](const SeekDot& dot) { return dot.shown; });
    require(shown == std::max(count, 0), "a dot shows for each ad and for nothing else");
    for (int dot = 0; dot < count; ++dot) {
        const int hit = graph.dotAt(graph.SeekX[dot], graph.SeekY[dot]);
        require(hit >= 0 && hit <= dot, "a dot's centre is on it, or on an earlier one");
    }
    require(graph.dotAt(1e12, 1e12) == -1, "no dot is that far out");
}

void StreamRig::checkSeek() const noexcept {
    require(modChess.gSeekOn == (seek_ != nullptr), "the graph is in use as long as it is open");
    require(session_.seekAds.SeekAdCount <= session_.seekAds.SeekAds.last + 1, "the table holds what it has room for");
    if (!seek_) return require(modChess.Deadlines[2] == 0, "a closed graph has no deadline");
    require(seek_->due.has_value() && seek_->poll.interval > 0, "an open graph polls");
}
