// Registered users and the rules for handles.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace practice {

// One registered user. Passwords are for practice only and stand in clear.
struct Account {
    std::string name;
    std::string password;
    int rating = 0; // 0 for a player without rated games

    // The rating in four columns, "----" for none.
    std::string ratingText() const;
};

// The list of registered users; handles are compared without letter case.
struct Accounts {
    std::vector<Account> users;

    // The user with this handle; null if there is none.
    const Account* find(std::string_view name) const;
};

// The password of every built-in user.
inline constexpr std::string_view practicePassword = "practice";

// The built-in users, all with `practicePassword`.
Accounts builtInAccounts();

// Reads lines "NAME PASSWORD [RATING]"; empty lines and lines that begin with "#" are passed over. A line of another
// form gives nothing, and `error` says which.
std::optional<Accounts> readAccounts(std::istream& in, std::string& error);

// Why a handle cannot be used, as a sentence for its owner; empty for 3 to 17 letters.
std::string handleComplaint(std::string_view name);

} // namespace practice
