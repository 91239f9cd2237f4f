// The talk before a session: handle, password, and the guest's question.
#include "practice/server/LoginDialog.h"

#include "practice/text/Text.h"

namespace practice {

namespace {

std::string loginPrompt() { return "\nUse your own name, or \"guest\" for a name that we choose.\n\nlogin: "; }

// Programs log on by the word "password:".
std::string passwordQuestion(const std::string& name) {
    return "\n\"" + name + "\" is a registered name.  If it is yours, type its password.\n" +
           "An empty line lets you choose another name.\n\npassword: ";
}

std::string nameIsTaken(const std::string& name) { return "\n" + name + " is logged on already.  Try again.\n"; }

} // namespace

std::string LoginDialog::greeting() {
    return "\n      A  B  C  D  E  F  G  H\n\n      Brightrank practice hall\n      this machine only, no ratings at "
           "stake\n" +
           loginPrompt();
}

LoginDialog::Step LoginDialog::take(const std::string& line, const Questions& ask) {
    const std::string typed = trim(printable(line));
    if (stage == Stage::Name) return takeName(typed, ask);
    return stage == Stage::Password ? takePassword(typed, ask) : takeGuest(ask);
}

LoginDialog::Step LoginDialog::takeName(const std::string& typed, const Questions& ask) {
    if (typed.empty()) return {"login: "};
    if (lower(typed) == "guest" || lower(typed) == "g") {
        name = ask.freeGuestName();
        return askGuest("Logging you in as \"" + name + "\"; games under this name are unrated.\n");
    }
    const std::string complaint = handleComplaint(typed);
    if (!complaint.empty()) return {"\n" + complaint + "\n\nlogin: "};
    if (const Account* account = ask.accounts->find(typed)) {
        name = account->name;
        stage = Stage::Password;
        return {passwordQuestion(name), Course::Asking, Typing::Hidden};
    }
    name = typed;
    if (ask.isOnline(name)) return {nameIsTaken(name) + "\nlogin: "};
    return askGuest("\"" + name + "\" is not a registered name.  You may play unrated games as a guest.\n");
}

// Any answer ends this stage: a second try begins with the name.
LoginDialog::Step LoginDialog::takePassword(const std::string& typed, const Questions& ask) {
    const Account* account = ask.accounts->find(name);
    stage = Stage::Name;
    if (typed.empty()) return {"\n" + loginPrompt(), Course::Asking, Typing::Shown};
    if (!account || account->password != typed) return takeWrongPassword();
    guest = false;
    return {"\n", Course::Entered, Typing::Shown};
}

// Who tries passwords one after the other has to come back each time.
LoginDialog::Step LoginDialog::takeWrongPassword() {
    const std::string text = "\n\n**** Invalid password! ****\n";
    if (++wrongPasswords < passwordTries) return {text + loginPrompt(), Course::Asking, Typing::Shown};
    return {text + "\nThat was one wrong password too many.  Good-bye.\n", Course::Refused, Typing::Shown};
}

// The name may have been taken while the question stood.
LoginDialog::Step LoginDialog::takeGuest(const Questions& ask) {
    if (!ask.isOnline(name)) return {"\n", Course::Entered};
    stage = Stage::Name;
    return {nameIsTaken(name) + loginPrompt()};
}

LoginDialog::Step LoginDialog::askGuest(const std::string& reason) {
    stage = Stage::Guest;
    guest = true;
    return {"\n" + reason + "\nPress return to enter the server as \"" + name + "\":\n"};
}

std::string welcome(const std::string& titled) {
    return "**** Starting FICS session as " + titled +
           " ****\n\nYou are in the practice hall.  Computer players wait for you: \"sought\" lists\n"
           "their ads, \"play 1\" takes the first.  \"games\" shows what is played now, and\n"
           "\"observe 1\" lets you watch.  \"help\" tells the rest.\n\n";
}

} // namespace practice
