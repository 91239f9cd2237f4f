// Registered users and the rules for handles.
#include "practice/people/Accounts.h"

#include "practice/text/Text.h"

#include <algorithm>

namespace practice {

namespace {

// ASCII only: other letters look alike on too many screens.
bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

// "Ada secret 1500".
std::optional<Account> readAccount(const std::vector<std::string>& parts) {
    if (parts.size() < 2 || parts.size() > 3 || !handleComplaint(parts[0]).empty()) return std::nullopt;
    Account account{parts[0], parts[1], 0};
    if (parts.size() == 3) {
        const auto rating = number(parts[2]);
        if (!rating || *rating > 9999) return std::nullopt;
        account.rating = *rating;
    }
    return account;
}

} // namespace

std::string Account::ratingText() const { return rating == 0 ? "----" : padLeft(rating, 4); }

const Account* Accounts::find(std::string_view name) const {
    const std::string wanted = lower(name);
    const auto at = std::find_if(users.begin(), users.end(), [&](const Account& a) { return lower(a.name) == wanted; });
    return at == users.end() ? nullptr : &*at;
}

Accounts builtInAccounts() {
    const std::string password(practicePassword);
    return {{{"Pupil", password, 1200},
             {"Rookery", password, 1640},
             {"Novice", password, 0},
             {"Tester", password, 1500},
             {"Partner", password, 1500}}};
}

std::optional<Accounts> readAccounts(std::istream& in, std::string& error) {
    Accounts result;
    std::string line;
    for (int row = 1; std::getline(in, line); ++row) {
        const auto parts = words(line);
        if (parts.empty() || parts[0].front() == '#') continue;
        const auto account = readAccount(parts);
        if (!account || result.find(account->name)) {
            error = "line " + std::to_string(row) + " is not a new \"NAME PASSWORD [RATING]\"";
            return std::nullopt;
        }
        result.users.push_back(*account);
    }
    return result;
}

std::string handleComplaint(std::string_view name) {
    if (!std::all_of(name.begin(), name.end(), isLetter)) return "A name is made of letters only.  Try again.";
    if (name.size() < 3) return "A name has at least 3 letters.  Try again.";
    if (name.size() > 17) return "A name has at most 17 letters.  Try again.";
    return {};
}

} // namespace practice
