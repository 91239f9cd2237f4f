// Where the seek graph has its lines and labels: playing time to the right on a logarithmic scale, ratings upward.
#pragma once

#include "settings/Placement.h"

#include <cstdint>

// Twips, but for LogScale. Widths and heights of the window are of what its frame holds. Fields are wide enough for a
// screen of any size.
struct GraphGeometry {
    float LogScale = 12;       // cells to a unit of ln(minutes)
    float FontPoints = 10;     // of the labels
    std::int32_t CellSize = 0; // side of a cell, and of a dot
    std::int32_t CellHalf = 0; // left end of the base line
    std::int32_t Line3X = 0;   // the line of 3 minutes
    std::int32_t Line15X = 0;  // the line of 15 minutes
    std::int32_t RightX = 0;   // right end of the base line, and of 60 minutes
    std::int32_t BaseY = 0;    // the base line
    std::int32_t TopY = 0;     // upper end of the two vertical lines

    // The cell that suits a window, whose height is raised to 1600 at least; sets LogScale and FontPoints.
    std::int32_t zFigCz(Extent& window);

    // Lays the graph out for `window`; gives the size at which the window holds whole cells. The extra height goes with
    // tall title bars.
    Extent zSize(Extent window, bool tallTitleBars);

    // The upper left corner of a rating's label; `text` is the extent of "2000" in the font of the labels. The rating
    // is not kept to the scale.
    struct Corner {
        double X = 0;
        double Y = 0;
    };
    Corner zRatingY(int rating, Extent text) const;

    // The cell, counted from the left and from above, of a time in minutes above 0, and of a rating, which is kept to
    // 600 to 2800.
    double columnOf(double minutes) const;
    static double rowOf(double rating);
};
