// A program that is started and ends by itself, as the tests of fatal ends look at it.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <sstream>
#include <string>

struct EndedProgram {
    int status = -1;
    std::string out;
    std::string error; // the lines that are the program's own, or that it did not exit
};

// The program's own lines; the toolkit may warn about the test's surroundings in between.
inline std::string ownLines(const std::string& text) {
    std::istringstream all(text);
    std::string own;
    for (std::string line; std::getline(all, line);) {
        if (line.starts_with("brightrank")) own += line + "\n";
    }
    return own;
}

// Runs `path` to its end; after 20 seconds, or when a signal ends it, the status stays -1.
inline EndedProgram runToEnd(const QString& path, const QStringList& arguments) {
    QProcess program;
    QProcessEnvironment english = QProcessEnvironment::systemEnvironment();
    english.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    program.setProcessEnvironment(english); // the system's words are part of what it says
    program.start(path, arguments);
    EndedProgram ended;
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
