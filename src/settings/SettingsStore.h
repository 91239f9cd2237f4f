// The settings store as its users see it: texts addressed by section and key, one file an application.
#pragma once

#include "common/Needed.h"

#include <string>

// A per-user store of texts (bytes, any value). Every member must be given; none of them throws.
struct SettingsStore {
    using Text = const std::string&;

    // The text under (section, key); `fallback` when there is none. An empty text that was written is not absent.
    Needed<std::string(Text section, Text key, Text fallback)> read;

    // Puts `text` under (section, key). What is written is read back at once but is durable only after `sync`.
    Needed<void(Text section, Text key, Text text)> write;

    // Deletes everything under the application of that name, at once.
    Needed<void(Text application)> remove;

    // Makes all writes so far durable: all of them, or, when the disk refuses, none.
    Needed<void()> sync;
};
