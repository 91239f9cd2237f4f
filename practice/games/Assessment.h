// What a rated game between two players would be worth.
#pragma once

#include <array>
#include <string>

namespace practice {

// One of two players who are compared.
struct Rated {
    std::string name;
    int rating = 0; // 0 for none
};

// What the first of two ratings gains by a win, a draw and a loss, in whole points. The other's gain is the opposite.
std::array<int, 3> ratingGains(int rating, int opponent);

// The table of "assess"; a player without a rating counts as `ratingOfNewcomers`. The last line has no end.
inline constexpr int ratingOfNewcomers = 1500;
std::string assessmentTable(const Rated& first, const Rated& second);

} // namespace practice
