// The dialog for the colours of the boards.
#pragma once

#include "view/BoardColors.h"
#include "view/ColorSample.h"
#include "view/PieceSets.h"

#include <QDialog>
#include <QFrame>

#include <functional>

class QPushButton;

// Works on colours of its own; nothing outside changes before zSave. One at most; in openWindows from its construction
// until it closes, and deletes itself after closing.
class frmBoardColors : public QDialog {
    Q_OBJECT
public:
    // Takes the program's four colours. Not shown yet.
    frmBoardColors();
    ~frmBoardColors() override;

    // Draws the samples from the dialog's colours.
    void zDraw();
    // Draws a frame into the sample, round the square with its top left pixel at (x,y).
    void zHL(int x, int y, std::int32_t colour);
    // Puts seven keyed images of the dialog's colours behind the twelve pieces of list 0 to 25, in place of those that
    // stood there; faults (subscript) on any other list.
    void zBuildMasks(PieceSets& pieces, int list) const;
    // For each open board: the images, then the program's colours, then its repaint. Does nothing without
    // a board. A fault ends it silently.
    void zSave();

    // The dialog that is loaded, a new one if none is.
    static frmBoardColors& loaded();
    // Opens the dialog at a point of the screen, or brings the one that is open there, in front and not minimised.
    static void showAt(QPoint place);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override { close(); } // Escape and Cancel

private:
    QWidget* buildSample();
    QLayout* buildButtons();
    QLayout* buildColors();
    QPushButton* button(const QString& name, const QString& caption, const std::function<void()>& answer);
    void drawHighlights();
    void cmdColor(int index);
    void cmdTest();
    void cmdOK();

    BoardColors colors_;
    ColorSample* picSquares_ = nullptr;
    ColorSample* picHL_ = nullptr;
    FixedArray<QFrame*, 3> swatches_;
};
