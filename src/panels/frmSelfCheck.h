// The self check: what a player has to count before each move.
#pragma once

#include "panels/SelfCheckSheet.h"

#include <QWidget>

#include <vector>

class QBoxLayout;
class QCheckBox;
class QGroupBox;
class TallyBox;

// Holds the boards' moves back until its sheet is done; closing it frees them. One at most; in openWindows from its
// construction until it closes, and deletes itself after closing.
class frmSelfCheck : public QWidget {
    Q_OBJECT
public:
    frmSelfCheck();
    ~frmSelfCheck() override;

    SelfCheckSheet sheet;

    // Opens the panel beside `board`, or brings the one that is open to the front.
    static frmSelfCheck& showIt(const QWidget* board);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QGroupBox* buildFrame(const char* boxName, const QString& caption, const QString& spoken,
                          SelfCheckSheet::Tallies& tallies);
    void showSheet();
    void fitFrames(const QSize& screen);

    QCheckBox* chkForced_ = nullptr;
    QBoxLayout* frames_ = nullptr;
    std::vector<TallyBox*> boxes_;
};
