// Reads the server's answer to "sought".
#include "seek/SoughtCapture.h"

#include "common/Fault.h"
#include "common/Numbers.h"
#include "common/Text.h"

#include <string_view>

namespace {

constexpr std::int16_t Untimed = 240; // minutes

//  12 1711 GUILTYKING          2   0 rated   crazyhouse             0-9999
bool hasLengthOfAd(std::string_view line) { return line.size() > 70 && line.size() < 80; }

bool isCountLine(std::string_view line) { return contains(line, "ads displayed."); }

// Some tables have their columns one further to the right.
long shiftOf(std::string_view line) { return mid(line, 10, 1) == " " ? 1 : 0; }

std::int16_t numberAt(std::string_view line, long column, long length) {
    return toInt16(leadingNumber(mid(line, column, length)));
}

std::int16_t ratingOf(std::string_view line) {
    const std::string_view text = mid(line, 5, 4);
    return text == "++++" || text == "----" ? std::int16_t{-1} : toInt16(leadingNumber(text));
}

// By its text: 1000 sorts before 999.
bool isAdNumber(std::int16_t number) {
    const std::string text = std::to_string(number);
    return text >= "0" && text <= "999";
}

bool isAccepted(std::string_view line, const SeekAd& ad, long shift) {
    return isAdNumber(ad.AdNumber) && ad.AdRating != 0 && (ad.AdTime != 0 || ad.AdInc != 0) &&
           mid(line, 31 + shift, 1) == " " && mid(line, 35 + shift, 1) == " ";
}

// Fills all but AdComputer; gives how far the columns behind the name have moved.
long readAd(std::string_view line, SeekAd& ad) {
    long shift = shiftOf(line);
    ad.AdNumber = numberAt(line, 1, 3);
    ad.AdRating = ratingOf(line);
    ad.AdName = trim(mid(line, 10 + shift, 18));
    if (const auto length = static_cast<long>(ad.AdName.size()); length > 17) shift += length - 17;
    ad.AdTime = numberAt(line, 28 + shift, 3);
    ad.AdInc = numberAt(line, 32 + shift, 3);
    ad.AdRated = trim(mid(line, 36 + shift, 8));
    ad.AdType = trim(mid(line, 44 + shift, 20));
    if (lower(ad.AdType) == "untimed") ad.AdTime = Untimed;
    const std::string_view range = mid(line, 64 + shift);
    ad.AdRange = range.substr(0, range.size() - 2);
    return shift;
}

// What is not accepted stands in the entry until the next line overwrites it; it needs none.
void takeAd(SeekTable& table, const std::string& line, const std::function<void()>& zClearLines) {
    const std::int32_t entry = table.SeekAdCount;
    SeekAd ad;
    const long shift = readAd(line, ad);
    const bool accepted = isAccepted(line, ad, shift);
    if (accepted) {
        zClearLines();
        ad.AdComputer = contains(ad.AdName, "(C)");
    } else if (entry < 0 || entry > table.SeekAds.last) {
        return;
    } else {
        ad.AdComputer = table.SeekAds[entry].AdComputer;
    }
    table.SeekAds[entry] = ad;
    if (accepted) ++table.SeekAdCount;
}

bool mayBelong(const std::string& line) {
    if (!hasLengthOfAd(line)) return isCountLine(line);
    const long shift = shiftOf(line);
    SeekAd ad;
    ad.AdNumber = numberAt(line, 1, 3);
    ad.AdRating = ratingOf(line);
    ad.AdTime = numberAt(line, 28 + shift, 3);
    ad.AdInc = numberAt(line, 32 + shift, 3);
    return isAccepted(line, ad, shift);
}

} // namespace

bool zSoughtLine(const std::string& line) {
    bool belongs = false;
    passOver([&] { belongs = mayBelong(line); });
    return belongs;
}

bool zSoughtLines(SeekTable& table, const std::string& line, const std::function<void()>& zClearLines) {
    if (hasLengthOfAd(line)) {
        takeAd(table, line, zClearLines);
        return false;
    }
    if (!isCountLine(line)) return false;
    const double count = leadingNumber(line);
    zClearLines();
    if (count < table.SeekAdCount) table.SeekAdCount = toInt32(count);
    return true;
}
