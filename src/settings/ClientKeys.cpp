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

void addTells(std::vector<ClientKey>& keys) {
    for (int index = 0; index <= 9; ++index) {
        keys.push_back(
            {.name = "Tell_" + std::to_string(index), .held = TellIndex{index}, .fallback = "", .dumpLabel = "Tell_0"});
    }
}

void addColours(std::vector<ClientKey>& keys) {
    keys.insert(keys.end(), {
                                {"Color_Main", &ModChess::ColorMain, "33023"},
                                {"Color_Background", &ModChess::ColorBackground, "0"},
                                {"Color_Bar_Backgnd", &ModChess::ColorBar, "16777215"},
                                {"Color_Tell", &ModChess::ColorTell, "255"},
                                {"Color_Copy", &ModChess::ColorCopy, "14862761"},
                                {"Color_Type", &ModChess::ColorType, "0"},
                                {"Color_Shout", &ModChess::ColorShout, "16777215"},
                                {"Color_White", &ModChess::ColorWhite, "13495025"},
                                {"Color_Black", &ModChess::ColorBlack, "3048380"},
                                {"Color_Move", &ModChess::ColorMove, "255"},
                                {"Color_PreMove", &ModChess::ColorPreMove, "65280"},
                            });
}

void addOptions(std::vector<ClientKey>& keys) {
    keys.insert(keys.end(),
                {
                    {"Main_Font", &ModChess::MainFont, ""},
                    {"Sound_On", &ModChess::SoundOn, "1"},
                    {"Sound_Move", &ModChess::SoundMove, "3"},
                    {"Sound_Arrive", &ModChess::SoundArrive, "1"},
                    {"Sound_Start", &ModChess::SoundStart, "3"},
                    {"Sound_Tell", &ModChess::SoundTell, "3"},
                    {"IP", &ModChess::ServerIP, DefaultServerIP},
                    {"Port", &ModChess::ServerPort, "5000"},
                    {"PreMove_OK", &ModChess::PreMoveOK, "0"},
                    {"AutoQueen", &ModChess::AutoQueen, "0"},
                    {"Confirm_Resign", &ModChess::ConfirmResign, "1"},
                    {"Chess_Set", &ModChess::ChessSet, "0"},
                    {"Mouse_Slip", &ModChess::MouseSlip, "0"},
                    // The two names are crossed in every store there is.
                    {"Drag_Mode", &ModChess::SeekWhite, "-1"},
                    {"Seek_Color", &ModChess::DragMode, "1"},
                    {"Seek_Off", &ModChess::SeekOff, "1"},
                    {"PGN_Path", &ModChess::PGNPath, ""},
                    {"Game_Path", &ModChess::GamePath, ""},
                    {"Warn_Time", &ModChess::WarnTime, "10"},
                    {.name = "XP_Style", .held = &ClientSettings::mnuXP, .fallback = "False", .dumped = false},
                });
}

std::vector<ClientKey> buildKeys() {
    std::vector<ClientKey> keys{
        {"Registry_OK", &ModChess::RegistryState, "No"},
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
