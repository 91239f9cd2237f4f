// The text of settings files: what is written reads back, and nothing that is read can do harm.
#include "settings/IniText.h"

#include <gtest/gtest.h>

#include <random>

namespace {

// What (section S, key K) gives when `line` is the only line of the section.
std::string valueOf(const std::string& line) {
    const IniText text("[S]\n" + line + "\n");
    const std::string* found = text.find("S", "K");
    return found ? *found : "(absent)";
}

std::string throughBytes(const std::string& value) {
    IniText text;
    text.set("S", "K", value);
    const IniText again(text.bytes());
    const std::string* found = again.find("S", "K");
    return found ? *found : "(absent)";
}

} // namespace

TEST(IniText, ReadsSectionsAndValuesAsTheyStand) {
    const IniText text("; note\n[Client]\r\nRegistry_OK=Yes\n\nLeft = 150 \n[Board]\nLeft=3\n# note\n");
    EXPECT_EQ(*text.find("Client", "Registry_OK"), "Yes");
    EXPECT_EQ(*text.find("Client", "Left"), "150");
    EXPECT_EQ(*text.find("Board", "Left"), "3");
    EXPECT_EQ(text.find("Client", "Top"), nullptr);
    EXPECT_EQ(text.find("", "Left"), nullptr);
}

TEST(IniText, WritesSectionsAndKeysInTheOrderOfFirstAppearance) {
    IniText text;
    text.set("Client", "Registry_OK", "Yes");
    text.set("Board", "Left", "3");
    text.set("Client", "Handle", "fred");
    text.set("Client", "Registry_OK", "No");
    EXPECT_EQ(text.bytes(), "[Client]\nRegistry_OK=No\nHandle=fred\n\n[Board]\nLeft=3\n");
}

TEST(IniText, HardTextsSurvive) {
    for (const char* value : {"",
                              "a,b",
                              "\"",
                              "\"q\"",
                              "\\",
                              "C:\\games\\new",
                              "@",
                              "@@",
                              "@Variant(x)",
                              "100%",
                              "%41",
                              "a\nb\r\nc\r",
                              " blanks ",
                              "\t",
                              ";x",
                              "#x",
                              "a;b=c",
                              "[S]",
                              "x=y",
                              "\x01\x32",
                              "\x80"
                              "ab",
                              "\xE4\xF6\xFC\xDF",
                              "\xC3\xA4",
                              "\xFF\xFE"}) {
        EXPECT_EQ(throughBytes(value), value);
    }
}

TEST(IniText, AnEscapeNamesOneByteAndWhatIsBeyondItIsAQuestionMark) {
    EXPECT_EQ(valueOf("K=\\xff"), "\xFF");
    EXPECT_EQ(valueOf("K=\\x100"), "?");
    EXPECT_EQ(valueOf("K=a\\0b"), std::string("a\0b", 3));
    EXPECT_EQ(valueOf("K=a\\1b"), "a\\1b");
    EXPECT_EQ(valueOf("K=x\\a\\b\\f\\n\\r\\t\\vx"), "x\a\b\f\n\r\t\vx");
    EXPECT_EQ(valueOf("K=a\\"), "a\\");
}

TEST(IniText, ControlCharactersAreWrittenAsEscapesAndLatin1IsNot) {
    const auto written = [](const std::string& value) {
        IniText text;
        text.set("S", "K", value);
        return text.bytes();
    };
    for (const char* control : {"\x1F", "\x7F", "\x80", "\x9F"}) {
        EXPECT_EQ(written(control).find(control), std::string::npos);
    }
    EXPECT_NE(written("a b").find("K=a b"), std::string::npos);
    EXPECT_NE(written("\x7E").find("K=\x7E\n"), std::string::npos);
    EXPECT_NE(written("\xA0").find("K=\xC2\xA0"), std::string::npos);
}

TEST(IniText, NamesOfLettersDigitsHyphensPointsAndUnderscoresAreWrittenAsTheyStand) {
    IniText text;
    text.set("S", "a-b.c_d9", "1");
    text.set("S", "~\x80", "2");
    EXPECT_EQ(text.bytes(), "[S]\na-b.c_d9=1\n%7e%80=2\n");
}

