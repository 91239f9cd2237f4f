// A settings store that lives in memory: what tests and fuzz targets read from and look into.
#pragma once

#include "settings/SettingsStore.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

// What a memory store holds, and what was done to it, oldest first.
struct MemoryValues {
    std::map<std::pair<std::string, std::string>, std::string> texts; // by (section, key)
    std::vector<std::string> keysRead;                                // each `read`, present or not
    std::vector<std::string> keysWritten;
    int syncs = 0;
};

// A store over `values`, all of them of whatever application it is asked for, which live as long as the store does.
SettingsStore memoryStore(const std::shared_ptr<MemoryValues>& values);
