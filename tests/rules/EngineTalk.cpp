// The packaged chess engine as a process, asked in turn about positions.
#include "rules/EngineTalk.h"

#include "practice/engine/UciReplies.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void become(const std::string& program, int input, int output) {
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
    std::_Exit(127);
}

} // namespace

std::string findEngineProgram() {
    const char* const path = std::getenv("PATH");
    std::istringstream folders(std::string(path != nullptr ? path : "") + ":/usr/games:/usr/bin");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string program = folder + "/fairy-stockfish";
        if (access(program.c_str(), X_OK) == 0) return program;
    }
    return "";
}

EngineTalk::EngineTalk(const std::string& program) {
    std::signal(SIGPIPE, SIG_IGN);
    int in[2];
    int out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = fork();
    if (process_ == 0) become(program, in[0], out[1]);
    close(in[0]);
    close(out[1]);
    input_ = in[1];
    output_ = out[0];
    write("uci\n");
    while (line() != "uciok") {
    }
}

EngineTalk::~EngineTalk() {
    close(input_);
    close(output_);
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

void EngineTalk::play(const std::string& variant, bool chess960) const {
    write("setoption name UCI_Chess960 value " + std::string(chess960 ? "true" : "false") +
          "\nsetoption name UCI_Variant value " + variant + "\n");
}

practice::PositionFacts EngineTalk::facts(const std::string& fen) {
    write("position fen " + fen + "\nd\ngo perft 1\n");
    return readFacts();
}

practice::PositionFacts EngineTalk::factsBehind(const std::string& fen, const std::string& move) {
    write("position fen " + fen + " moves " + move + "\nd\ngo perft 1\n");
    return readFacts();
}

practice::PositionFacts EngineTalk::readFacts() {
    practice::FactsReader reader;
    while (!reader.take(line())) {
    }
    return reader.facts;
}

// One batch: it and its answers stay within what the pipes hold.
std::vector<practice::PositionFacts> EngineTalk::behind(const std::string& fen, const std::vector<std::string>& moves) {
    std::string questions;
    for (const std::string& move : moves) questions += "position fen " + fen + " moves " + move + "\nd\n";
    write(questions);
    std::vector<practice::PositionFacts> answers;
    while (answers.size() < moves.size()) {
        practice::FactsReader reader;
        for (std::string text; !text.starts_with("Checkers:");) {
            text = line();
            reader.take(text);
        }
        answers.push_back(reader.facts);
    }
    return answers;
}

void EngineTalk::write(const std::string& text) const {
    for (std::size_t sent = 0; sent < text.size();) {
        const ssize_t count = ::write(input_, text.data() + sent, text.size() - sent);
        if (count <= 0) throw std::runtime_error("the engine has ended");
        sent += static_cast<std::size_t>(count);
    }
}

std::string EngineTalk::line() {
    std::size_t end = unread_.find('\n');
    while (end == std::string::npos) {
        char bytes[65536];
        const ssize_t count = read(output_, bytes, sizeof bytes);
        if (count <= 0) throw std::runtime_error("the engine has ended");
        unread_.append(bytes, static_cast<std::size_t>(count));
        end = unread_.find('\n');
    }
    const std::string found = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return found;
}
