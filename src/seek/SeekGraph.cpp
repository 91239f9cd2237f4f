// The dots of the seek graph.
#include "seek/SeekGraph.h"

#include "common/Fault.h"
#include "common/Numbers.h"
#include "seek/AdTexts.h"

#include <cmath>

void SeekGraph::zGraph() {
    passOver([this] {
        const std::int32_t count = ads.SeekAdCount;
        for (long index = 0; index < count; ++index) place(index);
        hooks.setCaption("Seek Graph (" + std::to_string(count) + " Ads)");
        for (long index = 0; index < count; ++index) draw(index);
        for (long index = std::max(count, 0); index <= dots.last; ++index) dots[index].shown = false;
        hooks.answered();
        DotsDrawn = count;
        ads.SeekAdCount = 0;
    });
}

// A game of no time has no column: its dot stays where it was.
void SeekGraph::place(long index) {
    SeekAd& ad = ads.SeekAds[index];
    if (ad.AdRating == -1) ad.AdRating = 0;
    const double minutes = ad.AdTime + 2 * ad.AdInc / 3.0;
    if (minutes == 0) return;
    if (minutes < 0) throw Fault(FaultKind::Overflow, "a playing time below 0 has no logarithm");
    SeekX[index] = columnOf(minutes);
    SeekY[index] = toInt32(GraphGeometry::rowOf(ad.AdRating));
    moveOffEarlier(index);
}

// On the right side of the lines of 3 and 15 minutes, by one cell at most, and inside the graph.
std::int32_t SeekGraph::columnOf(double minutes) const {
    std::int32_t x = toInt32(geometry.columnOf(minutes));
    const auto left = [&] { return static_cast<double>(x) * geometry.CellSize; };
    if (minutes >= 15) {
        if (left() < geometry.Line15X) ++x;
    } else if (minutes >= 3) {
        if (left() > geometry.Line15X) {
            --x;
        } else if (left() < geometry.Line3X) {
            ++x;
        }
    } else if (left() > geometry.Line3X) {
        --x;
    }
    if (left() > geometry.RightX) return toInt32(static_cast<double>(geometry.RightX) / geometry.CellSize - 1);
    return x < 0 ? 1 : x;
}

// One pass, so that a third dot may still cover one that has moved.
void SeekGraph::moveOffEarlier(long index) {
    for (long earlier = 0; earlier < index; ++earlier) {
        if (SeekX[earlier] == SeekX[index] && SeekY[earlier] == SeekY[index]) --SeekY[index];
    }
}

void SeekGraph::draw(long index) {
    const SeekAd& ad = ads.SeekAds[index];
    const double half = geometry.CellSize / 2.0;
    SeekX[index] = toInt32(static_cast<double>(SeekX[index]) * geometry.CellSize);
    SeekY[index] = toInt32(static_cast<double>(SeekY[index]) * geometry.CellSize);
    dots[index] = {SeekX[index] - half, SeekY[index] - half, dotColor(ad), dotFilled(ad), true, ad.AdNumber};
}

int SeekGraph::dotAt(double x, double y) const {
    const double half = geometry.CellSize / 2.0;
    for (int index = 0; index < DotsDrawn; ++index) {
        if (std::abs(x - SeekX[index]) < half && std::abs(y - SeekY[index]) < half) return index;
    }
    return -1;
}
