// The parts of a board window and where they stand.
#include "board/BoardParts.h"

#include "board/Game.h"
#include "platform/Described.h"
#include "platform/FittingFont.h"

#include <QStatusBar>

#include <algorithm>
#include <utility>

namespace {

constexpr int BugHeight = 16; // pixels, a line of holdings
constexpr int BoardTop = BugHeight + 1;
constexpr int ClockHeight = 21;
constexpr int TypingHeight = 21;
constexpr int ScrollHeight = 20;
constexpr int ScrollWidth = 17;
constexpr int ScrollMiddle = 5; // cmdScroll(2) has no effect and no picture
constexpr int TellWidth = 18;
constexpr int TellHeight = 26;
constexpr int Gap = 2;
constexpr int BugWidth = 130;
constexpr int UnWidth = 76;

constexpr int LargestLetter = 12; // of a button, which has its size from the board and not from its caption

QFont smaller(const QWidget* widget) {
    QFont font = widget->font();
    font.setPixelSize(std::min(LargestLetter, qRound(QFontInfo(font).pixelSize() * 0.9)));
    return font;
}

template <typename Button>
Button* button(QWidget* parent, const QString& name, const QString& caption) {
    auto* made = new Button(parent);
    made->setObjectName(name);
    made->setText(caption);
    made->setFocusPolicy(Qt::TabFocus); // a click leaves the keys where they are
    made->setFont(smaller(parent));
    return made;
}

// A label of `height` pixels that assistive tools find by its name, its text to be read as its description.
ElidedLabel* readout(QWidget* parent, const QString& name, const QString& spoken, int height) {
    auto* label = new ElidedLabel(parent);
    label->setObjectName(name);
    label->setFont(fittingFont(label->font(), height));
    describe(label, QAccessible::StaticText, spoken, [label] { return label->text(); });
    return label;
}

constexpr std::array PanelShares{2, 6, 2}; // of stbGame's width

} // namespace

void BoardParts::build(QWidget* inner, QStatusBar* stbGame, Game& game) {
    picChess = new BoardView([&game](int square) { return game.Board[square]; }, inner);
    grdMoves = new MoveGrid(game.grdMoves, inner);
    for (int side = 0; side < 2; ++side) lblTime[side] = new ClockFace(side, inner);
    buildLabels(inner);
    buildButtons(inner);
    txtSend = new TypingLine(inner);
    orderTabs();
    for (int panel = 0; panel <= panels.last; ++panel) {
        panels[panel] = new ElidedLabel(stbGame);
        panels[panel]->setObjectName(QStringLiteral("stbGame(%1)").arg(panel + 1));
        panels[panel]->setFont(fittingFont(panels[panel]->font(), StatusHeight - 2));
        stbGame->addWidget(panels[panel], PanelShares[static_cast<std::size_t>(panel)]);
    }
}

void BoardParts::buildLabels(QWidget* inner) {
    for (int side = 0; side < 2; ++side) {
        lblBug[side] =
            readout(inner, QStringLiteral("lblBug(%1)").arg(side),
                    side == 0 ? QObject::tr("White's holdings") : QObject::tr("Black's holdings"), BugHeight);
        lblBug[side]->hide();
    }
    lblMove = readout(inner, QStringLiteral("lblMove"), QObject::tr("Last move"), BugHeight);
    lblMove->setAutoFillBackground(true); // it changes at every move, and the panel below it need not be painted
}

