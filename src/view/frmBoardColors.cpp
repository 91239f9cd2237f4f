// The dialog for the colours of the boards.
#include "view/frmBoardColors.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/Colors.h"
#include "platform/Described.h"
#include "platform/FramePlace.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "view/BoardGeometry.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

constexpr QSize SampleSize(160, 280); // pixels
constexpr int Bands = 4;
constexpr int SwatchWidth = 28;
constexpr int Gap = 8;
constexpr int MaskSide = 39;
constexpr std::int32_t MaskGreen = 32768;

BoardColor bandColor(int band) { return band % 2 == 0 ? BlackSquares : WhiteSquares; }

// Every piece stands on a black and on a white square.
void paintPieces(QPainter& painter, int firstImage, int firstBand) {
    const int list = choosePieceList(modChess.ChessSet, SampleSquare);
    const std::int16_t side = pieceListSize(list);
    BoardGeometry square;
    square.SquarePixels = SampleSquare;
    square.ImagePixels = side;
    const int offset = square.pieceOffset();
    const PieceImages& images = imlPieces.images(list, painter.device()->devicePixelRatioF());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int kind = 0; kind < PiecesInAList / 2; ++kind) {
        for (int band = firstBand; band < firstBand + 2; ++band) {
            const QPoint at(band * SampleSquare + offset, kind * SampleSquare + offset);
            painter.drawImage(QRect(at, QSize(side, side)), images[static_cast<std::size_t>(firstImage + kind)]);
        }
    }
}

// The scratch surface picSq; a frame one pixel wider than it loses its right and lower edges.
void buildMasks(const BoardColors& colors, PieceSets& pieces, int list) {
    pieces.removeAdded(list);
    QImage picSq(MaskSide, MaskSide, QImage::Format_RGB32);
    const auto fill = [&](const char* key, std::int32_t color) {
        picSq.fill(colorOf(color));
        pieces.add(list, QString::fromLatin1(key), picSq);
    };
    const auto frame = [&](const char* key, BoardColor color) {
        QPainter painter(&picSq);
        paintSampleFrame(painter, 0, 0, colorOf(colors[color]));
        painter.end();
        pieces.add(list, QString::fromLatin1(key), picSq);
    };
    fill("Sw", colors[WhiteSquares]);
    frame("Fw", PreMove);
    frame("Tw", NormalMove);
    fill("Sb", colors[BlackSquares]);
    frame("Fb", PreMove);
    frame("Tb", NormalMove);
    fill("Tf", MaskGreen);
}

} // namespace

