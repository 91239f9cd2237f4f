// Where the seek graph has its lines and labels.
#include "seek/GraphGeometry.h"

#include "common/Numbers.h"
#include "common/Twips.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double LeastHeight = 1600;
constexpr double BesideGraph = 150;
constexpr double BelowGraph = 780; // the button and the status line
constexpr double TallTitleBar = 105;
constexpr double LabelMargin = 180;

constexpr double Rows = 25.5;
constexpr double BottomRow = 25;
constexpr double PointsToCell = 94;
constexpr double LowestRating = 600;
constexpr double RatingSpan = 2200;
constexpr double LeftColumns = 3;
constexpr double LongestTime = 60; // minutes, at the right end

constexpr double FullFontPoints = 10;
constexpr double FullFontWidth = 6450;
constexpr double WidthToPoint = 645;

} // namespace

std::int32_t GraphGeometry::zFigCz(Extent& window) {
    if (window.Height < LeastHeight) window.Height = LeastHeight;
    const double cell = TwipsPerPixelY * roundHalfEven((window.Height - BelowGraph) / Rows / TwipsPerPixelY);
    LogScale = static_cast<float>(((window.Width - BesideGraph) / cell - LeftColumns) / std::log(LongestTime));
    FontPoints = static_cast<float>(window.Width >= FullFontWidth ? FullFontPoints : window.Width / WidthToPoint);
    return toInt32(cell);
}

Extent GraphGeometry::zSize(Extent window, bool tallTitleBars) {
    CellSize = zFigCz(window);
    const double half = CellSize / 2.0;
    const auto lineOf = [&](double minutes) { return toInt32(roundHalfEven(columnOf(minutes)) * CellSize - half); };
    CellHalf = toInt32(half);
    Line3X = lineOf(3);
    Line15X = lineOf(15);
    RightX = toInt32(columnOf(LongestTime) * CellSize);
    BaseY = toInt32(CellSize * BottomRow + half);
    TopY = toInt32((BottomRow - RatingSpan / PointsToCell) * CellSize);
    const double extra = tallTitleBars ? TallTitleBar : 0;
    return {static_cast<float>(RightX + BesideGraph), static_cast<float>(BaseY + BelowGraph + extra)};
}

GraphGeometry::Corner GraphGeometry::zRatingY(int rating, Extent text) const {
    const double row = (LowestRating - rating) / PointsToCell + BottomRow;
    return {RightX + BesideGraph - text.Width - LabelMargin, row * CellSize - text.Height / 2.0};
}

double GraphGeometry::columnOf(double minutes) const { return LogScale * std::log(minutes) + LeftColumns; }

double GraphGeometry::rowOf(double rating) {
    return BottomRow - std::clamp(rating - LowestRating, 0.0, RatingSpan) / PointsToCell;
}
