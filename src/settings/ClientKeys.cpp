// The keys of the section Client as one table.
#include "settings/ClientKeys.h"

#include "common/Numbers.h"
#include "settings/Coordinate.h"

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>; // clang 14 deduces none for an aggregate by itself

void takeValue(const std::string& text, std::string& field) { field = text; }
void takeValue(const std::string& text, std::int32_t& field) { field = strictInt32(text); }
void takeValue(const std::string& text, std::int16_t& field) { field = strictInt16(text); }
void takeValue(const std::string& text, bool& field) { field = strictBool(text); }
void takeValue(const std::string& text, float& field) { field = coordinateOf(text); }

std::string textOf(const std::string& value) { return value; }
std::string textOf(std::int32_t value) { return std::to_string(value); }
std::string textOf(std::int16_t value) { return std::to_string(value); }
std::string textOf(bool value) { return value ? "True" : "False"; }
std::string textOf(float value) { return coordinateText(value); }

// A key that falls back to what the program starts with.
template <typename Value>
ClientKey startsAs(const std::string& name, Value ModChess::*field) {
    return {.name = name, .held = field, .fallback = textOf(ModChess().*field)};
}

void addTells(std::vector<ClientKey>& keys) {
    for (int index = 0; index <= 9; ++index) {
        keys.push_back(
            {.name = "Tell_" + std::to_string(index), .held = TellIndex{index}, .fallback = "", .dumpLabel = "Tell_0"});
    }
}

// The console's colours are pastel at the start, and dark without a store.
void addColours(std::vector<ClientKey>& keys) {
    keys.insert(keys.end(), {
                                {"Color_Main", &ModChess::ColorMain, "33023"},
                                {"Color_Background", &ModChess::ColorBackground, "0"},
                                {"Color_Bar_Backgnd", &ModChess::ColorBar, "16777215"},
                                startsAs("Color_Tell", &ModChess::ColorTell),
                                {"Color_Copy", &ModChess::ColorCopy, "14862761"},
                                startsAs("Color_Type", &ModChess::ColorType),
                                {"Color_Shout", &ModChess::ColorShout, "16777215"},
                                startsAs("Color_White", &ModChess::ColorWhite),
                                startsAs("Color_Black", &ModChess::ColorBlack),
                                startsAs("Color_Move", &ModChess::ColorMove),
                                startsAs("Color_PreMove", &ModChess::ColorPreMove),
                            });
}

void addOptions(std::vector<ClientKey>& keys) {
    keys.insert(keys.end(),
                {
                    startsAs("Main_Font", &ModChess::MainFont),
                    startsAs("Sound_On", &ModChess::SoundOn),
                    startsAs("Sound_Move", &ModChess::SoundMove),
                    startsAs("Sound_Arrive", &ModChess::SoundArrive),
                    startsAs("Sound_Start", &ModChess::SoundStart),
                    startsAs("Sound_Tell", &ModChess::SoundTell),
                    {"IP", &ModChess::ServerIP, DefaultServerIP},
                    startsAs("Port", &ModChess::ServerPort),
                    startsAs("PreMove_OK", &ModChess::PreMoveOK),
                    startsAs("AutoQueen", &ModChess::AutoQueen),
                    startsAs("Confirm_Resign", &ModChess::ConfirmResign),
                    startsAs("Chess_Set", &ModChess::ChessSet),
                    startsAs("Mouse_Slip", &ModChess::MouseSlip),
                    // The two names are crossed in every store there is. The graph's colour starts as 0.
                    {"Drag_Mode", &ModChess::SeekWhite, "-1"},
                    startsAs("Seek_Color", &ModChess::DragMode),
                    startsAs("Seek_Off", &ModChess::SeekOff),
                    startsAs("PGN_Path", &ModChess::PGNPath),
                    startsAs("Game_Path", &ModChess::GamePath),
                    startsAs("Warn_Time", &ModChess::WarnTime),
                    {.name = "XP_Style", .held = &ClientSettings::mnuXP, .fallback = "False", .dumped = false},
                });
}

std::vector<ClientKey> buildKeys() {
    std::vector<ClientKey> keys{
        startsAs("Registry_OK", &ModChess::RegistryState),
        {"Left", &ClientSettings::Left, "0"},
        {"Top", &ClientSettings::Top, "0"},
        {.name = "Width", .held = &ClientSettings::Width, .fallback = "", .fallbackIsHeld = true},
        {.name = "Height", .held = &ClientSettings::Height, .fallback = "", .fallbackIsHeld = true},
        {"Handle", &ClientSettings::Handle, ""},
        {"Password", &ClientSettings::Password, ""},
    };
    addTells(keys);
    keys.insert(keys.end(), {
                                {"Seek_Graph", &ClientSettings::mnuSeekGrf, "False"},
                                {"Auto_Connect", &ClientSettings::mnuAutoCon, "False"},
                                {"Auto_Logon", &ClientSettings::mnuAutoLogon, "False"},
                                {"Use_Timeseal", &ClientSettings::mnuUseTS, "True"},
                                {"Last_Server", &ClientSettings::LastServer, "0"},
                            });
    addColours(keys);
    addOptions(keys);
    return keys;
}

} // namespace

const std::vector<ClientKey>& clientKeys() {
    static const std::vector<ClientKey> keys = buildKeys();
    return keys;
}

void takeStartValues() {
    const ModChess start;
    const auto reset = Overloaded{
        [&]<typename T>(T ModChess::*field) { modChess.*field = start.*field; },
        [](const auto&) {}, // the client window's own
    };
    for (const ClientKey& key : clientKeys()) std::visit(reset, key.held);
}

std::string heldText(const ClientKey& key, const ClientSettings& client) {
    return std::visit(Overloaded{
                          [&](TellIndex tell) { return client.Tell[tell.index]; },
                          [&]<typename T>(T ModChess::*field) { return textOf(modChess.*field); },
                          [&]<typename T>(T ClientSettings::*field) { return textOf(client.*field); },
                      },
                      key.held);
}

void takeText(const ClientKey& key, const std::string& text, ClientSettings& client) {
    std::visit(Overloaded{
                   [&](TellIndex tell) { client.Tell[tell.index] = text; },
                   [&]<typename T>(T ModChess::*field) { takeValue(text, modChess.*field); },
                   [&]<typename T>(T ClientSettings::*field) { takeValue(text, client.*field); },
               },
               key.held);
}
