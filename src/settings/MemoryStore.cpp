// A settings store that lives in memory.
#include "settings/MemoryStore.h"

SettingsStore memoryStore(const std::shared_ptr<MemoryValues>& values) {
    using Text = SettingsStore::Text;
    return {
        .read =
            [values](Text section, Text key, Text fallback) {
                values->keysRead.push_back(key);
                const auto found = values->texts.find({section, key});
                return found == values->texts.end() ? fallback : found->second;
            },
        .write =
            [values](Text section, Text key, Text text) {
                values->keysWritten.push_back(key);
                values->texts[{section, key}] = text;
            },
        .remove = [values](Text) { values->texts.clear(); },
        .sync = [values] { ++values->syncs; },
    };
}
