// The page of the options dialog for moves, games and clocks.
#pragma once

#include "settings/OptionBoxes.h"

#include <QComboBox>
#include <QLabel>
#include <QWidget>

// All but the seconds of the warning, which go into modChess with every change, is a working copy.
class GamesPage : public QWidget {
    Q_OBJECT
public:
    explicit GamesPage(QWidget* parent);

    // Puts the options into modChess; the delay only if one is chosen.
    void take() const;

private:
    QWidget* buildMoves();
    QLayout* buildSlip(QWidget* frame);
    QWidget* buildGames();
    QLayout* buildWarning(QWidget* frame);
    void enableSlip(bool enabled);

    OptionBoxes boxes_;
    QLabel* lblSlip_ = nullptr;
    QComboBox* cboSlip_ = nullptr;
};
