// Telnet commands are transport: what is taken out of the text, wherever a packet cuts it.
#include "platform/TelnetFilter.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

std::string filtered(std::string_view bytes) {
    TelnetFilter filter;
    return filter.filter(bytes);
}

// The text in a whole stream, read from its front to its end in one go.
struct WholeText {
    const std::string& all;
    std::size_t at = 0;
    std::string text;

    explicit WholeText(const std::string& stream) : all(stream) {
        while (at < all.size()) take();
    }
    int code(std::size_t place) const {
        return place < all.size() ? static_cast<unsigned char>(all[place]) : -1; // -1: the stream is over
    }
    void keep(std::size_t count) {
        text += all.substr(at, count);
        at += count;
    }
    void take() {
        const int next = code(at + 1);
        if (code(at) != 0xFF) return keep(1);
        if (next == -1) return keep(1);
        if (next == 0xFF) {
            text += '\xFF';
            at += 2;
        } else if (next >= 0xFB && next <= 0xFE) {
            if (code(at + 2) == -1) return keep(2);
            at += 3;
        } else if (next == 0xFA) {
            subnegotiation();
        } else {
            keep(2);
        }
    }
    void subnegotiation() {
        std::size_t place = at + 2;
        while (code(place) != -1 && !(code(place) == 0xFF && code(place + 1) == 0xF0)) {
            place += code(place) == 0xFF ? std::size_t{2} : std::size_t{1}; // FF FF within is one FF
        }
        const bool ends = code(place) != -1;
        if (ends && place - at < 1024) {
            at = place + 2;
        } else if (all.size() - at > 1024) {
            keep(2);
        } else {
            keep(1024);
        }
    }
};

std::string inPieces(const std::string& stream, std::mt19937& random, std::size_t longest) {
    TelnetFilter filter;
    std::string text;
    for (std::size_t at = 0; at < stream.size();) {
        const std::string piece = stream.substr(at, 1 + random() % longest);
        text += filter.filter(piece);
        at += piece.size();
    }
    return text + filter.finish();
}

} // namespace

TEST(TelnetFilterTest, TextPassesAsItIs) {
    const std::string text = "\n\rfics% \0\x07\xFE\xFA\xF0\xFB\x01"s;
    EXPECT_EQ(filtered(text), text);
    EXPECT_EQ(filtered(""), "");
}

TEST(TelnetFilterTest, WillWontDoAndDontGoWithTheirOption) {
    EXPECT_EQ(filtered("a\xFF\xFB\x01"
                       "b\xFF\xFC\x01"
                       "c\xFF\xFD\x18"
                       "d\xFF\xFE\xFF"
                       "e"s),
              "abcde");
}

TEST(TelnetFilterTest, ASubnegotiationGoesUpToItsEnd) {
    EXPECT_EQ(filtered("a\xFF\xFA\x18\x01terminal\n\r\xFF\xF0"
                       "b\xFF\xFA\xFF\xF0"
                       "c"s),
              "abc");
}

TEST(TelnetFilterTest, AnEscapedFFWithinASubnegotiationDoesNotEndIt) {
    EXPECT_EQ(filtered("a\xFF\xFA\xFF\xFF\xF0 \xFF\xFB\xFF\xF0"
                       "b"s),
              "ab");
}

TEST(TelnetFilterTest, TwoFFAreOneFF) {
    EXPECT_EQ(filtered("a\xFF\xFF"
                       "b\xFF\xFF\xFF\xFF\xFF\xFF"
                       "\xFB\x01"s),
              "a\xFF"
              "b\xFF\xFF\xFF\xFB\x01"s);
}

TEST(TelnetFilterTest, AnFFInFrontOfAnyOtherByteStays) {
    for (int code = 0; code < 256; ++code) {
        if (code >= 0xFA) continue;
        const std::string text = "a\xFF"s + static_cast<char>(code) + "b";
        EXPECT_EQ(filtered(text), text) << code;
    }
}

TEST(TelnetFilterTest, ACommandMayBeCutAnywhere) {
    TelnetFilter filter;
    EXPECT_EQ(filter.filter("pass\xFF"), "pass");
    EXPECT_EQ(filter.filter("\xFB"), "");
    EXPECT_EQ(filter.filter("\x01word: \xFF"), "word: ");
    EXPECT_EQ(filter.filter("\xFA\x18"), "");
    EXPECT_EQ(filter.filter(""), "");
    EXPECT_EQ(filter.filter("\xFF"), "");
    EXPECT_EQ(filter.filter("\xF0 fics% \xFF"), " fics% ");
    EXPECT_EQ(filter.filter("\xFF"), "\xFF");
}

TEST(TelnetFilterTest, WhatHasNoEndAfter1024BytesWasText) {
    const std::string longest = "\xFF\xFA" + std::string(1022, 'x') + "\xFF\xF0"s;
    EXPECT_EQ(filtered("a" + longest + "b"), "a" + longest + "b");
    EXPECT_EQ(filtered("a\xFF\xFA" + std::string(1021, 'x') + "\xFF\xF0"s + "b"), "ab");
    EXPECT_EQ(filtered("\xFF\xFA" + std::string(1022, 'x')), "") << "it may end yet";
    EXPECT_EQ(filtered("\xFF\xFA\xFF\xFB\x01" + std::string(1024, 'x')), "\xFF\xFA" + std::string(1024, 'x'))
        << "commands behind its front are commands";
}

TEST(TelnetFilterTest, TheFrontOfACommandAtTheEndOfAllWasText) {
    for (const std::string front : {"\xFF", "\xFF\xFB", "\xFF\xFA\x18\xFF"}) {
        TelnetFilter filter;
        EXPECT_EQ(filter.filter("bye" + front), "bye");
        EXPECT_EQ(filter.finish(), front);
        EXPECT_EQ(filter.finish(), "");
    }
}

TEST(TelnetFilterTest, AnyCutsOfAnyBytesGiveTheTextOfTheWhole) {
    const char* const given = std::getenv("BRIGHTRANK_STREAM_ROUNDS");
    const int rounds = given ? std::atoi(given) : 2000;
    std::mt19937 random(8192);
    const std::string bytes = "\xFF\xFF\xFF\xFF\xFA\xFB\xFC\xFD\xFE\xF0\xF0\xF1\x01\n\rab\0"s;
    for (int round = 0; round < rounds; ++round) {
        std::string stream;
        for (int i = 0; i < 300; ++i) {
            stream += random() % 200 == 0 ? std::string(random() % 1100, 'x')
                                          : std::string(1, bytes[random() % bytes.size()]);
        }
        const std::size_t longest = std::vector<std::size_t>{1, 3, 40, 2000}[random() % 4];
        const std::string expected = WholeText(stream).text;
        ASSERT_TRUE(inPieces(stream, random, longest) == expected) << "round " << round;
    }
}
