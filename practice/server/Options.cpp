// The command line of the practice server.
#include "practice/server/Options.h"

#include "practice/engine/Engines.h"
#include "practice/hall/Computers.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>

namespace practice {

namespace {

constexpr int usageError = 2;

QString description() {
    QString text = QStringLiteral("A chess server for practice on this machine. It listens on 127.0.0.1 only.\n"
                                  "Registered names, all with the password \"%1\":");
    text = text.arg(QString::fromLatin1(practicePassword.data(), static_cast<qsizetype>(practicePassword.size())));
    for (const Account& account : builtInAccounts().users)
        text += QStringLiteral(" ") + QString::fromStdString(account.name);
    return text + QStringLiteral(".\nEverybody else enters as a guest.");
}

void complain(const std::string& what) { std::fprintf(stderr, "brightrank-practice: %s\n", what.c_str()); }

void addOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(description());
    parser.addOptions({
        {QStringLiteral("help"), QStringLiteral("Shows this text.")},
        {QStringLiteral("version"), QStringLiteral("Shows the version.")},
        {QStringLiteral("port"), QStringLiteral("Port to listen on; 0 takes a free one (default 0)."),
         QStringLiteral("N")},
        {QStringLiteral("seed"), QStringLiteral("Makes the computers' games come out the same again."),
         QStringLiteral("N")},
        {QStringLiteral("move-delay"),
         QStringLiteral("Milliseconds between the moves of the two computers that play each other (default 2500)."),
         QStringLiteral("MS")},
        {QStringLiteral("ad-pace"),
         QStringLiteral("Milliseconds between two changes among the computers' ads (default 15000); 0 leaves them."),
         QStringLiteral("MS")},
        {QStringLiteral("engine"), QStringLiteral("The chess engine (default: fairy-stockfish, wherever it is)."),
         QStringLiteral("PATH")},
        {QStringLiteral("users"), QStringLiteral("Registered users, one \"NAME PASSWORD [RATING]\" a line."),
         QStringLiteral("FILE")},
        {QStringLiteral("log"),
         QStringLiteral("Writes every line that clients send, passwords among them, to a file as it came."),
         QStringLiteral("FILE")},
        {QStringLiteral("archive"),
         QStringLiteral(
             "Keeps histories, journals and adjourned games in a folder; without it they end with the server."),
         QStringLiteral("DIR")},
        {QStringLiteral("owner-pid"), QStringLiteral("Stop when this process is gone."), QStringLiteral("PID")},
    });
}

// The value of a numeric option; false with a complaint unless it is a number from 0 to `highest`.
// An option that was not given keeps the value that the caller put there.
bool readNumber(const QCommandLineParser& parser, const char* name, qint64 highest, qint64& value) {
    const QString key = QString::fromLatin1(name);
    if (!parser.isSet(key)) return true;
    bool good = false;
    value = parser.value(key).toLongLong(&good);
    if (good && value >= 0 && value <= highest) return true;
    complain(std::string("--") + name + " needs a number from 0 to " + std::to_string(highest));
    return false;
}

bool readNumbers(const QCommandLineParser& parser, Options& options) {
    qint64 port = options.port;
    qint64 seed = std::random_device{}();
    qint64 delay = options.moveDelay;
    qint64 pace = options.adPace;
    const bool good = readNumber(parser, "port", 65'535, port) && readNumber(parser, "seed", 4'294'967'295, seed) &&
                      readNumber(parser, "move-delay", 600'000, delay) &&
                      readNumber(parser, "ad-pace", 600'000, pace) &&
                      readNumber(parser, "owner-pid", 2'147'483'647, options.ownerPid);
    options.port = static_cast<quint16>(port);
    options.seed = static_cast<std::uint32_t>(seed);
    options.moveDelay = static_cast<int>(delay);
    options.adPace = static_cast<int>(pace);
    return good;
}

// Two players of one name would be one to everybody else.
bool computersAreNoUsers(const std::string& path, const Accounts& accounts) {
    const auto& all = computers();
    const auto at = std::find_if(all.begin(), all.end(), [&](const Computer& c) { return accounts.find(c.name); });
    if (at != all.end()) complain(path + ": " + at->name + " is a computer player");
    return at == all.end();
}

bool readUsers(const QString& file, Accounts& accounts) {
    if (file.isEmpty()) {
        accounts = builtInAccounts();
        return true;
    }
    const std::string path = file.toLocal8Bit().toStdString();
    std::ifstream in(path);
    if (!in) {
        complain("cannot read " + path);
        return false;
    }
    std::string error;
    const auto read = readAccounts(in, error);
    if (!read) complain(path + ": " + error);
    if (read) accounts = *read;
    return read && computersAreNoUsers(path, accounts);
}

// Tried out here, as the server itself has nobody to complain to.
bool readLog(const QString& file, std::string& log) {
    log = file.toLocal8Bit().toStdString();
    if (log.empty() || std::ofstream(log).is_open()) return true;
    complain("cannot write " + log);
    return false;
}

bool readEngine(const QString& wanted, Options& options) {
    options.engine = findEngine(wanted);
    if (!options.engine.isEmpty()) return true;
    const std::string name = wanted.isEmpty() ? "fairy-stockfish" : wanted.toLocal8Bit().toStdString();
    complain("the chess engine \"" + name + "\" is missing; install fairy-stockfish or name one with --engine");
    return false;
}

} // namespace

std::optional<Options> readOptions(const QStringList& arguments, int& exitCode) {
    QCommandLineParser parser;
    addOptions(parser);
    exitCode = usageError;
    if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty()) {
        complain(parser.errorText().isEmpty() ? "no arguments are expected besides the options"
                                              : parser.errorText().toStdString());
        return std::nullopt;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        exitCode = 0;
        return std::nullopt;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        std::printf("brightrank-practice %s\n", qPrintable(QCoreApplication::applicationVersion()));
        exitCode = 0;
        return std::nullopt;
    }
    Options options;
    options.archive = parser.value(QStringLiteral("archive")).toLocal8Bit().toStdString();
    const bool good = readNumbers(parser, options) &&
                      readUsers(parser.value(QStringLiteral("users")), options.accounts) &&
                      readLog(parser.value(QStringLiteral("log")), options.log) &&
                      readEngine(parser.value(QStringLiteral("engine")), options);
    return good ? std::optional<Options>(options) : std::nullopt;
}

} // namespace practice
