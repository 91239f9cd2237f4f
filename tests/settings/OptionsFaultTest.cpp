// A port that is no number ends the program in order, as it is typed.
#include "TestPaths.h"
#include "platform/EndedProgram.h"

#include <gtest/gtest.h>

#include <string>

namespace {

EndedProgram typedInto(const char* box, const char* text) {
    return runToEnd(QStringLiteral(OPTIONS_PROGRAM), {QString::fromLatin1(box), QString::fromLatin1(text)});
}

void expectEnd(const char* port, const std::string& error) {
    const EndedProgram ended = typedInto("txtPort", port);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error.substr(0, 12 + error.size()), "brightrank: " + error);
    EXPECT_EQ(ended.out, "") << "nothing is saved";
}

} // namespace

TEST(OptionsFault, ALetterInThePortEndsTheProgram) { expectEnd("50x", "type mismatch error: \"50x\" is no number\n"); }

TEST(OptionsFault, AnEmptiedPortEndsTheProgram) { expectEnd("", "type mismatch error: \"\" is no number\n"); }

TEST(OptionsFault, ASignAloneEndsTheProgram) { expectEnd("-5", "type mismatch error: \"-\" is no number\n"); }

TEST(OptionsFault, APortBeyond32BitsEndsTheProgram) { expectEnd("2147483648", "overflow error:"); }

TEST(OptionsFault, ANumberTypedOverTheOldOneDoesNot) {
    const EndedProgram ended = typedInto("txtPort", "6000");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.error, "");
    EXPECT_EQ(ended.out, "port 6000 warning 10 keys written 2\n");
}

TEST(OptionsFault, NothingTypedIntoTheWarningEndsIt) {
    for (const auto& [text, seconds] : {std::pair{"", "0"}, {"x", "0"}, {"99999999999", "32767"}}) {
        const EndedProgram ended = typedInto("txtWarn", text);
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.out, std::string("port 5000 warning ") + seconds + " keys written 2\n") << text;
    }
}
