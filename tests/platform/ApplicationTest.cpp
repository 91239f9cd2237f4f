// A fault that nothing takes ends the program in the orderly fatal way, wherever it is thrown.
#include "TestPaths.h"
#include "platform/EndedProgram.h"

#include <gtest/gtest.h>

#include <string>

namespace {

EndedProgram runProgram(const std::string& way) {
    return runToEnd(QStringLiteral(FAULT_PROGRAM), {QString::fromStdString(way)});
}

const std::string FaultLine = "brightrank: subscript error: subscript 1001 is outside 0 to 1000\n";

class FaultThrown : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(FaultThrown, EndsWithStatus1AndOneLineOnStandardError) {
    const EndedProgram ended = runProgram(GetParam());
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, FaultLine);
    EXPECT_EQ(ended.out, "stopped\n");
}

INSTANTIATE_TEST_SUITE_P(In, FaultThrown,
                         testing::Values("start", "timer", "arrival", "socket", "nested", "nestedArrival", "queued",
                                         "painting"),
                         [](const auto& way) { return std::string(way.param); });

TEST(Application, AFaultInADestructorEndsItWithoutABox) {
    const EndedProgram ended = runProgram("destructor");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, FaultLine);
}

TEST(Application, AnotherExceptionEndsItTheSameWay) {
    const EndedProgram ended = runProgram("exception");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, "brightrank: error: another limit\n");
}

TEST(Application, AnUnknownExceptionEndsItTheSameWay) {
    const EndedProgram ended = runProgram("unknown");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, "brightrank: error: unknown\n");
}

TEST(Application, NothingOfTheProgramRunsWhileTheLastBoxIsUp) {
    const EndedProgram ended = runProgram("box");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, FaultLine);
    EXPECT_EQ(ended.out, "stopped\nbox up\nBrightrank has to end.\n\nsubscript error: subscript 1001 is outside 0 to "
                         "1000\n");
}

TEST(Application, ATerminalIsGivenNoCommandsOfTheTextThatMetTheLimit) {
    EXPECT_EQ(runProgram("terminal").error,
              "brightrank: type mismatch error: \"?]0;title??2Jx?\u00fc\" is no number\n");
}

TEST(Application, NoLabelOfItsWindowsTakesATextForMarkup) { EXPECT_EQ(runProgram("label").out, "plain\n"); }

TEST(Application, WithoutAFaultTheStatusIsTheProgramsOwn) { EXPECT_EQ(runProgram("none").status, 7); }

TEST(Application, AnEndAskedForWhileTheStartLetsEventsRunEndsIt) {
    const EndedProgram ended = runProgram("endWhileStarting");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "started\n");
}
