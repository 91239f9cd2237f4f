// How the windows meet assistive tools, the keyboard and a long prompt.
#include "session/ClientRig.h"

#include <QRegularExpression>

namespace {

class ClientFace : public ClientRig {};

} // namespace

TEST_F(ClientFace, EveryButtonAndFieldHasANameForAssistiveTools) {
    start();
    EXPECT_EQ(txtOutput().accessibleName(), QStringLiteral("Console"));
    EXPECT_EQ(txtSend().accessibleName(), QStringLiteral("Command line"));
    const std::initializer_list<QWidget*> windows{client.get(), boards()[0]};
    for (const QWidget* window : windows) {
        for (const auto* found : window->findChildren<QAbstractButton*>(QRegularExpression(QStringLiteral("^cmd")))) {
            if (found->objectName() == QStringLiteral("cmdScroll(2)")) continue; // has no effect
            EXPECT_FALSE(found->text().isEmpty() && found->accessibleName().isEmpty())
                << found->objectName().toStdString();
        }
    }
}

TEST_F(ClientFace, TheButtonsTakeNoFocusFromTheCommandLine) {
    start();
    for (const auto* found : client->findChildren<QAbstractButton*>(QRegularExpression(QStringLiteral("^cmd")))) {
        EXPECT_EQ(found->focusPolicy(), Qt::NoFocus) << found->objectName().toStdString();
    }
    EXPECT_EQ(client->focusWidget(), &txtSend());
}

TEST_F(ClientFace, ALongPromptDoesNotWidenTheWindow) {
    start();
    const QSize before = client->size();
    lblPrompt().setText(QString(200, QLatin1Char('w')));
    runFor(20);
    EXPECT_EQ(client->size(), before);
    EXPECT_LE(lblPrompt().width(), 140);
}
