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
    connect(arrival, &QCheckBox::clicked, this, [this](bool ticked) {
        if (ticked) roads_.testBeep();
    });
    grid->addWidget(arrival, grid->rowCount(), 0);
    grid->setColumnStretch(3, 1);
    column->addWidget(frame);
    column->addStretch();
}

// Only clicks sound, not the filling of the controls.
SoundsPage::Row SoundsPage::buildRow(QGridLayout& grid, const SoundOption& option) {
    const SoundSetting setting = soundSettingOf(modChess.*option.held);
    QWidget* frame = grid.parentWidget();
    auto* box = named(new QCheckBox(QString::fromLatin1(option.caption), frame), option.name);
    box->setChecked(setting.ticked);
    auto* choices = new QButtonGroup(this);
    const int row = grid.rowCount();
    grid.addWidget(box, row, 0);
    for (const int index : {0, 1}) {
        auto* choice = new QRadioButton(QString::fromLatin1(index == 0 ? option.first : option.second), frame);
        choice->setObjectName(QStringLiteral("%1(%2)").arg(QString::fromLatin1(option.choices)).arg(index));
        choice->setAccessibleName(QString(box->text() + QStringLiteral(": ") + choice->text()).remove(u'&'));
        choice->setChecked(setting.second == (index == 1));
        choices->addButton(choice, index);
        grid.addWidget(choice, row, 1 + index);
        connect(choice, &QRadioButton::clicked, this, [=, this] { test(index == 1, option.changedWave); });
    }
    connect(box, &QCheckBox::clicked, this, [=, this](bool ticked) {
        if (ticked) test(choices->checkedId() == 1, option.tickedWave);
    });
    return {box, choices};
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
