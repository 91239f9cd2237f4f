// The dialog that composes a challenge or a seek.
#pragma once

#include "common/Needed.h"
#include "seek/Challenge.h"
#include "settings/SettingsStore.h"
#include "settings/WindowPlacer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMargins>

class QSpacerItem;

// What the dialog needs of the rest of the program; outlives it. Both members must be given.
struct MatchRoads {
    SettingsStore store; // section "Match"
    // The console's zSendMsg; drops the line while not connected.
    Needed<void(const std::string& text)> zSendMsg;
};

// A challenge while modChess.MatchMode is up, a seek while it is down, as it stands at OK. One at most; in openWindows
// from its construction until it closes, and deletes itself after closing.
class frmMatch : public QDialog {
    Q_OBJECT
public:
    // Reads its values and place, and fills its controls. Not shown yet.
    explicit frmMatch(const MatchRoads& roads);
    ~frmMatch() override;

    // Takes the look of modChess.MatchMode and shows itself, in front and not minimised.
    void present();
    // Latin-1, into txtOpp.
    void setOpponent(const std::string& name);

    // The controls as they stand.
    Challenge challenge() const;

    // The eight values as they were at the last OK or at opening, and the place, in twips.
    const MatchSettings& fields() const { return fields_; }
    WindowPlace place() const { return placer_.place(); }

    // Opens the dialog, or brings the one that is open; `roads` are for a new one. Gives the dialog.
    static frmMatch& showIt(const MatchRoads& roads);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override { close(); } // Escape and Cancel

private:
    QWidget* buildOpponent();
    QWidget* buildTiming();
    QWidget* buildRating();
    QWidget* buildSettings();
    QLayout* buildButtons();
    void load();
    void fill();
    void enableByServer();
    void takeGuise();
    void cmdOK();

    const MatchRoads& roads_;
    WindowPlacer placer_{this};
    MatchSettings fields_;
    QMargins margins_;            // of a seek
    QWidget* opponent_ = nullptr; // the row of lblOpp and txtOpp
    QSpacerItem* gap_ = nullptr;  // below it
    QGroupBox* fraRating_ = nullptr;
    QLabel* lblTime_ = nullptr;
    QLabel* lblInc_ = nullptr;
    QLineEdit* txtOpp_ = nullptr;
    QLineEdit* txtTime_ = nullptr;
    QLineEdit* txtInc_ = nullptr;
    QLineEdit* txtMin_ = nullptr;
    QLineEdit* txtMax_ = nullptr;
    QCheckBox* chkRated_ = nullptr;
    QCheckBox* chkServer_ = nullptr;
    QComboBox* cboColor_ = nullptr;
    QComboBox* cboType_ = nullptr;
};
