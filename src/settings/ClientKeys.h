// The keys of the section Client as one table, in the order in which they are read and written.
#pragma once

#include "common/modChess.h"
#include "settings/ClientSettings.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

// Which of the ten button commands a key holds, 0 to 9.
struct TellIndex {
    int index = 0;
};

// Where the value of a key lives at run time. The type of the field is the form of the value: a float is a coordinate,
// a bool is stored as "True" or "False", an integer as decimal text.
using Held =
    std::variant<std::string ModChess::*, std::int32_t ModChess::*, std::int16_t ModChess::*, float ClientSettings::*,
                 std::string ClientSettings::*, bool ClientSettings::*, std::int16_t ClientSettings::*, TellIndex>;

// One key of the section.
struct ClientKey {
    std::string name;
    Held held;
    std::string fallback;         // the text taken when the key is absent
    bool fallbackIsHeld = false;  // instead of `fallback`: what the field holds (a designed size)
    bool dumped = true;           // stands in regdump.txt
    std::string_view dumpLabel{}; // its label there, when that is not the name
};

inline constexpr const char* ClientSection = "Client";

// The numeric address that the "Alternate Server" profile has until the user gives another: the FICS host.
inline constexpr const char* DefaultServerIP = "167.114.65.195";

// All keys, `Registry_OK` first. The key `Drag_Mode` holds SeekWhite and `Seek_Color` holds DragMode.
const std::vector<ClientKey>& clientKeys();

// Puts every field of modChess that a key stands for back to the value it has at the start of the program.
void takeStartValues();

// The value that `key` stands for now, as the text to be stored; `Registry_OK` gives RegistryState like any other.
std::string heldText(const ClientKey& key, const ClientSettings& client);

// Puts the stored `text` into the field of `key`. Coordinates go through a signed 16-bit integer. Faults (type
// mismatch, overflow) on a text that does not fit the field, which then keeps its value.
void takeText(const ClientKey& key, const std::string& text, ClientSettings& client);
