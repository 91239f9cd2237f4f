// What servers sent, as it was recorded in tests/data/streams.
#pragma once

#include "TestPaths.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

// All bytes of "server-a/02_berta_registered.raw"; the test fails where there are none.
inline std::string recordedText(const std::string& file) {
    std::ifstream stream(TEST_DATA "/streams/" + file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_FALSE(text.empty()) << file;
    return text;
}

// Its lines without CR and LF.
inline std::vector<std::string> recordedLines(const std::string& file) {
    std::istringstream text(recordedText(file));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line); lines.push_back(line)) std::erase(line, '\r');
    return lines;
}
