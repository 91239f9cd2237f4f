// The talk before a session: handle, password, and the guest's question.
#pragma once

#include "practice/people/Accounts.h"

#include <functional>
#include <string>

namespace practice {

// Leads one connection from the greeting to its session. Texts come with LF line ends and with the telnet bytes that
// turn a terminal's echo off for a password and on again.
struct LoginDialog {
    // What the dialog needs to know from the hall.
    struct Questions {
        const Accounts* accounts = nullptr; // never null while lines are taken
        std::function<bool(const std::string&)> isOnline;
        std::function<std::string()> freeGuestName; // "GuestABCD", not in use
    };

    // What to send, and whether the session begins.
    struct Step {
        std::string text;
        bool entered = false;
    };

    // What the next line answers.
    enum class Stage { Name, Password, Guest };

    Stage stage = Stage::Name;
    std::string name; // the handle that was given, in its registered spelling
    bool guest = false;

    // The greeting with the first prompt for a handle.
    static std::string greeting();

    // Takes one typed line.
    Step take(const std::string& line, const Questions& ask);

private:
    // Take the answers by their stages; what is typed to the guest's question does not matter.
    Step takeName(const std::string& typed, const Questions& ask);
    Step takePassword(const std::string& typed, const Questions& ask);
    Step takeGuest(const Questions& ask);
    // Asks whoever has no account to enter as a guest, behind the `reason` for it.
    Step askGuest(const std::string& reason);
};

// The first text of a session, from the line with the stars on.
std::string welcome(const std::string& titled);

} // namespace practice
