// The parts of a board window and where they stand.
#include "board/BoardParts.h"

#include <QStatusBar>
#include <QStyle>

namespace {

constexpr int BugHeight = 16; // pixels, a line of holdings
constexpr int ClockHeight = 24;
constexpr int ButtonHeight = 21;
constexpr int TellWidth = 17;
constexpr int TellHeight = 22;
constexpr int Gap = 2;
constexpr int BugWidth = 130;
constexpr int RowsAtLeast = 40; // pixels of the grid, whatever the window

QFont smaller(const QWidget* widget) {
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    return font;
}

template <typename Button>
Button* button(QWidget* parent, const QString& name, const QString& caption) {
    auto* made = new Button(parent);
    made->setObjectName(name);
    made->setText(caption);
    made->setFocusPolicy(Qt::NoFocus);
    made->setFont(smaller(parent));
    return made;
}

QString tellCaption(std::size_t index) { return QString::number((index + 1) % 10); }

} // namespace

void BoardParts::build(QWidget* inner, QStatusBar* stbGame, MoveGridState& moves) {
    picChess = new BoardView(inner);
    picChess->setObjectName(QStringLiteral("picChess"));
    grdMoves = new MoveGrid(moves, inner);
    for (int side = 0; side < 2; ++side) {
        lblTime[side] = new ClockFace(side, inner);
        lblBug[side] = new QLabel(inner);
        lblBug[side]->setObjectName(QStringLiteral("lblBug(%1)").arg(side));
        lblBug[side]->setTextFormat(Qt::PlainText);
        lblBug[side]->hide();
    }
    lblMove = new QLabel(inner);
    lblMove->setObjectName(QStringLiteral("lblMove"));
    lblMove->setTextFormat(Qt::PlainText);
    lblMove->setAutoFillBackground(true); // it changes at every move, and the panel below it need not be painted
    cmdUn = button<QPushButton>(inner, QStringLiteral("cmdUn"), QStringLiteral("Unobserve"));
    cmdUn->hide();
    cmdDraw = button<QPushButton>(inner, QStringLiteral("cmdDraw"), QStringLiteral("Draw"));
    cmdRes = button<QPushButton>(inner, QStringLiteral("cmdRes"), QStringLiteral("Resign"));
    static constexpr std::array Pictures{QStyle::SP_MediaSkipBackward, QStyle::SP_MediaSeekBackward,
                                         QStyle::SP_MediaStop, QStyle::SP_MediaSeekForward,
                                         QStyle::SP_MediaSkipForward};
    static constexpr std::array Names{"First position", "Back", "", "Forward", "Last position"};
    for (std::size_t index = 0; index < cmdScroll.size(); ++index) {
        cmdScroll[index] = button<QToolButton>(inner, QStringLiteral("cmdScroll(%1)").arg(index), QString());
        cmdScroll[index]->setAccessibleName(QString::fromLatin1(Names[index]));
        cmdScroll[index]->setAutoRaise(true);
        if (index != 2) cmdScroll[index]->setIcon(inner->style()->standardIcon(Pictures[index]));
    }
    for (std::size_t index = 0; index < cmdTell.size(); ++index) {
        cmdTell[index] = button<QToolButton>(inner, QStringLiteral("cmdTell(%1)").arg(index), tellCaption(index));
    }
    txtSend = new TypingLine(inner);
    for (int panel = 0; panel <= panels.last; ++panel) {
        panels[panel] = new QLabel(stbGame);
        panels[panel]->setObjectName(QStringLiteral("stbGame(%1)").arg(panel + 1));
        panels[panel]->setTextFormat(Qt::PlainText);
        stbGame->addWidget(panels[panel], panel == 1 ? 1 : 0);
    }
}

void BoardParts::place(QSize inner, int square, bool flipped) {
    const int board = 8 * square + 4;
    const int top = BugHeight + Gap;
    const int panel = inner.width() - PanelWidth;
    const int grid = std::max(RowsAtLeast, inner.height() - PanelHeight);
    picChess->setGeometry(0, top, board, board);

    const int foot = top + board + Gap;
    lblBug[flipped ? 0 : 1]->setGeometry(0, 0, board, BugHeight);
    lblBug[flipped ? 1 : 0]->setGeometry(0, foot, BugWidth, ButtonHeight);
    cmdUn->setGeometry(BugWidth, foot, 76, ButtonHeight);
    const int typing = std::max(BugWidth, inner.width() * 42 / 100);
    txtSend->setGeometry(typing, foot, inner.width() - typing, ButtonHeight);

    const int tell = std::min(TellHeight, (board - 9 * Gap) / 10);
    for (std::size_t index = 0; index < cmdTell.size(); ++index) {
        cmdTell[index]->setGeometry(board + Gap, top + static_cast<int>(index) * (tell + Gap), TellWidth - Gap, tell);
    }

    lblMove->setGeometry(panel, 0, PanelWidth, BugHeight);
    const int half = PanelWidth / 2;
    lblTime[0]->setGeometry(panel, top, half - 1, ClockHeight);
    lblTime[1]->setGeometry(panel + half + 1, top, PanelWidth - half - 1, ClockHeight);
    grdMoves->setGeometry(panel, top + ClockHeight + Gap, PanelWidth, grid);

    const int row = top + ClockHeight + Gap + grid + Gap;
    constexpr int Arrow = 17;
    for (std::size_t index = 0; index < cmdScroll.size(); ++index) {
        cmdScroll[index]->setGeometry(panel + static_cast<int>(index) * Arrow, row, Arrow, ButtonHeight);
    }
    const int rest = panel + 5 * Arrow + Gap;
    cmdDraw->setGeometry(rest, row, 33, ButtonHeight);
    cmdRes->setGeometry(rest + 33 + Gap, row, inner.width() - rest - 33 - Gap, ButtonHeight);
}

void BoardParts::zSolveConflict(QWidget* control) const {
    constexpr int Clearance = 4;
    control->setVisible(control->x() + control->width() + Clearance < txtSend->x());
}
