// The settings store that lives in memory, which other tests stand on.
#include "settings/MemoryStore.h"

#include <gtest/gtest.h>

TEST(MemoryStore, KeepsATextUnderItsSectionAndKeyUntilTheApplicationIsDeleted) {
    const SettingsStore store = memoryStore(std::make_shared<MemoryValues>());
    store.write("Seek", "Left", "150");
    EXPECT_EQ(store.read("Seek", "Left", "0"), "150");
    EXPECT_EQ(store.read("Seek", "Top", "0"), "0");
    EXPECT_EQ(store.read("Help", "Left", "0"), "0");
    store.remove("ChessClient");
    EXPECT_EQ(store.read("Seek", "Left", "0"), "0");
}
