// A fault that nothing takes ends the program in the orderly fatal way, wherever it is thrown.
#include <QProcess>
#include <QString>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

struct Ended {
    int status = -1;
    std::string out;
    std::string error;
};

// The program's own lines; the toolkit may warn about the test's surroundings in between.
std::string ownLines(const std::string& text) {
    std::istringstream all(text);
    std::string own;
    for (std::string line; std::getline(all, line);) {
        if (line.starts_with("brightrank")) own += line + "\n";
    }
    return own;
}

Ended runProgram(const std::string& way) {
    QProcess program;
    program.start(QStringLiteral(FAULT_PROGRAM), {QString::fromStdString(way)});
    Ended ended;
    if (!program.waitForFinished(20000) || program.exitStatus() != QProcess::NormalExit) {
        program.kill();
        program.waitForFinished();
        ended.error = "did not exit";
        return ended;
    }
    ended.status = program.exitCode();
    ended.out = program.readAllStandardOutput().toStdString();
    ended.error = ownLines(program.readAllStandardError().toStdString());
    return ended;
}

const std::string FaultLine = "brightrank: subscript error: subscript 1001 is outside 0 to 1000\n";

class FaultThrown : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(FaultThrown, EndsWithStatus1AndOneLineOnStandardError) {
    const Ended ended = runProgram(GetParam());
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, FaultLine);
    EXPECT_EQ(ended.out, "stopped\n");
}

INSTANTIATE_TEST_SUITE_P(In, FaultThrown,
                         testing::Values("start", "timer", "arrival", "socket", "nested", "nestedArrival", "queued",
                                         "painting"),
                         [](const auto& way) { return std::string(way.param); });

TEST(Application, AFaultInADestructorEndsItWithoutABox) {
    const Ended ended = runProgram("destructor");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, FaultLine);
}

TEST(Application, AnotherExceptionEndsItTheSameWay) {
    const Ended ended = runProgram("exception");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, "brightrank: error: another limit\n");
}

TEST(Application, AnUnknownExceptionEndsItTheSameWay) {
    const Ended ended = runProgram("unknown");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, "brightrank: error: unknown\n");
}

TEST(Application, NothingOfTheProgramRunsWhileTheLastBoxIsUp) {
    const Ended ended = runProgram("box");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.error, FaultLine);
    EXPECT_EQ(ended.out, "stopped\nbox up\nBrightrank has to end.\n\nsubscript error: subscript 1001 is outside 0 to "
                         "1000\n");
}

TEST(Application, WithoutAFaultTheStatusIsTheProgramsOwn) { EXPECT_EQ(runProgram("none").status, 7); }
