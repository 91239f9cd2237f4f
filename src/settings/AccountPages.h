// The pages of the options dialog for the log-on, the server's address and the button commands.
#pragma once

#include "settings/OptionsRoads.h"

#include <QLineEdit>
#include <QWidget>

#include <array>

// Handle and password are a working copy; address and port go into modChess with every change.
class AccountPage : public QWidget {
    Q_OBJECT
public:
    AccountPage(const OptionsAccount& account, QWidget* parent);

    // Puts what is typed into the two names of `account`.
    void take(OptionsAccount& account) const;

private:
    QWidget* buildLogOn(const OptionsAccount& account);
    QWidget* buildServer();
    void alignBoxes();

    QLineEdit* txtHandle_ = nullptr;
    QLineEdit* txtPassword_ = nullptr;
};

class ButtonsPage : public QWidget {
    Q_OBJECT
public:
    ButtonsPage(const OptionsAccount& account, QWidget* parent);

    // Puts what is typed into the commands of `account`.
    void take(OptionsAccount& account) const;

private:
    QWidget* buildCommands(const OptionsAccount& account);

    std::array<QLineEdit*, 10> txtTell_{};
};
