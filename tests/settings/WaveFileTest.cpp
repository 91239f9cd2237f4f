// Which files are wave files that can be played.
#include "settings/WaveFile.h"

#include <gtest/gtest.h>

#include <random>

namespace {

std::string number(unsigned value, int bytes) {
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8U) text += static_cast<char>(value);
    return text;
}

std::string format(unsigned code, unsigned channels, unsigned rate, unsigned bits) {
    return "fmt " + number(16, 4) + number(code, 2) + number(channels, 2) + number(rate, 4) + number(rate * 2, 4) +
           number(2, 2) + number(bits, 2);
}

std::string wave(const std::string& chunks) { return "RIFF" + number(100, 4) + "WAVE" + chunks; }

const std::string Data = "data" + number(2, 4) + "xy";

} // namespace

TEST(WaveFile, AWholeUncompressedFileIsPlayable) {
    EXPECT_TRUE(isPlayableWave(wave(format(1, 1, 44100, 16) + Data)));
    EXPECT_TRUE(isPlayableWave(wave(format(1, 2, 8000, 8) + Data)));
    EXPECT_TRUE(isPlayableWave(wave(format(1, 8, 192000, 32) + "data" + number(1, 4) + "x")))
        << "the widest, one byte long";
    EXPECT_TRUE(isPlayableWave(wave(format(1, 1, 1000, 8) + Data)));
}

TEST(WaveFile, OtherChunksArePassedOver) {
    const std::string other = "LIST" + number(3, 4) + "abc" + std::string(1, '\0');
    EXPECT_TRUE(isPlayableWave(wave(other + format(1, 1, 44100, 16) + other + Data + other)));
}

TEST(WaveFile, CompressedOrImpossibleFormatsAreNotPlayable) {
    for (const auto& fmt : {format(2, 1, 44100, 16), format(1, 0, 44100, 16), format(1, 9, 44100, 16),
                            format(1, 1, 0, 16), format(0x101, 1, 44100, 16), format(1, 0x101, 44100, 16),
                            format(1, 1, 0x1000000 + 44100, 16), format(1, 1, 44100, 0x110), format(1, 1, 999, 16),
                            format(1, 1, 192001, 16), format(1, 1, 999999, 16), format(1, 1, 44100, 7)}) {
        EXPECT_FALSE(isPlayableWave(wave(fmt + Data)));
    }
}

TEST(WaveFile, AnotherKindOfFileIsNotPlayable) {
    const std::string good = wave(format(1, 1, 44100, 16) + Data);
    EXPECT_FALSE(isPlayableWave("RIFX" + good.substr(4)));
    EXPECT_FALSE(isPlayableWave(good.substr(0, 8) + "AVI " + good.substr(12)));
}

TEST(WaveFile, AFileCutShortAnywhereIsNotPlayable) {
    const std::string good = wave(format(1, 1, 44100, 16) + Data);
    ASSERT_TRUE(isPlayableWave(good));
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_FALSE(isPlayableWave(good.substr(0, length))) << length;
    }
}

TEST(WaveFile, SamplesBeforeTheirFormatOrNoneAreNotPlayable) {
    EXPECT_FALSE(isPlayableWave(wave(Data + format(1, 1, 44100, 16))));
    EXPECT_FALSE(isPlayableWave(wave(format(1, 1, 44100, 16) + "data" + number(0, 4) + "xy")));
    EXPECT_FALSE(isPlayableWave(wave(format(1, 1, 44100, 16) + "data" + number(0xFFFFFFFF, 4) + "xy")));
    EXPECT_FALSE(isPlayableWave(wave(format(1, 1, 44100, 16) + "data" + number(0x01000002, 4) + "xy")));
}

TEST(WaveFile, RandomBytesAreReadWithoutHarm) {
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string bytes = wave("") + std::string(random() % 100, '\0');
        for (std::size_t i = 12; i < bytes.size(); ++i) bytes[i] = static_cast<char>(random());
        EXPECT_FALSE(isPlayableWave(bytes));
    }
}
