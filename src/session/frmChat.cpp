// A chat box: a small window for the talk with one buddy or on one channel.
#include "session/frmChat.h"

#include "common/Twips.h"
#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/ConsoleFont.h"
#include "platform/Described.h"
#include "platform/InFront.h"
#include "platform/OpenWindows.h"
#include "platform/StreamText.h"
#include "settings/WindowSettings.h"

#include <QCloseEvent>
#include <QPointer>

#include <string>

namespace {

constexpr QSize DesignedSize(420, 300); // pixels, as are those below
constexpr QSize LeastSize(180, 130);

// What the conversation leaves of the window, and how that is shared out.
constexpr int Beside = 120 / TwipsPerPixelX;
constexpr int AboveAndBelow = 750 / TwipsPerPixelY;
constexpr int TellGap = 30 / TwipsPerPixelY;
constexpr int TopMargin = 6;
constexpr int BottomMargin = 6;
constexpr int TellIndent = 2; // of the text, which so begins below that of the conversation

// Where the question for the buddy stands to the window.
constexpr QPoint QuestionOffset(420 / TwipsPerPixelX, 210 / TwipsPerPixelY);

// A name that was pasted may have a line end, behind which every tell would be a command of its own.
std::string withoutLineEnds(std::string name) {
    std::erase_if(name, [](char c) { return c == '\r' || c == '\n'; });
    return name;
}

} // namespace

frmChat::frmChat(ServerRoad& road, const ChatRoads& roads) : box(road, hooks()), roads_(roads) {
    describeWindow(this);
    setObjectName(QStringLiteral("frmChat"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Chat"));
    setMinimumSize(LeastSize);
    txtChat = new Console(this);
    txtChat->setObjectName(QStringLiteral("txtChat"));
    txtChat->setAccessibleName(tr("Conversation"));
    txtChat->rightButtonEnds = false;
    txtTell = new TypingLine(this);
    txtTell->setObjectName(QStringLiteral("txtTell"));
    txtTell->setAccessibleName(tr("Tell"));
    txtTell->setTextMargins(TellIndent, 0, TellIndent, 0);
    tmrStart_.setObjectName(QStringLiteral("tmrStart"));
    tmrStart_.setSingleShot(true);
    tmrStart_.setInterval(200);
    connect(&tmrStart_, &QTimer::timeout, this, &frmChat::askForBuddy);
    connectKeys();
    openWindows.add({.className = "frmChat",
                     .window = this,
                     .unload = [this] { close(); },
                     .content = &box,
                     .takeLook = [this] { takeColors(); }});
}

frmChat::~frmChat() { openWindows.remove(this); }

ChatHooks frmChat::hooks() {
    return {
        .setCaption = [this](const std::string& caption) { setWindowTitle(shownStart(caption)); },
        .bringToFront = [this] { bringInFront(*this); },
        .setColor = [this](std::int32_t color) { txtChat->setColor(color); },
        .insert = [this](const std::string& text) { txtChat->insert(text); },
        .moveTo = [this](std::size_t position) { txtChat->moveTo(position); },
        .moveToEnd = [this] { txtChat->moveToEnd(); },
        .text = [this] { return txtTell->line(); },
        .setText = [this](const std::string& text) { txtTell->setLine(text); },
        .focus = [this] { txtTell->setFocus(); },
    };
}

void frmChat::connectKeys() {
    txtTell->keyDown = [this](int code, bool) { return box.zTxtTell(code) || box.keyDown(code); };
    txtChat->keyDown = [this](int code) { return box.keyDown(code); };
    txtChat->typed = [this](const QString& text) {
        for (const char c : bytesOf(text)) {
            const int code = static_cast<unsigned char>(c);
            if ((code >= ' ' && code != 127) || code == 8 || code == 13) box.chatKeyPress(code);
        }
    };
}

void frmChat::load() {
    takeColors();
    loadPlace();
    show();
    tmrStart_.start();
}

void frmChat::takeColors() {
    txtChat->setColor(modChess.ColorTell);
    txtChat->setPaper(modChess.ColorBackground);
    txtTell->setColors(modChess.ColorBar, modChess.ColorType);
    txtChat->setFont(consoleFont());
    txtTell->setFont(consoleFont());
}

void frmChat::loadPlace() { placer_.restore(roads_.store, ChatSection, twipsOf(DesignedSize)); }

WindowPlace frmChat::startPlace() { return designedPlace(twipsOf(DesignedSize)); }

// The program may close the box while the question is up.
void frmChat::askForBuddy() {
    const QPointer<frmChat> self(this);
    const QPoint at = pos() + QuestionOffset;
    const auto answer = boxes.inputAt(this, at.x(), at.y(), "Chat with ", "Chat Box", modChess.NewBuddy);
    if (!self || isHidden()) return;
    const std::string buddy = withoutLineEnds(answer.value_or(std::string()));
    if (buddy.empty()) {
        close();
        return;
    }
    box.name(buddy);
    txtTell->setFocus();
}

void frmChat::closeEvent(QCloseEvent* event) {
    placer_.unminimise();
    tmrStart_.stop();
    zSaveReg(roads_.store, ChatSection, placer_.place());
    openWindows.remove(this);
    event->accept();
}

void frmChat::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isMinimized()) return;
    txtChat->setGeometry(Beside / 2, TopMargin, width() - Beside, height() - AboveAndBelow);
    const int tell = AboveAndBelow - TopMargin - TellGap - BottomMargin;
    txtTell->setGeometry(txtChat->x(), txtChat->geometry().bottom() + 1 + TellGap, txtChat->width(), tell);
}

// What the fields leave.
void frmChat::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        txtChat->turnPage(key == Qt::Key_PageUp ? -1 : 1);
    } else if (key == Qt::Key_F1) {
        roads_.showHelp();
    } else {
        QWidget::keyPressEvent(event);
    }
}