TEST(IniText, APercentSignWithoutTwoDigitsBehindItStandsForItself) {
    EXPECT_TRUE(IniText("[S]\na%4g=1\n").find("S", "a%4g"));
    EXPECT_TRUE(IniText("[S]\na%g4=1\n").find("S", "a%g4"));
    EXPECT_TRUE(IniText("[S]\na%41=1\n").find("S", "aA"));
    EXPECT_TRUE(IniText("[S]\na%4=1\n").find("S", "a%4"));
}

TEST(IniText, ANoteIsNoValueHoweverItLooks) {
    const IniText text("[S]\n;a=1\n#b=2\n");
    EXPECT_FALSE(text.find("S", ";a"));
    EXPECT_FALSE(text.find("S", "#b"));
}

TEST(IniText, AByteOrderMarkAtTheFrontIsPassedOver) {
    const IniText text("\xEF\xBB\xBF[S]\nK=1\n");
    ASSERT_TRUE(text.find("S", "K"));
    EXPECT_EQ(*text.find("S", "K"), "1");
}

TEST(IniText, EveryByteAndEveryPairOfBytesSurvives) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string value{static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(throughBytes(value), value) << first << " " << second;
        }
    }
}

TEST(IniText, NamesOfAnyBytesSurvive) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string name = std::string("n") + static_cast<char>(byte) + "1";
        IniText text;
        text.set(name, name, "v");
        const IniText again(text.bytes());
        ASSERT_NE(again.find(name, name), nullptr) << byte;
    }
}

TEST(IniText, ValuesWithoutASectionStayWithoutOne) {
    IniText text;
    text.set("Client", "A", "1");
    text.set("", "B", "2");
    EXPECT_EQ(text.bytes(), "B=2\n\n[Client]\nA=1\n");
    EXPECT_EQ(*IniText(text.bytes()).find("", "B"), "2");
    EXPECT_EQ(*IniText(text.bytes()).find("Client", "A"), "1");
}

TEST(IniText, HandWrittenTextsAreReadAsMeant) {
    EXPECT_EQ(valueOf("K=tell fred hi, there"), "tell fred hi, there");
    EXPECT_EQ(valueOf("K=\"two\", \"three\""), "two, three");
    EXPECT_EQ(valueOf("K=C:\\Games"), "C:\\Games");
    EXPECT_EQ(valueOf("K=\"open"), "open");
    EXPECT_EQ(valueOf("K=M\xC3\xBCller"), "M\xFCller");
    EXPECT_EQ(valueOf("K=M\xFCller"), "M\xFCller");
    EXPECT_EQ(valueOf("K=\xE2\x82\xAC"), "?");
    EXPECT_EQ(valueOf("K=1\nK=2"), "2");
    EXPECT_EQ(valueOf("K"), "(absent)");
}

TEST(IniText, TypedValuesAreText) {
    EXPECT_EQ(valueOf("K=@Variant(\\0\\0\\0\\x9\\0\\x7f\\xff\\xff\\xff)").substr(0, 9), "@Variant(");
    EXPECT_EQ(valueOf("K=@Invalid()"), "@Invalid()");
    EXPECT_EQ(valueOf("K=@@x"), "@x");
}

TEST(IniText, LongLinesAreKeptWhole) {
    EXPECT_EQ(valueOf("K=" + std::string(1'000'000, 'x')), std::string(1'000'000, 'x'));
    EXPECT_EQ(valueOf("K=\\x" + std::string(1'000'000, 'f')), "?");
}

TEST(IniText, RandomBytesAreReadAndThenWrittenStably) {
    std::mt19937 random(7);
    constexpr std::string_view Frequent = "[]=\"\\x@%;\n\r,K ";
    for (int round = 0; round < 5000; ++round) {
        std::string bytes(random() % 120, '\0');
        for (char& c : bytes) c = random() % 2 ? Frequent[random() % Frequent.size()] : static_cast<char>(random());
        const IniText text(bytes);
        const IniText again(text.bytes());
        ASSERT_EQ(again.entries().size(), text.entries().size());
        for (const IniEntry& entry : text.entries()) {
            const std::string* found = again.find(entry.section, entry.key);
            ASSERT_NE(found, nullptr);
            ASSERT_EQ(*found, entry.text);
        }
    }
}
