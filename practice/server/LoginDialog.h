// The talk before a session: handle, password, and the guest's question.
#pragma once

#include "practice/people/Accounts.h"

#include <functional>
#include <string>

namespace practice {

// Leads one connection from the greeting to its session, or to its end after `passwordTries` wrong passwords. Texts
// come with LF line ends.
struct LoginDialog {
    static constexpr int passwordTries = 3;

    // What the dialog needs to know from the hall.
    struct Questions {
        const Accounts* accounts = nullptr; // never null while lines are taken
        std::function<bool(const std::string&)> isOnline;
        std::function<std::string()> freeGuestName; // "GuestABCD", not in use
    };

    // Whether a terminal may show what is typed from now on.
    enum class Typing { AsBefore, Hidden, Shown };

    // Whether there are more questions, the session begins, or the connection ends.
    enum class Course { Asking, Entered, Refused };

    // What to send, and how it goes on.
    struct Step {
        std::string text;
        Course course = Course::Asking;
        Typing typing = Typing::AsBefore;
    };

    // What the next line answers.
    enum class Stage { Name, Password, Guest };

    Stage stage = Stage::Name;
    std::string name; // the handle that was given, in its registered spelling
    bool guest = false;
    int wrongPasswords = 0;

    // The greeting with the first prompt for a handle.
    static std::string greeting();

    // Takes one typed line.
    Step take(const std::string& line, const Questions& ask);

private:
    // Take the answers by their stages; what is typed to the guest's question does not matter.
    Step takeName(const std::string& typed, const Questions& ask);
    Step takePassword(const std::string& typed, const Questions& ask);
    Step takeWrongPassword();
    Step takeGuest(const Questions& ask);
    // Asks whoever has no account to enter as a guest, behind the `reason` for it.
    Step askGuest(const std::string& reason);
};

// The first text of a session, from the line with the stars on.
std::string welcome(const std::string& titled);

} // namespace practice
