// The page of the options dialog for colours and font, with a preview.
#pragma once

#include "settings/OptionChoices.h"
#include "settings/OptionsRoads.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QRadioButton>
#include <QWidget>

#include <array>
#include <string>

class QGridLayout;
class QPushButton;

// The preview is the working copy.
class LookPage : public QWidget {
    Q_OBJECT
public:
    // Where the dialog's frame has its corner, which that of the board colours takes. `roads` must outlive the page.
    LookPage(const OptionsRoads& roads, QWidget* parent);

    // Runs the colour dialog from the colour given; false, and the colour as it was, on Cancel. The page may be gone
    // afterwards, and false is given then too.
    bool zColorPick(std::int32_t& color);

    // Puts the colours and the font of the preview into modChess.
    void takeLook() const;
    // The same of the graph's colours.
    void takeGraph() const;

private:
    QWidget* buildConsole();
    void buildPreview(QWidget* frame, QGridLayout& grid);
    QLabel* previewLabel(QWidget* frame, const char* name, const char* caption);
    QWidget* buildGraph();
    QLayout* buildSchemes();
    QPushButton* buildBoardColors();
    void pick(std::int32_t ConsoleColors::*color);
    void chooseScheme(int index);
    void chooseGraph(bool white);
    void showLook();

    const OptionsRoads& roads_;
    ConsoleColors colors_ = consoleColors();
    std::string font_;
    QFrame* picMain_ = nullptr;
    std::array<QLabel*, 4> texts_{}; // lblMain and the three below it
    QLabel* lblType_ = nullptr;
    std::array<QRadioButton*, 2> optSeekColors_{};
    QComboBox* cboDefaults_ = nullptr;
};
