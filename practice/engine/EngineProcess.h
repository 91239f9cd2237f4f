// One chess engine as a process, with a queue of requests.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace practice {

// Starts an engine and asks it one thing at a time. An engine that dies or stays silent is started again once, and the
// request at hand is put to it again; after a second death `onGone` is called and nothing more is answered.
class EngineProcess {
public:
    // One question: what to write, what takes each line (true at the last one), and what to do then.
    struct Request {
        std::string text;              // whole lines
        std::function<void()> restart; // forget what came, the question will be put again
        std::function<bool(std::string_view line)> take;
        std::function<void()> done;
    };

    // `label` stands in messages on standard error; `setup` is written after each start. `onGone` may be called once,
    // from the event loop.
    EngineProcess(QString program, std::string label, std::string setup, std::function<void()> onGone);
    ~EngineProcess();
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;

    // Puts a request at the end of the queue.
    void ask(Request request);

    // Requests that are not answered yet.
    std::size_t waiting() const { return queue_.size(); }

private:
    static constexpr int silenceLimit = 20'000; // milliseconds for one answer

    // Starts the program and puts the request at hand, if any.
    void start();
    // Writes the oldest request and begins to wait for its answer.
    void putFirst();
    // Cuts the engine's output into lines.
    void readLines();
    // Gives a line to the request at hand and goes on to the next when it is answered.
    void takeLine(std::string_view line);
    // Starts again the first time, and gives up the second; `how` ends the message on standard error.
    void died(const char* how);

    QString program_;
    std::string label_;
    std::string setup_;
    std::function<void()> onGone_;
    QProcess process_;
    QTimer silence_;
    QByteArray partial_;
    std::deque<Request> queue_;
    int restarts_ = 0;
    bool gone_ = false;
    bool closing_ = false;
};

} // namespace practice
