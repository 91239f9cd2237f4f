// A box of the self check: an empty one, or a number that clicks and keys count up and down.
#pragma once

#include "panels/SelfCheckSheet.h"

#include <QLineEdit>

// By keyboard: digits, Up and Down, which count as the buttons do, Backspace and Delete. Assistive tools find a spin
// box, whose value is "empty" or the number.
class TallyBox : public QLineEdit {
    Q_OBJECT
public:
    // Shows `tally`, one of the sheet's, which outlives the box.
    TallyBox(SelfCheckSheet& sheet, SelfCheckSheet::Tally& tally, const QString& name, QWidget* parent);

    // Gives the box a number; one below 0 changes nothing.
    void take(int number);
    // The sheet's number has changed.
    void showTally();
    const SelfCheckSheet::Tally& tally() const { return tally_; }

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool answerKey(const QKeyEvent& event);

    SelfCheckSheet& sheet_;
    SelfCheckSheet::Tally& tally_;
};
