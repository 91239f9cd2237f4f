// What a rated game between two players would be worth.
#include "practice/games/Assessment.h"

#include "practice/text/Text.h"

#include <algorithm>
#include <cmath>

namespace practice {

namespace {

constexpr double mostPoints = 32; // gained by beating somebody of an endless rating
constexpr double spread = 400;    // so much stronger wins ten points of eleven
constexpr std::size_t cellWidth = 8;

int counting(const Rated& player) { return player.rating == 0 ? ratingOfNewcomers : player.rating; }

std::string signedText(int points) { return (points > 0 ? "+" : "") + std::to_string(points); }

std::string row(const std::string& name, std::size_t nameWidth, const std::array<std::string, 3>& cells) {
    std::string text = padRight(name, nameWidth);
    for (const std::string& cell : cells) text += padLeft(cell, cellWidth);
    return text;
}

std::string gainsRow(const std::string& name, std::size_t nameWidth, const std::array<int, 3>& gains) {
    return row(name, nameWidth, {signedText(gains[0]), signedText(gains[1]), signedText(gains[2])});
}

// "Driftwood (----)", or "Willow (1560)".
std::string withRating(const Rated& player) {
    return player.name + " (" + (player.rating == 0 ? "----" : std::to_string(player.rating)) + ")";
}

} // namespace

std::array<int, 3> ratingGains(int rating, int opponent) {
    const double expected = 1 / (1 + std::pow(10, (opponent - rating) / spread));
    const auto gain = [&](double score) { return static_cast<int>(std::lround(mostPoints * (score - expected))); };
    return {gain(1), gain(0.5), gain(0)};
}

std::string assessmentTable(const Rated& first, const Rated& second) {
    const auto gains = ratingGains(counting(first), counting(second));
    const std::size_t width = std::max(first.name.size(), second.name.size());
    std::string text =
        "A rated game of " + withRating(first) + " against " + withRating(second) + " would be worth:\n\n";
    text += row("", width, {"win", "draw", "loss"}) + "\n" + gainsRow(first.name, width, gains) + "\n" +
            gainsRow(second.name, width, {-gains[2], -gains[1], -gains[0]});
    if (first.rating == 0 || second.rating == 0)
        text += "\n\nWithout a rating one counts as " + std::to_string(ratingOfNewcomers) + ".";
    return text;
}

} // namespace practice