void BoardParts::buildButtons(QWidget* inner) {
    cmdUn = button<QPushButton>(inner, QStringLiteral("cmdUn"), QStringLiteral("&Unobserve"));
    cmdUn->hide();
    cmdDraw = button<QPushButton>(inner, QStringLiteral("cmdDraw"), QStringLiteral("&Draw"));
    cmdRes = button<QPushButton>(inner, QStringLiteral("cmdRes"), QStringLiteral("&Resign"));
    static constexpr std::array Names{"First position", "Back", "Stay at this position", "Forward", "Last position"};
    for (std::size_t index = 0; index < cmdScroll.size(); ++index) {
        cmdScroll[index] = button<StepButton>(inner, QStringLiteral("cmdScroll(%1)").arg(index), QString());
        cmdScroll[index]->setAccessibleName(QString::fromLatin1(Names[index]));
        cmdScroll[index]->setToolTip(QString::fromLatin1(Names[index]));
        cmdScroll[index]->setAutoRaise(true);
        cmdScroll[index]->step = static_cast<int>(index) - 2;
    }
    for (std::size_t index = 0; index < cmdTell.size(); ++index) {
        const QString digit = QString::number((index + 1) % 10);
        cmdTell[index] = button<QToolButton>(inner, QStringLiteral("cmdTell(%1)").arg(index), digit);
        cmdTell[index]->setAccessibleName(QObject::tr("Button command %1").arg(index + 1));
        cmdTell[index]->setShortcut(QKeySequence(QStringLiteral("Alt+") + digit));
    }
}

// From the command line to the buttons, the move list and the board and back.
void BoardParts::orderTabs() const {
    QWidget* last = txtSend;
    const auto next = [&last](QWidget* part) { QWidget::setTabOrder(std::exchange(last, part), part); };
    for (QToolButton* tell : cmdTell) next(tell);
    next(grdMoves);
    for (StepButton* scroll : cmdScroll) next(scroll);
    for (QPushButton* button : {cmdDraw, cmdRes, cmdUn}) next(button);
    next(picChess);
}

// The board's lower edge, the move buttons' and the last tell button's are one line; the command line stands below it.
void BoardParts::place(QSize inner, int square, bool flipped) {
    const int board = 8 * square + 2 * BoardView::BorderPixels;
    picChess->setGeometry(0, BoardTop, board, board);
    placeFoot(inner, BoardTop + board + Gap, board, flipped);
    const int tell = std::min(TellHeight, (board - 9 * Gap) / 10);
    for (std::size_t index = 0; index < cmdTell.size(); ++index) {
        const int y = BoardTop + static_cast<int>(index) * (tell + Gap);
        cmdTell[index]->setGeometry(board + Gap, y, TellWidth - Gap, tell);
    }
    placePanel(inner);
}

void BoardParts::placeFoot(QSize inner, int foot, int board, bool flipped) {
    lblBug[flipped ? 1 : 0]->setGeometry(0, 0, board, BugHeight);
    lblBug[flipped ? 0 : 1]->setGeometry(0, foot, BugWidth, TypingHeight);
    cmdUn->setGeometry(BugWidth + Gap, foot, UnWidth, TypingHeight);
    const int typing = std::max(BugWidth + Gap, inner.width() * 42 / 100);
    txtSend->setGeometry(typing, foot, inner.width() - typing, TypingHeight);
}

void BoardParts::placePanel(QSize inner) {
    using namespace BoardDesign;
    const int left = inner.width() - PanelWidth;
    const int half = PanelWidth / 2;
    lblMove->setGeometry(left, 0, PanelWidth, BugHeight);
    lblTime[0]->setGeometry(left, BoardTop, half - 1, ClockHeight);
    lblTime[1]->setGeometry(left + half + 1, BoardTop, PanelWidth - half - 1, ClockHeight);
    const int grid = BoardTop + ClockHeight + Gap;
    grdMoves->setGeometry(left, grid, PanelWidth, inner.height() - PanelHeight);

    const int row = grid + inner.height() - PanelHeight + Gap;
    int rest = left;
    for (std::size_t index = 0; index < cmdScroll.size(); ++index) {
        const int width = index == 2 ? ScrollMiddle : ScrollWidth;
        cmdScroll[index]->setGeometry(rest, row, width, ScrollHeight);
        rest += width;
    }
    rest += Gap;
    const int draw = (inner.width() - rest - Gap) * 43 / 100;
    cmdDraw->setGeometry(rest, row, draw, ScrollHeight);
    cmdRes->setGeometry(rest + draw + Gap, row, inner.width() - rest - draw - Gap, ScrollHeight);
}

void BoardParts::zSolveConflict(QWidget* control) const {
    constexpr int Clearance = 4;
    control->setVisible(control->x() + control->width() + Clearance < txtSend->x());
}
