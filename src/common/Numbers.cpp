// Text to numbers, in the lenient kind and the strict kind, and numbers to narrower numbers.
#include "common/Numbers.h"

#include "common/Fault.h"
#include "common/Text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>
#include <string>

namespace {

struct Prefix {
    double value = 0;
    std::size_t length = 0; // characters used, leading blanks included; 0 for no number
};

// from_chars takes no plus sign and would take "inf", "nan" and hexadecimal words; a number here begins with a digit or
// a point.
Prefix numberAtFront(std::string_view text) {
    std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return {};
    std::size_t digits = start;
    if (text[digits] == '+' || text[digits] == '-') ++digits;
    if (digits >= text.size()) return {};
    const bool point = text[digits] == '.';
    const std::size_t first = point ? digits + 1 : digits;
    if (first >= text.size() || text[first] < '0' || text[first] > '9') return {};
    Prefix prefix;
    const auto result = std::from_chars(text.data() + digits, text.data() + text.size(), prefix.value);
    prefix.length = static_cast<std::size_t>(result.ptr - text.data());
    if (result.ec == std::errc::result_out_of_range) {
        const bool tooSmall = lower(text.substr(digits, prefix.length - digits)).find("e-") != std::string::npos;
        prefix.value = tooSmall ? 0 : std::numeric_limits<double>::max();
    }
    if (text[start] == '-') prefix.value = -prefix.value;
    return prefix;
}

double strictNumber(std::string_view text) {
    const std::string_view trimmed = trim(text);
    const Prefix prefix = numberAtFront(trimmed);
    if (prefix.length == 0 || prefix.length != trimmed.size()) {
        throw Fault(FaultKind::TypeMismatch, "\"" + std::string(text.substr(0, 80)) + "\" is no number");
    }
    return prefix.value;
}

template <typename Field>
Field narrow(double value) {
    const double whole = roundHalfEven(value);
    if (!(whole >= std::numeric_limits<Field>::min() && whole <= std::numeric_limits<Field>::max())) {
        std::ostringstream text;
        text << "the number " << value << " does not fit a field of " << 8 * sizeof(Field) << " bits";
        throw Fault(FaultKind::Overflow, text.str());
    }
    return static_cast<Field>(whole);
}

} // namespace

double leadingNumber(std::string_view text) { return numberAtFront(text).value; }

double roundHalfEven(double value) { return std::nearbyint(value); }

std::int16_t toInt16(double value) { return narrow<std::int16_t>(value); }

std::int32_t toInt32(double value) { return narrow<std::int32_t>(value); }

std::int16_t strictInt16(std::string_view text) { return toInt16(strictNumber(text)); }

std::int32_t strictInt32(std::string_view text) { return toInt32(strictNumber(text)); }

bool strictBool(std::string_view text) {
    const std::string word = lower(trim(text));
    if (word == "true") return true;
    if (word == "false") return false;
    return strictNumber(text) != 0;
}
