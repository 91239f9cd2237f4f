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
    std::vector<std::string> removed; // application names given to `remove`; `texts` stays as it is
    int syncs = 0;
};

// A store over `values`, which live as long as the store does.
SettingsStore memoryStore(const std::shared_ptr<MemoryValues>& values);
