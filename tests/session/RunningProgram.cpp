// The built program as a process of its own, with settings and a server of the test's.
#include "session/RunningProgram.h"

#include "TestPaths.h"
#include "platform/WaitUntil.h"

#include <QDir>

#include <filesystem>
#include <fstream>
#include <sstream>

#include <csignal>

namespace {
constexpr int PatienceMs = 15000;
} // namespace

RunningProgram::RunningProgram() {
    QDir(folder_.path()).mkpath(QStringLiteral("Brightrank"));
    QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    surroundings.insert(QStringLiteral("XDG_CONFIG_HOME"), folder_.path());
    surroundings.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(surroundings);
    process.setWorkingDirectory(folder_.path());
    writeSettings(connectingSettings());
}

RunningProgram::~RunningProgram() {
    if (process.state() == QProcess::NotRunning) return;
    process.kill();
    process.waitForFinished();
}

std::string RunningProgram::connectingSettings() const {
    return "[Client]\nRegistry_OK=Yes\nWidth=11400\nHeight=8400\nHandle=Anders\nPassword=secret\nAuto_Connect=True\n"
           "Auto_Logon=True\nUse_Timeseal=False\nIP=127.0.0.1\nPort=" +
           std::to_string(server.port()) + "\n";
}

bool RunningProgram::start() {
    process.start(QStringLiteral(BRIGHTRANK_PROGRAM), QStringList());
    return waitUntil([this] { return server.hasClient(); }, PatienceMs);
}

bool RunningProgram::ended() {
    return waitUntil([this] { return process.state() == QProcess::NotRunning; }, PatienceMs) &&
           process.exitStatus() == QProcess::NormalExit;
}

void RunningProgram::signal(int number) const { ::kill(static_cast<pid_t>(process.processId()), number); }

std::string RunningProgram::errorLines() {
    std::istringstream all(process.readAllStandardError().toStdString());
    std::string own;
    for (std::string line; std::getline(all, line);) {
        if (line.starts_with("brightrank") || line.find("runtime error") != line.npos) own += line + "\n";
    }
    return own;
}

std::string RunningProgram::settingsPath() const { return folder_.path().toStdString() + "/Brightrank/Brightrank.ini"; }

std::string RunningProgram::settingsText() const {
    std::ifstream file(settingsPath(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void RunningProgram::writeSettings(const std::string& text) const {
    std::ofstream(settingsPath(), std::ios::binary) << text;
    std::filesystem::permissions(settingsPath(), std::filesystem::perms(0600));
}
