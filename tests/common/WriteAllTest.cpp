// Writing to an open file until nothing is left.
#include "common/WriteAll.h"

#include "common/InChild.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

// Whether all of `text` goes into a new file that may hold `room` bytes.
bool goesInto(rlim_t room, std::string_view text) {
    return inChild([&] {
        limitFiles(room);
        std::FILE* const file = std::tmpfile();
        if (file == nullptr || !writeAll(::fileno(file), text)) ::_exit(1);
    });
}

} // namespace

TEST(WriteAll, EverythingIsWrittenDownToTheLastByteAloneAndNothingIsEasy) {
    EXPECT_TRUE(goesInto(3, "abc"));
    EXPECT_TRUE(goesInto(3, "a"));
    EXPECT_TRUE(goesInto(0, ""));
}

TEST(WriteAll, WhatDoesNotFitIsTold) {
    EXPECT_FALSE(goesInto(3, "abcd"));
    EXPECT_FALSE(goesInto(0, "a"));
}
