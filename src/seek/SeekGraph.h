// The dots of the seek graph: where each ad stands, how it looks, and which one lies under the pointer.
#pragma once

#include "common/Needed.h"
#include "seek/GraphGeometry.h"
#include "seek/SeekAds.h"

#include <cstdint>
#include <string>

// A dot as it was drawn last: the circle's upper left corner in twips, CellSize wide and high.
struct SeekDot {
    double Left = 0;
    double Top = 0;
    std::int32_t color = 0; // 0xBBGGRR
    bool filled = false;    // a ring otherwise
    bool shown = false;
    std::int16_t AdNumber = 0; // that it was drawn for
};

struct SeekGraphHooks {
    Needed<void(const std::string& caption)> setCaption;
    // The dots are drawn: the poll goes on from here.
    Needed<void()> answered;
};

// Draws what `ads` holds whenever an answer is complete.
struct SeekGraph {
    SeekGraph(SeekTable& table, SeekGraphHooks reachedOut) : ads(table), hooks(std::move(reachedOut)) {}

    SeekTable& ads;
    SeekGraphHooks hooks;
    GraphGeometry geometry;
    FixedArray<SeekDot, 200> dots;
    // The dots' centres: in cells while they are placed, then in twips.
    FixedArray<std::int32_t, 200> SeekX{};
    FixedArray<std::int32_t, 200> SeekY{};
    std::int32_t DotsDrawn = 0; // ads that the latest drawing had

    // Places a dot for each ad, hides the others, and empties the table. A fault ends it silently where it happens.
    void zGraph();

    // The index of the first dot around a point (twips), -1 for none. The dot's ad is what the table holds there now.
    int dotAt(double x, double y) const;

private:
    void place(long index);
    std::int32_t columnOf(double minutes) const;
    void moveOffEarlier(long index);
    void draw(long index);
};
