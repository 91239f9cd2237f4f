// One who is logged on.
#include "practice/hall/Player.h"

#include "practice/text/Text.h"

namespace practice {

std::string Player::shortRating() const { return trim(rating); }

int Player::ratingValue() const { return number(trim(rating)).value_or(0); }

} // namespace practice
