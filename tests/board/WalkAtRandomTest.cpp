// Walking at random beside a model of the walk: what the fuzz target does, ten thousand steps.
#include "WalkRun.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

TEST(WalkAtRandom, TenThousandStepsOfAllKindsAgreeWithTheModel) {
    constexpr int Steps = 10'000;
    // Of the steps of fuzz/WalkRun.cpp, in their order; forward and the server's moves come most often.
    std::discrete_distribution<int> what{3, 6, 1, 10, 3, 5, 6, 6, 2, 8, 8, 2, 2, 2, 2, 1};
    std::mt19937 random(1);
    std::string input;
    for (int step = 0; step < Steps; ++step) {
        const unsigned how = random() % 4096;
        input += static_cast<char>(static_cast<unsigned>(what(random)) | ((how >> 8U) << 4U));
        input += static_cast<char>(how & 255U);
    }
    EXPECT_EQ(WalkRun(input).run(), Steps);
}
