// Which files are wave files that can be played, and what is played of them.
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
    EXPECT_TRUE(readWave(wave(format(1, 1, 44100, 16) + Data)));
    EXPECT_TRUE(readWave(wave(format(1, 2, 8000, 8) + Data)));
    EXPECT_TRUE(readWave(wave(format(1, 8, 192000, 32) + "data" + number(32, 4) + std::string(32, 'x'))))
        << "the widest, one frame long";
    EXPECT_TRUE(readWave(wave(format(1, 1, 8000, 8) + "data" + number(1, 4) + "x"))) << "one byte long";
    EXPECT_TRUE(readWave(wave(format(1, 1, 1000, 8) + Data)));
}

TEST(WaveFile, ItsFormatAndItsSamplesAreRead) {
    const auto read = [](unsigned channels, unsigned rate, unsigned bits, const std::string& samples) {
        const std::string data = "data" + number(static_cast<unsigned>(samples.size()), 4) + samples;
        static std::string file;
        file = wave(format(1, channels, rate, bits) + data + "tail");
        return readWave(file).value();
    };
    const Wave wide = read(2, 48000, 32, "12345678");
    EXPECT_EQ(wide.channels, 2U);
    EXPECT_EQ(wide.rate, 48000U);
    EXPECT_EQ(wide.bits, 32U);
    EXPECT_EQ(wide.samples, "12345678");
    EXPECT_EQ(read(1, 8000, 8, "123").samples, "123");
    EXPECT_EQ(read(1, 8000, 16, "123").samples, "12") << "whole frames only";
    EXPECT_EQ(read(3, 8000, 16, "1234567890abcdef").samples, "1234567890ab");
}

TEST(WaveFile, OtherChunksArePassedOver) {
    const std::string other = "LIST" + number(3, 4) + "abc" + std::string(1, '\0');
    EXPECT_TRUE(readWave(wave(other + format(1, 1, 44100, 16) + other + Data + other)));
}

TEST(WaveFile, CompressedOrImpossibleFormatsAreNotPlayable) {
    for (const auto& fmt : {format(2, 1, 44100, 16), format(1, 0, 44100, 16), format(1, 9, 44100, 16),
                            format(1, 1, 0, 16), format(0x101, 1, 44100, 16), format(1, 0x101, 44100, 16),
                            format(1, 1, 0x1000000 + 44100, 16), format(1, 1, 44100, 0x110), format(1, 1, 999, 16),
                            format(1, 1, 192001, 16), format(1, 1, 999999, 16), format(1, 1, 44100, 7)}) {
        EXPECT_FALSE(readWave(wave(fmt + "data" + number(2000, 4) + std::string(2000, 'x'))));
    }
}

TEST(WaveFile, AnotherKindOfFileIsNotPlayable) {
    const std::string good = wave(format(1, 1, 44100, 16) + Data);
    EXPECT_FALSE(readWave("RIFX" + good.substr(4)));
    EXPECT_FALSE(readWave(good.substr(0, 8) + "AVI " + good.substr(12)));
}

TEST(WaveFile, AFileCutShortAnywhereIsNotPlayable) {
    const std::string good = wave(format(1, 1, 44100, 16) + Data);
    ASSERT_TRUE(readWave(good));
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_FALSE(readWave(good.substr(0, length))) << length;
    }
}

TEST(WaveFile, SamplesBeforeTheirFormatOrNoneAreNotPlayable) {
    EXPECT_FALSE(readWave(wave(Data + format(1, 1, 44100, 16))));
    EXPECT_FALSE(readWave(wave(format(1, 1, 44100, 16) + "data" + number(0, 4) + "xy")));
    EXPECT_FALSE(readWave(wave(format(1, 2, 44100, 16) + "data" + number(3, 4) + "xyz"))) << "less than a frame";
    EXPECT_FALSE(readWave(wave(format(1, 1, 44100, 16) + "data" + number(0xFFFFFFFF, 4) + "xy")));
    EXPECT_FALSE(readWave(wave(format(1, 1, 44100, 16) + "data" + number(0x01000002, 4) + "xy")));
}

TEST(WaveFile, RandomBytesAreReadWithoutHarm) {
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string bytes = wave("") + std::string(random() % 100, '\0');
        for (std::size_t i = 12; i < bytes.size(); ++i) bytes[i] = static_cast<char>(random());
        EXPECT_FALSE(readWave(bytes));
    }
}
