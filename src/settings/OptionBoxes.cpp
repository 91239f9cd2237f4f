// Tick boxes of the options dialog.
#include "settings/OptionBoxes.h"

#include "platform/NamedControl.h"

QCheckBox* OptionBoxes::add(QWidget* parent, const TickOption& option) {
    auto* box = named(new QCheckBox(QString::fromLatin1(option.caption), parent), option.name);
    box->setChecked(tickOf(modChess.*option.held).value_or(false));
    boxes_.emplace_back(box, option.held);
    return box;
}

void OptionBoxes::take() const {
    for (const auto& [box, held] : boxes_) modChess.*held = box->isChecked() ? 1 : 0;
}
