// The page of the options dialog for the sounds.
#include "settings/SoundsPage.h"

#include "platform/NamedControl.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

SoundsPage::SoundsPage(const OptionsRoads& roads, QWidget* parent) : QWidget(parent), roads_(roads) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(boxes_.add(this, UseSounds));
    auto* frame = new QGroupBox(tr("Events"), this);
    auto* grid = new QGridLayout(frame);
    for (std::size_t row = 0; row < rows_.size(); ++row) rows_[row] = buildRow(*grid, soundOptions[row]);
    QCheckBox* arrival = boxes_.add(frame, ArrivalSound);
    connect(arrival, &QCheckBox::toggled, this, [this](bool ticked) {
        if (ticked) roads_.testBeep();
    });
    grid->addWidget(arrival, grid->rowCount(), 0);
    grid->setColumnStretch(3, 1);
    column->addWidget(frame);
    column->addStretch();
}

// Filled before it is listened to, which sounds nothing. An assistive tool that ticks or chooses clicks nothing, so the
// change is what counts.
SoundsPage::Row SoundsPage::buildRow(QGridLayout& grid, const SoundOption& option) {
    QWidget* frame = grid.parentWidget();
    auto* box = named(new QCheckBox(QString::fromLatin1(option.caption), frame), option.name);
    box->setChecked(soundSettingOf(modChess.*option.held).ticked);
    auto* choices = new QButtonGroup(this);
    const int row = grid.rowCount();
    grid.addWidget(box, row, 0);
    for (const int index : {0, 1}) {
        QRadioButton* choice = buildChoice(frame, option, index);
        choice->setAccessibleName(QString(box->text() + QStringLiteral(": ") + choice->text()).remove(u'&'));
        choices->addButton(choice, index);
        grid.addWidget(choice, row, 1 + index);
    }
    connect(box, &QCheckBox::toggled, this, [=, this](bool ticked) {
        if (ticked) test(choices->checkedId() == 1, option.tickedWave);
    });
    return {box, choices};
}

// One that is chosen already is pressed to be heard again.
QRadioButton* SoundsPage::buildChoice(QWidget* frame, const SoundOption& option, int index) {
    const bool second = index == 1;
    auto* choice = new QRadioButton(QString::fromLatin1(second ? option.second : option.first), frame);
    choice->setObjectName(QStringLiteral("%1(%2)").arg(QString::fromLatin1(option.choices)).arg(index));
    choice->setChecked(soundSettingOf(modChess.*option.held).second == second);
    const auto play = [this, second, wave = option.changedWave](bool chosen) {
        if (chosen) test(second, wave);
    };
    connect(choice, &QRadioButton::toggled, this, play);
    connect(choice, &QRadioButton::pressed, this, [=] { play(choice->isChecked()); });
    return choice;
}

void SoundsPage::test(bool wave, const char* name) const {
    if (wave) {
        roads_.testWave(name);
    } else {
        roads_.testBeep();
    }
}

void SoundsPage::take() const {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        modChess.*soundOptions[row].held =
            soundSwitchOf({rows_[row].box->isChecked(), rows_[row].choices->checkedId() == 1});
    }
    boxes_.take();
}
