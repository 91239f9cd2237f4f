// Tests of the program's command line and of its ends.
#include "common/EnvironmentVariable.h"
#include "practice/ServerRig.h"

#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

namespace {

std::string temporaryFile(const std::string& text) {
    const std::string path = testing::TempDir() + "practice-users-" + std::to_string(getpid());
    std::ofstream(path) << text;
    return path;
}

TEST(Program, TheFirstLineTellsThePort) {
    const TestServer server;
    EXPECT_EQ(server.output(), "listening on 127.0.0.1:" + std::to_string(server.port()) + "\n");
    EXPECT_GT(server.port(), 0);
}

TEST(Program, TerminateAndInterruptEndItCleanly) {
    for (const int number : {SIGTERM, SIGINT}) {
        TestServer server;
        kill(server.pid(), number);
        EXPECT_EQ(server.wait(), 0) << number;
    }
}

TEST(Program, ItEndsWithClientsInTheMiddleOfGames) {
    TestServer server({"--move-delay", "0"});
    TestClient client(server.port());
    client.enterAsGuest();
    client.line("play 3");
    client.until("<12> ");
    kill(server.pid(), SIGTERM);
    EXPECT_EQ(server.wait(), 0);
}

TEST(Program, ItEndsWithItsOwner) {
    const pid_t owner = fork();
    if (owner == 0) {
        pause();
        _exit(0);
    }
    TestServer server({"--owner-pid", std::to_string(owner)});
    EXPECT_GT(server.port(), 0);
    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);
    EXPECT_EQ(server.wait(), 0);
}

TEST(Program, WithoutItsEngineItSaysSo) {
    TestServer server({"--engine", "/nonexistent/engine"});
    EXPECT_NE(server.output().find("the chess engine \"/nonexistent/engine\" is missing"), std::string::npos);
    EXPECT_EQ(server.wait(), 2);
}

TEST(Program, AnEngineThatEndsIsStartedAgainOnceOnly) {
    TestServer server({"--engine", "/bin/true"});
    EXPECT_EQ(server.wait(), 2);
    EXPECT_NE(server.output().find("engine ended"), std::string::npos);
}

// A machine that speaks German, for as long as it lives; `made` tells whether there is such a language.
class GermanMachine {
public:
    GermanMachine() {
        std::filesystem::create_directories(folder_);
        const std::string build = "localedef --no-warnings=ascii -i de_DE -f UTF-8 " + (folder_ / Name).string();
        made = std::system(build.c_str()) == 0;
    }
    ~GermanMachine() { std::filesystem::remove_all(folder_); }
    GermanMachine(const GermanMachine&) = delete;
    GermanMachine& operator=(const GermanMachine&) = delete;

    bool made = false;

private:
    static constexpr const char* Name = "de_DE.UTF-8";
    std::filesystem::path folder_ = testing::TempDir() + "languages-" + std::to_string(getpid());
    EnvironmentVariable languages_{"LOCPATH", folder_.c_str()};
    EnvironmentVariable language_{"LC_ALL", Name};
};

TEST(Program, DatesAreEnglishWhateverTheMachineSpeaks) {
    const GermanMachine german;
    ASSERT_TRUE(german.made);
    std::time_t sunday = 3 * 86400;
    char word[20];
    std::setlocale(LC_TIME, "");
    std::strftime(word, sizeof word, "%a %B", std::gmtime(&sunday));
    std::setlocale(LC_TIME, "C");
    ASSERT_STREQ(word, "So Januar") << "a program that lets the machine's language in would say so";
    const TestServer server;
    TestClient client(server.port());
    client.enterAsGuest();
    EXPECT_THAT(client.ask("date"),
                testing::ContainsRegex("Server time    - (Mon|Tue|Wed|Thu|Fri|Sat|Sun) "
                                       "(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) [ 1-3][0-9], "));
}

std::vector<pid_t> childrenOf(pid_t process) {
    const std::string number = std::to_string(process);
    std::ifstream in("/proc/" + number + "/task/" + number + "/children");
    std::vector<pid_t> children;
    for (pid_t child = 0; in >> child;) children.push_back(child);
    return children;
}

TEST(Program, EnginesThatDieDuringAGameAreStartedAgainOnce) {
    TestServer server({"--move-delay", "100"});
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    client.ask("observe 1");
    client.until("\n\r<12> ");
    const auto first = childrenOf(server.pid());
    ASSERT_EQ(first.size(), 3U);
    for (const pid_t engine : first) kill(engine, SIGKILL);
    for (int i = 0; i < 5; ++i) client.until("\n\r<12> ");
    const auto second = childrenOf(server.pid());
    ASSERT_EQ(second.size(), 3U);
    for (const pid_t engine : second) kill(engine, SIGKILL);
    EXPECT_EQ(server.wait(), 2);
}

TEST(Program, WrongOptionsAreNamed) {
    TestServer port({"--port", "99999"});
    EXPECT_NE(port.output().find("--port needs a number from 0 to 65535"), std::string::npos);
    EXPECT_EQ(port.wait(), 2);
    TestServer unknown({"--nonsense"});
    EXPECT_EQ(unknown.wait(), 2);
    TestServer file({"--users", "/nonexistent/users"});
    EXPECT_NE(file.output().find("cannot read /nonexistent/users"), std::string::npos);
    EXPECT_EQ(file.wait(), 2);
}

TEST(Program, APortInUseIsNamed) {
    const TestServer first;
    TestServer second({"--port", std::to_string(first.port())});
    EXPECT_NE(second.output().find("cannot listen on that port"), std::string::npos);
    EXPECT_EQ(second.wait(), 1);
}

TEST(Program, HelpTellsThePracticePassword) {
    TestServer server({"--help"});
    EXPECT_NE(server.output().find("password \"practice\""), std::string::npos);
    EXPECT_EQ(server.wait(), 0);
}

TEST(Program, UsersComeFromAFile) {
    const std::string path = temporaryFile("Olga swordfish 1900\n");
    TestServer server({"--users", path});
    TestClient client(server.port());
    client.until("login: ");
    client.line("olga");
    client.until("password: ");
    client.line("swordfish");
    client.until("**** Starting FICS session as Olga ****");
    std::remove(path.c_str());
}

TEST(Program, ComputersAreNoUsers) {
    const std::string path = temporaryFile("Olga swordfish 1900\nsprout secret\n");
    TestServer server({"--users", path});
    EXPECT_NE(server.output().find("Sprout is a computer player"), std::string::npos) << server.output();
    EXPECT_EQ(server.wait(), 2);
    std::remove(path.c_str());
}

} // namespace
