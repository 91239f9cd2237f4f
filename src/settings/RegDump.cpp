// The diagnostic dump of the settings.
#include "settings/RegDump.h"

#include "common/WriteAll.h"
#include "settings/ClientKeys.h"
#include "settings/Coordinate.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Texts alone keep the default of the table; numbers and flags give what the program holds now.
bool isText(const ClientKey& key) {
    return std::holds_alternative<std::string ModChess::*>(key.held) ||
           std::holds_alternative<std::string ClientSettings::*>(key.held) ||
           std::holds_alternative<TellIndex>(key.held);
}

void addLine(std::string& text, std::string_view label, const std::string& value) {
    text.append(label).append(":  ").append(value).append("\n");
}

void addClient(std::string& text, const SettingsStore& store, const ClientSettings& client) {
    text.append(ClientSection).append("\n");
    for (const ClientKey& key : clientKeys()) {
        if (!key.dumped) continue;
        const std::string absent = isText(key) ? key.fallback : heldText(key, client);
        addLine(text, key.dumpLabel.empty() ? key.name : key.dumpLabel, store.read(ClientSection, key.name, absent));
    }
}

void addWindow(std::string& text, const SettingsStore& store, const WindowSection& section, const WindowPlace& place) {
    text.append(section.name).append("\n");
    const auto add = [&](const char* key, float running) {
        addLine(text, key, store.read(section.name, key, coordinateText(running)));
    };
    add("Left", place.Left);
    add("Top", place.Top);
    if (!section.sized) return;
    add("Width", place.Width);
    add("Height", place.Height);
}

void addMatch(std::string& text, const SettingsStore& store, const MatchSettings& match) {
    for (const MatchKey& key : matchKeys) {
        addLine(text, key.name, store.read(MatchSection.name, key.name, std::to_string(match.*key.field)));
    }
}

} // namespace

std::string zDumpReg(const SettingsStore& store, const ClientSettings& client, const RunningWindows& windows) {
    std::string text;
    addClient(text, store, client);
    for (const WindowSection& section : {OptionsSection, SeekSection, VarsSection, HelpSection, NotesSection}) {
        addWindow(text, store, section, windows.place(section));
    }
    addWindow(text, store, MatchSection, windows.place(MatchSection));
    addMatch(text, store, windows.match());
    addWindow(text, store, ChatSection, windows.place(ChatSection));
    return text;
}

bool writeRegDump(const std::string& text, const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    if (file < 0) return false;
    const bool closed = ::fchmod(file, 0600) == 0;
    const bool written = closed && writeAll(file, text);
    return ::close(file) == 0 && written;
}
