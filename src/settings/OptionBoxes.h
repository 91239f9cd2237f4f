// Tick boxes of the options dialog.
#pragma once

#include "settings/OptionChoices.h"

#include <QCheckBox>

#include <utility>
#include <vector>

// The boxes of one page and the options that they give back.
struct OptionBoxes {
    // Makes the box of an option, as a child of `parent`; it shows the option's value, or no tick where it refuses
    // that.
    QCheckBox* add(QWidget* parent, const TickOption& option);

    // Puts 0 or 1 into each option.
    void take() const;

private:
    std::vector<std::pair<QCheckBox*, std::int16_t ModChess::*>> boxes_;
};