frmBoardColors::frmBoardColors() : colors_(boardColors()) {
    setObjectName(QStringLiteral("frmBoardColors"));
    setWindowTitle(tr("Board Colors"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* row = new QHBoxLayout(this);
    row->addWidget(buildSample());
    row->addLayout(buildButtons());
    row->setSizeConstraint(QLayout::SetFixedSize);
    zDraw();
    openWindows.add({"frmBoardColors", this, [this] { close(); }});
}

frmBoardColors::~frmBoardColors() { openWindows.remove(this); }

QWidget* frmBoardColors::buildSample() {
    auto* frame = new QGroupBox(tr("All Pieces"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    picSquares_ = new ColorSample(frame, QStringLiteral("picSquares"), SampleSize, [this] { zDraw(); });
    picSquares_->setAccessibleName(tr("All pieces in the colours chosen"));
    (new QVBoxLayout(frame))->addWidget(picSquares_);
    return frame;
}

QLayout* frmBoardColors::buildButtons() {
    auto* column = new QVBoxLayout;
    column->addLayout(buildColors());
    picHL_ = new ColorSample(this, QStringLiteral("picHL"), {2 * SampleSquare, SampleSquare}, [this] { zDraw(); });
    picHL_->setAccessibleName(tr("Both highlights"));
    column->addSpacing(Gap);
    column->addWidget(picHL_, 0, Qt::AlignHCenter);
    column->addStretch();
    column->addWidget(button(QStringLiteral("cmdTest"), tr("&Default"), [this] { cmdTest(); }));
    column->addSpacing(Gap);
    QPushButton* ok = button(QStringLiteral("cmdOK"), tr("OK"), [this] { cmdOK(); });
    ok->setDefault(true);
    column->addWidget(ok);
    column->addWidget(button(QStringLiteral("cmdCancel"), tr("Cancel"), [this] { close(); }));
    return column;
}

// A button for each colour, the colour beside it.
QLayout* frmBoardColors::buildColors() {
    static constexpr std::array Captions{"&White Squares", "&Black Squares", "&Normal Move", "&Pre-Move"};
    auto* grid = new QGridLayout;
    for (int index = 0; index <= BoardColors::last; ++index) {
        swatches_[index] = new QFrame(this);
        swatches_[index]->setObjectName(QStringLiteral("swatch(%1)").arg(index));
        swatches_[index]->setFrameShape(QFrame::Box);
        swatches_[index]->setFixedWidth(SwatchWidth);
        swatches_[index]->setAutoFillBackground(true);
        grid->addWidget(swatches_[index], index, 0);
        const QString caption = QString::fromLatin1(Captions[static_cast<std::size_t>(index)]);
        describe(swatches_[index], QAccessible::Graphic, QString(caption).remove(u'&'),
                 [this, index] { return colorInWords(colors_[index]); });
        grid->addWidget(button(QStringLiteral("cmdColor(%1)").arg(index), caption, [this, index] { cmdColor(index); }),
                        index, 1);
    }
    return grid;
}

QPushButton* frmBoardColors::button(const QString& name, const QString& caption, const std::function<void()>& answer) {
    auto* made = new QPushButton(caption, this);
    made->setObjectName(name);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, answer);
    return made;
}

void frmBoardColors::zDraw() {
    picSquares_->begin();
    {
        QPainter painter(&picSquares_->picture);
        for (int band = 0; band < Bands; ++band) {
            painter.fillRect(band * SampleSquare, 0, SampleSquare - 1, SampleSize.height(),
                             colorOf(colors_[bandColor(band)]));
        }
        paintPieces(painter, 1, 0);
        paintPieces(painter, 1 + PiecesInAList / 2, 2);
    }
    const int foot = SampleSize.height() - SampleSquare;
    for (int band = 0; band < Bands; ++band) {
        zHL(band * SampleSquare, foot, colors_[band < 2 ? NormalMove : PreMove]);
    }
    picSquares_->update();
    drawHighlights();
}

void frmBoardColors::zHL(int x, int y, std::int32_t colour) {
    QPainter painter(&picSquares_->picture);
    paintSampleFrame(painter, x, y, colorOf(colour));
}

void frmBoardColors::drawHighlights() {
    picHL_->begin();
    QPainter painter(&picHL_->picture);
    for (const auto& [x, square, frame] :
         {std::tuple{0, WhiteSquares, NormalMove}, {SampleSquare, BlackSquares, PreMove}}) {
        painter.fillRect(x, 0, SampleSquare, SampleSquare, colorOf(colors_[square]));
        paintSampleFrame(painter, x, 0, colorOf(colors_[frame]));
    }
    picHL_->update();
    for (int index = 0; index <= BoardColors::last; ++index) {
        swatches_[index]->setPalette(QPalette(colorOf(colors_[index])));
    }
}

void frmBoardColors::zBuildMasks(PieceSets& pieces, int list) const { buildMasks(colors_, pieces, list); }

void frmBoardColors::zSave() {
    passOver([this] {
        for (const OpenWindow& open : openWindows.windows) {
            if (open.className != "frmChessBoard") continue;
            for (const int list : {0, 1}) buildMasks(colors_, imlPieces, list);
            setBoardColors(colors_);
            open.zBoardSetup();
        }
    });
}

void frmBoardColors::cmdColor(int index) {
    const QPointer<frmBoardColors> self(this);
    const auto chosen = boxes.colour(this, colors_[index]);
    if (!self || !chosen) return;
    colors_[index] = *chosen;
    zDraw();
}

void frmBoardColors::cmdTest() {
    colors_[WhiteSquares] = DefaultColorWhite;
    colors_[BlackSquares] = DefaultColorBlack;
    zDraw();
}

void frmBoardColors::cmdOK() {
    zSave();
    close();
}

frmBoardColors& frmBoardColors::loaded() {
    auto* dialog = loadedWindow<frmBoardColors>();
    return dialog != nullptr ? *dialog : *new frmBoardColors; // deletes itself after closing
}

void frmBoardColors::showAt(QPoint place) {
    frmBoardColors& dialog = loaded();
    placeFrame(dialog, place);
    bringInFront(dialog);
}

void frmBoardColors::closeEvent(QCloseEvent* event) {
    openWindows.remove(this);
    event->accept();
}
