// Fuzzes the readers of the settings over a store that holds any texts. Each line of the input is one value: its first
// byte says under which key, the rest is the text.
#include "Require.h"
#include "common/modChess.h"
#include "settings/ClientKeys.h"
#include "settings/MemoryStore.h"
#include "settings/RegDump.h"
#include "settings/Settings.h"
#include "settings/WindowSettings.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using Values = std::shared_ptr<MemoryValues>;

constexpr std::array<WindowSection, 9> windowSections{BoardSection, OptionsSection, SeekSection,
                                                      HelpSection,  NotesSection,   VarsSection,
                                                      ChatSection,  HistorySection, MatchSection};

// All addresses of values that anything reads.
std::vector<std::pair<std::string, std::string>> addresses() {
    std::vector<std::pair<std::string, std::string>> all;
    for (const ClientKey& key : clientKeys()) all.emplace_back(ClientSection, key.name);
    for (const WindowSection& section : windowSections) {
        for (const char* name : {"Left", "Top", "Width", "Height"}) all.emplace_back(section.name, name);
    }
    for (const MatchKey& key : matchKeys) all.emplace_back(MatchSection.name, key.name);
    return all;
}

Values valuesOf(std::string_view bytes) {
    static const auto all = addresses();
    auto values = std::make_shared<MemoryValues>();
    while (!bytes.empty()) {
        const auto end = std::min(bytes.find('\n'), bytes.size());
        const auto line = bytes.substr(0, end);
        if (!line.empty()) values->texts[all[static_cast<std::uint8_t>(line[0]) % all.size()]] = line.substr(1);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return values;
}

std::vector<std::string> held(const ClientSettings& client) {
    std::vector<std::string> texts;
    for (const ClientKey& key : clientKeys()) {
        if (key.name != "Registry_OK") texts.push_back(heldText(key, client));
    }
    return texts;
}

bool isWholeTwips(float value) { return value >= -32768 && value <= 32767 && value == static_cast<float>(int(value)); }

ClientSettings checkClient(const SettingsStore& store) {
    zStartValues();
    ClientSettings client;
    zGetReg(store, client);
    require(isWholeTwips(client.Left) && isWholeTwips(client.Height), "a coordinate is a 16-bit number");
    const auto before = held(client);
    const SettingsStore saved = memoryStore(std::make_shared<MemoryValues>());
    zSaveReg(saved, client);
    modChess = {};
    ClientSettings again;
    zGetReg(saved, again);
    require(registryWritten(), "a saved store is marked as written");
    require(held(again) == before, "what is saved reads back as it was");
    return client;
}

void checkWindows(const SettingsStore& store) {
    for (const WindowSection& section : windowSections) {
        WindowPlace place{10, 20, 3000, 2000};
        zGetReg(store, section, place);
        require(isWholeTwips(place.Left) && isWholeTwips(place.Top), "a place is a 16-bit number");
        const WindowPlace shown = placed(place, {3000, 2000}, {28800, 16200}, section.limit);
        require(shown == place || shown == WindowPlace{0, 0, 3000, 2000}, "a place is taken as it is or given up");
        cascade(place, {300, 600, place.Left});
        const WindowPlace board = placedBoard(place, {10, 20, 3000, 2000}, {28800, 16200});
        require(board.Left >= 1 && board.Left + board.Width <= 28800, "a board stands on the screen");
        readWindow(store, section, place);
        const SettingsStore saved = memoryStore(std::make_shared<MemoryValues>());
        zSaveReg(saved, section, place);
        WindowPlace again{1, 2, place.Width, place.Height};
        zGetReg(saved, section, again);
        require(again == place, "a saved place reads back as it was");
    }
}

void checkMatch(const SettingsStore& store) {
    WindowPlace place;
    MatchSettings match;
    require(readMatch(store, place, match), "a store that was written is read");
    const SettingsStore saved = memoryStore(std::make_shared<MemoryValues>());
    zSaveReg(saved, place, match);
    WindowPlace placeAgain;
    MatchSettings again;
    zGetReg(saved, placeAgain, again);
    require(again == match && placeAgain.Left == place.Left, "the match values read back as they were");
}

void checkBoard(const SettingsStore& store) {
    WindowPlace place{10, 20, 3000, 2000};
    WindowPlace again = place;
    require(readBoard(store, place) && readWindow(store, BoardSection, again), "a store that was written is read");
    require(place == again, "the board's section is read as the others are");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    modChess = {};
    const SettingsStore store = memoryStore(valuesOf({reinterpret_cast<const char*>(data), size}));
    const ClientSettings client = checkClient(store);
    checkWindows(store);
    checkMatch(store);
    checkBoard(store);
    const RunningWindows none{.place = [](const WindowSection&) { return WindowPlace(); },
                              .match = [] { return MatchSettings(); }};
    require(zDumpReg(store, client, none).starts_with(ClientSection), "the dump begins with the client's section");
    return 0;
}
