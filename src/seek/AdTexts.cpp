// What the graph says and shows of an ad.
#include "seek/AdTexts.h"

#include "common/Text.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::int32_t Normal = 0x808000; // 0xBBGGRR, as the others
constexpr std::int32_t Computer = 255;
constexpr std::int32_t Variant = 0xFF00FF;

// "wild/fr", "bughouse", "crazyhouse", "fischerandom", "suicide", "style"
bool isVariant(const std::string& type) {
    static constexpr std::array<std::string_view, 6> Beginnings{"wild", "bugh", "craz", "fisc", "suic", "styl"};
    const std::string front = lower(mid(type, 1, 4));
    return std::ranges::find(Beginnings, front) != Beginnings.end();
}

} // namespace

std::string adText(const SeekAd& ad) {
    return ad.AdName + " (" + std::to_string(ad.AdRating) + ") seeks " + ad.AdType + " " + std::to_string(ad.AdTime) +
           " " + std::to_string(ad.AdInc) + " " + ad.AdRated + " " + ad.AdRange;
}

std::string seekerOf(const SeekAd& ad) {
    const long mark = find(1, ad.AdName, "(");
    return mark > 2 ? ad.AdName.substr(0, static_cast<std::size_t>(mark) - 1) : ad.AdName;
}

std::int32_t dotColor(const SeekAd& ad) {
    if (isVariant(ad.AdType)) return Variant;
    return ad.AdComputer ? Computer : Normal;
}

bool dotFilled(const SeekAd& ad) { return ad.AdRated == "rated"; }
