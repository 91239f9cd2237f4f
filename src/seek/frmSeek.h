// The seek graph: the server's open seeks as dots, by playing time and rating.
#pragma once

#include "platform/ElidedLabel.h"
#include "seek/SeekGraph.h"
#include "seek/SeekPlot.h"
#include "seek/SeekPoll.h"
#include "seek/SeekRoads.h"
#include "settings/WindowPlacer.h"

#include <QPushButton>
#include <QTimer>
#include <QWidget>

class QKeyEvent;
class QMenu;

// Polls the server while it is open. One at most; in openWindows from its load until it closes, and deletes itself
// after closing. What is typed in it goes on in the console's typing line.
class frmSeek : public QWidget {
    Q_OBJECT
public:
    explicit frmSeek(const SeekRoads& roads);
    ~frmSeek() override;

    // Tells the server to announce no seeks, takes its place, size and look, and begins to poll. Not shown yet.
    void load();
    // An answer is complete: draws it.
    void zGraph();
    // Lays the graph out for the window's size, and gives the window the size of whole cells.
    void zSize();

    // In twips; of one that is not loaded the start values.
    WindowPlace place() const { return placer_.place(); }
    static WindowPlace startPlace();

    // Opens the graph, or brings the one that is open to the front; `roads` are for a new one.
    static void showIt(const SeekRoads& roads);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SeekGraphHooks graphHooks();
    SeekPollHooks pollHooks();
    void build();
    void buildMenu();
    void takeColors();
    void fitFonts();
    void arrange();
    void present();
    bool answerKey(const QKeyEvent& event);
    void pressed(int dot, Qt::MouseButton button);
    void pointedAt(int dot);
    void play(int number);
    void cmdSeekClick();
    void mnuMatch();

    const SeekRoads& roads_;
    WindowPlacer placer_{this};
    SeekGraph graph_{roads_.ads, graphHooks()};
    SeekPoll poll_{pollHooks()};
    QTimer tmrSeek_;
    SeekPlot* plot_ = nullptr;
    QPushButton* cmdSeek_ = nullptr;
    QWidget* cmddummy_ = nullptr; // has the focus while nothing else does
    ElidedLabel* stbSeek_ = nullptr;
    QMenu* mnuCmd_ = nullptr;
    std::string PopupName_; // the seeker under the last right click
    QSize laidOut_;         // the window's size that the graph was laid out for
    int below_ = 0;         // pixels, what the graph leaves below itself
    bool SizeBusy_ = false;
    bool NeedResize_ = false;
    bool userCloses_ = true;
    bool closed_ = false;
};
