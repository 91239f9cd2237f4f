// OK with a text that is no number ends the program, before anything is sent.
#include "TestPaths.h"
#include "platform/EndedProgram.h"

#include <gtest/gtest.h>

#include <string>

namespace {

EndedProgram runProgram(const QStringList& arguments) { return runToEnd(QStringLiteral(MATCH_PROGRAM), arguments); }

void expectEnd(const QStringList& arguments, const std::string& line) {
    const EndedProgram ended = runProgram(arguments);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, "brightrank: " + line + "\n");
    EXPECT_EQ(ended.out, "") << "nothing is sent and nothing is saved";
}

class MatchFault : public testing::TestWithParam<const char*> {
protected:
    QString box() const { return QString::fromLatin1(GetParam()); }
};

const QString Match = QStringLiteral("match");
const QString Seek = QStringLiteral("seek");

} // namespace

TEST_P(MatchFault, AnEmptyBoxEndsTheProgram) {
    expectEnd({Seek, box(), QString()}, "type mismatch error: \"\" is no number");
}

TEST_P(MatchFault, ATextThatIsNoNumberEndsTheProgramInAMatchToo) {
    expectEnd({Match, box(), QStringLiteral("5 min")}, "type mismatch error: \"5 min\" is no number");
}

INSTANTIATE_TEST_SUITE_P(In, MatchFault, testing::Values("txtTime", "txtInc", "txtMin", "txtMax"),
                         [](const auto& box) { return std::string(box.param); });

TEST(MatchProgram, ANumberBeyond16BitsEndsIt) {
    const EndedProgram ended = runProgram({Seek, QStringLiteral("txtMax"), QStringLiteral("40000")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error.substr(0, 27), "brightrank: overflow error:");
    EXPECT_EQ(ended.out, "");
}

TEST(MatchProgram, ABoxThatIsDisabledByTheServersSettingsEndsItToo) {
    expectEnd({Match, QStringLiteral("txtTime"), QString(), QStringLiteral("server")},
              "type mismatch error: \"\" is no number");
}

TEST(MatchProgram, WithNumbersItSendsSavesAndGoesOn) {
    const EndedProgram ended = runProgram({Match, QStringLiteral("txtOpp"), QStringLiteral("fred")});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.error, "");
    EXPECT_EQ(ended.out, "sent Match fred 2 12 Normal r Auto Color \nkeys written 10\n");
}
