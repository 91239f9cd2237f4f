// The page of the options dialog for the sounds.
#pragma once

#include "settings/OptionBoxes.h"
#include "settings/OptionsRoads.h"

#include <QButtonGroup>
#include <QWidget>

#include <array>

class QGridLayout;
class QRadioButton;

// What the user ticks or chooses can be heard at once.
class SoundsPage : public QWidget {
    Q_OBJECT
public:
    // `roads` must outlive the page.
    SoundsPage(const OptionsRoads& roads, QWidget* parent);

    // Puts the switches into modChess.
    void take() const;

private:
    struct Row {
        QCheckBox* box = nullptr;
        QButtonGroup* choices = nullptr; // 0 the beep, 1 the wave file
    };

    Row buildRow(QGridLayout& grid, const SoundOption& option);
    QRadioButton* buildChoice(QWidget* frame, const SoundOption& option, int index);
    void test(bool wave, const char* name) const;

    const OptionsRoads& roads_;
    OptionBoxes boxes_;
    std::array<Row, soundOptions.size()> rows_{};
};
