// The sections of the windows other than the client.
#include "settings/WindowSettings.h"

#include "common/Numbers.h"
#include "common/modChess.h"
#include "settings/Coordinate.h"
#include "settings/DefFile.h"
#include "settings/Settings.h"

namespace {

void readCoordinate(const SettingsStore& store, const WindowSection& section, const char* key,
                    const std::string& absent, float& field) {
    field = coordinateOf(store.read(section.name, key, absent));
}

void readPlace(const SettingsStore& store, const WindowSection& section, WindowPlace& place) {
    readCoordinate(store, section, "Left", "0", place.Left);
    readCoordinate(store, section, "Top", "0", place.Top);
    if (!section.sized) return;
    readCoordinate(store, section, "Width", coordinateText(place.Width), place.Width);
    readCoordinate(store, section, "Height", coordinateText(place.Height), place.Height);
}

void writePlace(const SettingsStore& store, const WindowSection& section, const WindowPlace& place) {
    store.write(section.name, "Left", coordinateText(place.Left));
    store.write(section.name, "Top", coordinateText(place.Top));
    if (!section.sized) return;
    store.write(section.name, "Width", coordinateText(place.Width));
    store.write(section.name, "Height", coordinateText(place.Height));
}

void takePlace(DefValues& values, const WindowSection& section, WindowPlace& place) {
    values.take(place.Left);
    values.take(place.Top);
    if (!section.sized) return;
    values.take(place.Width);
    values.take(place.Height);
}

} // namespace

void zGetReg(const SettingsStore& store, const WindowSection& section, WindowPlace& place) {
    passOver([&] { readPlace(store, section, place); });
}

void zGetReg(const SettingsStore& store, WindowPlace& place, MatchSettings& match) {
    passOver([&] {
        readPlace(store, MatchSection, place);
        for (const MatchKey& key : matchKeys) {
            match.*key.field = strictInt16(store.read(MatchSection.name, key.name, key.fallback));
        }
    });
}

void zSaveReg(const SettingsStore& store, const WindowSection& section, const WindowPlace& place) {
    writePlace(store, section, place);
    store.sync();
}

void zSaveReg(const SettingsStore& store, const WindowPlace& place, const MatchSettings& match) {
    writePlace(store, MatchSection, place);
    for (const MatchKey& key : matchKeys) {
        store.write(MatchSection.name, key.name, std::to_string(match.*key.field));
    }
    store.sync();
}

bool readWindow(const SettingsStore& store, const WindowSection& section, WindowPlace& place) {
    if (registryWritten()) {
        zGetReg(store, section, place);
        return true;
    }
    auto values = readDefFile(section.defFile);
    if (values) takePlace(*values, section, place);
    return values.has_value();
}

bool readMatch(const SettingsStore& store, WindowPlace& place, MatchSettings& match) {
    if (registryWritten()) {
        zGetReg(store, place, match);
        return true;
    }
    auto values = readDefFile(MatchSection.defFile);
    if (!values) return false;
    takePlace(*values, MatchSection, place);
    for (const MatchKey& key : matchKeys) {
        if (key.field != &MatchSettings::Type) values->take(match.*key.field);
    }
    return true;
}

bool readBoard(const SettingsStore& store, WindowPlace& place) {
    if (registryWritten()) return readWindow(store, BoardSection, place);
    auto values = readDefFile(boardDefFile());
    if (!values) return false;
    takePlace(*values, BoardSection, place);
    values->take(modChess.PGNPath);
    values->take(modChess.GamePath);
    return true;
}
