// The command line of the practice server.
#pragma once

#include "practice/people/Accounts.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace practice {

// How the server is run: what the command line asks for.
struct Options {
    quint16 port = 0;       // 0 takes a free one
    std::uint32_t seed = 0; // from the system's random numbers unless given
    int moveDelay = 2500;   // milliseconds
    int adPace = 15'000;    // milliseconds; 0 for ads that stay
    QString engine;         // path of the engine; empty if none was found
    qint64 ownerPid = 0;    // 0 for no owner
    Accounts accounts;
    std::string log;     // file for what clients send; empty for none
    std::string archive; // folder for games that are over or adjourned; empty for none
};

// Reads the arguments, the program's name first. Nothing comes back when the program has to end at once: then
// `exitCode` is 0 after --help and 2 after a complaint on standard error.
std::optional<Options> readOptions(const QStringList& arguments, int& exitCode);

} // namespace practice
