// The sheet of the self check.
#include "panels/SelfCheckSheet.h"

#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <algorithm>

namespace {

constexpr std::int32_t LargestTyped = 999;

} // namespace

void SelfCheckSheet::load() {
    modChess.SelfCheckOpen = true;
    modChess.SelfCheckOK = false;
}

void SelfCheckSheet::unload() {
    modChess.SelfCheckOK = true;
    modChess.SelfCheckOpen = false;
}

void SelfCheckSheet::press(Tally& box, bool left) {
    if (!box) {
        box = 0;
    } else if (left) {
        ++*box;
    } else if (*box != 0) {
        --*box;
    }
    zEval();
}

void SelfCheckSheet::type(Tally& box, int digit) {
    const std::int32_t number = 10 * box.value_or(0) + digit;
    if (number <= LargestTyped) take(box, number);
}

void SelfCheckSheet::take(Tally& box, std::int32_t number) {
    if (number < 0) return;
    box = number;
    zEval();
}

void SelfCheckSheet::eraseDigit(Tally& box) {
    if (!box) return;
    box = *box < 10 ? Tally() : *box / 10;
    zEval();
}

void SelfCheckSheet::empty(Tally& box) {
    box.reset();
    zEval();
}

void SelfCheckSheet::force(bool ticked) {
    chkForced = ticked;
    modChess.SelfCheckOK = false;
    zEval();
}

void SelfCheckSheet::zEval() const {
    const auto filled = [](const Tally& box) { return box.has_value(); };
    const bool full = std::ranges::all_of(txtAgainst, filled) && std::ranges::all_of(txtBy, filled);
    if (chkForced || full) modChess.SelfCheckOK = true;
}

void SelfCheckSheet::zReset() {
    chkForced = false;
    txtAgainst = {};
    txtBy = {};
    modChess.SelfCheckOK = false;
    shownAnew();
}

void resetSelfCheck() {
    if (!modChess.SelfCheckOpen) return;
    for (const OpenWindow& open : openWindows.windows) {
        if (auto* const* sheet = std::any_cast<SelfCheckSheet*>(&open.content)) return (*sheet)->zReset();
    }
}
