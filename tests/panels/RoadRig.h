// A road for changes that writes down what is sent.
#pragma once

#include "panels/ChangeRoad.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

struct RoadRig : testing::Test {
    std::vector<std::string> events; // lines, and "pause"
    std::size_t refuseFrom = 1000;   // this line and those behind it do not go out, counted from 0

    ChangeRoad road() {
        return {.send =
                    [this](const std::string& text) {
                        const bool refused = lines().size() >= refuseFrom;
                        events.push_back(refused ? "refused " + text : text);
                        return !refused;
                    },
                .pause = [this] { events.emplace_back("pause"); }};
    }
    std::vector<std::string> lines() const {
        std::vector<std::string> all = events;
        std::erase(all, "pause");
        return all;
    }
};
