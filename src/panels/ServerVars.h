// The user's variables on the server: what it says of them, and what is sent back of those that were changed.
#pragma once

#include "common/FixedArray.h"
#include "panels/ChangeRoad.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// One variable: its name as it is shown and sent, and what stands in front of its value in the server's answer.
struct ServerVar {
    const char* caption;
    const char* key;
};

inline constexpr std::array<ServerVar, 7> numberVars{{
    {"Time", "time="},
    {"Inc", "inc="},
    {"KibLevel", "kiblevel="},
    {"UnObserve", "unobserve="},
    {"Tolerance", "tolerance="},
    {"Width", "width="},
    {"Height", "height="},
}};

// The blank keeps " tell=" off "ctell="; the other keys are found inside longer names.
inline constexpr std::array<ServerVar, 26> flagVars{{
    {"Rated", "rated="},           {"Open", "open="},           {"ROpen", "ropen="},       {"Seek", "seek="},
    {"ProvShow", "provshow="},     {"AvailMax", "availmax="},   {"AvailMin", "availmin="}, {"AvailInfo", "availinfo="},
    {"Private", "private="},       {"JPrivate", "jprivate="},   {"AutoMail", "automail="}, {"PGN", "pgn="},
    {"MailMess", "mailmess="},     {"MessReply", "messreply="}, {"AutoFlag", "autoflag="}, {"Kibitz", "kibitz="},
    {"Shout", "shout="},           {"CShout", "cshout="},       {"Tell", " tell="},        {"CTell", "ctell="},
    {"ChanOff", "chanoff="},       {"Silence", "silence="},     {"Pin", "pin="},           {"Gin", "gin="},
    {"NotifiedBy", "notifiedby="}, {"BugOpen", "bugopen="},
}};

// What the server said, in the order of the tables.
struct ServerVars {
    FixedArray<std::int16_t, 6> VarNumber;
    FixedArray<std::int16_t, 25> VarFlag;
    std::string VarPrompt;

    // Takes the values of a whole answer (modChess.VarsBlock). Each key is looked for anywhere in it; what is absent
    // keeps its value, and so does a prompt of no characters. Faults (overflow) on a number beyond 16 bits.
    void zParseVars(std::string_view block);
};

// Takes one line of the answer, CR LF included, into modChess.VarsBlock, which a title empties; true at the line with
// the prompt, which ends the answer. Lines without a value are passed over. Never faults.
bool zVarsLines(std::string_view line);

// Whether a typed number is another than the server's: what counts is the number that the text begins with.
bool isOtherNumber(std::int16_t said, std::string_view typed);

// What the controls of the panel hold, and which of them are marked as changed.
struct VarsChanges {
    std::array<std::string, numberVars.size()> txtVar;
    std::string txtPrompt;
    std::array<bool, numberVars.size()> lblVar{};
    std::array<bool, flagVars.size()> chkVar{};
    bool lblPrompt = false;
};

// Sends what is marked, numbers first, with a pause behind each command but the prompt's, and makes a changed prompt
// the one that ends the server's answers (modChess.gPrompt). A flag is sent by its name: the server toggles it.
void zSendChanges(const VarsChanges& changes, const ChangeRoad& road);
