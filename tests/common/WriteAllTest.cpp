// Writing to an open file until nothing is left.
#include "common/WriteAll.h"

#include "common/InChild.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

bool goesIntoAFile(std::string_view text) {
    std::FILE* const file = std::tmpfile();
    const bool written = file != nullptr && writeAll(::fileno(file), text);
    if (file != nullptr) std::fclose(file);
    return written;
}

} // namespace

TEST(WriteAll, EverythingIsWrittenDownToTheLastByteAloneAndNothingIsEasy) {
    for (const char* text : {"abc", "a", ""}) EXPECT_TRUE(goesIntoAFile(text)) << text;
}

TEST(WriteAll, WhatDoesNotFitIsTold) {
    EXPECT_TRUE(inChild([] {
        limitFiles(3);
        if (!goesIntoAFile("abc")) ::_exit(1);
        if (goesIntoAFile("abcd")) ::_exit(2);
    }));
}
