// One chess engine as a process, with a queue of requests.
#include "practice/engine/EngineProcess.h"

#include <cstdio>
#include <utility>

namespace practice {

EngineProcess::EngineProcess(QString program, std::string label, std::string setup, std::function<void()> onGone)
    : program_(std::move(program)), label_(std::move(label)), setup_(std::move(setup)), onGone_(std::move(onGone)) {
    process_.setStandardErrorFile(QProcess::nullDevice());
    silence_.setSingleShot(true);
    QObject::connect(&process_, &QProcess::readyReadStandardOutput, &process_, [this] { readLines(); });
    QObject::connect(&process_, &QProcess::finished, &process_, [this] { died("ended"); });
    QObject::connect(&process_, &QProcess::errorOccurred, &process_, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) died("did not start");
    });
    QObject::connect(&silence_, &QTimer::timeout, &silence_, [this] {
        // The end of the process leads on to a new start.
        std::fprintf(stderr, "brightrank-practice: the %s engine is silent\n", label_.c_str());
        process_.kill();
    });
    start();
}

EngineProcess::~EngineProcess() {
    closing_ = true;
    process_.write("quit\n");
    process_.closeWriteChannel();
    if (!process_.waitForFinished(1000)) {
        process_.kill();
        process_.waitForFinished(1000);
    }
}

void EngineProcess::ask(Request request) {
    queue_.push_back(std::move(request));
    if (queue_.size() == 1) putFirst();
}

// The engine reads its standard input in order, so nothing waits for the answer to "uci".
void EngineProcess::start() {
    partial_.clear();
    process_.start(program_, {});
    process_.write(QByteArray::fromStdString("uci\n" + setup_));
    putFirst();
}

void EngineProcess::putFirst() {
    if (gone_ || queue_.empty()) return;
    process_.write(QByteArray::fromStdString(queue_.front().text));
    silence_.start(silenceLimit);
}

void EngineProcess::readLines() {
    if (closing_) return;
    partial_ += process_.readAllStandardOutput();
    qsizetype end = partial_.indexOf('\n');
    while (end >= 0) {
        const std::string line = partial_.left(end).toStdString();
        partial_.remove(0, end + 1);
        takeLine(line);
        end = partial_.indexOf('\n');
    }
}

// A line that nobody waits for is the talk of the start.
void EngineProcess::takeLine(std::string_view line) {
    if (queue_.empty() || !queue_.front().take(line)) return;
    silence_.stop();
    const Request answered = std::move(queue_.front());
    queue_.pop_front();
    putFirst();
    answered.done();
}

// Also called for an engine that fell silent, by way of its end.
void EngineProcess::died(const char* how) {
    silence_.stop();
    if (closing_ || gone_) return;
    std::fprintf(stderr, "brightrank-practice: the %s engine %s\n", label_.c_str(), how);
    if (restarts_++ > 0) {
        gone_ = true;
        onGone_();
        return;
    }
    if (!queue_.empty()) queue_.front().restart();
    start();
}

} // namespace practice
