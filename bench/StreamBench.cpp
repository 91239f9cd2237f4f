// Benchmarks the way of the server's text: cut into lines, tells told apart, Style 12 lines read, lines classified.
#include "board/Style12Line.h"
#include "common/modChess.h"
#include "session/QuietSurface.h"
#include "session/Session.h"
#include "session/TellLine.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t ArrivalBytes = 8192; // what the socket gives at once

// Recorded text in arrivals that end behind a line.
struct Stream {
    std::vector<std::string> arrivals;
    std::int64_t lines = 0;
    std::int64_t bytes = 0;
};

std::string fileText(const std::string& name) {
    std::ifstream file(std::string(BENCH_STREAMS) + "/" + name, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (text.empty()) {
        std::cerr << "no recorded text in " << name << '\n';
        std::exit(EXIT_FAILURE);
    }
    return text;
}

std::int64_t countLines(std::string_view text) {
    std::int64_t lines = 0;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end; ++lines) {
        const void* const feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        if (feed == nullptr) break;
        at = static_cast<const char*>(feed) + 1;
    }
    return lines;
}

Stream streamOf(std::string_view text) {
    Stream stream;
    while (!text.empty()) {
        std::size_t size = text.size();
        if (size > ArrivalBytes) size = text.rfind('\n', ArrivalBytes - 1) + 1;
        stream.arrivals.emplace_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    for (const std::string& arrival : stream.arrivals) {
        stream.lines += countLines(arrival);
        stream.bytes += static_cast<std::int64_t>(arrival.size());
    }
    return stream;
}

// A session with its prompts: log-on, help, lists, tells, and a few games.
const Stream& consoleText() {
    static const Stream stream = streamOf(fileText("server-a/01_anders_registered.raw"));
    return stream;
}

// The Style 12 lines of a long game, each with a line break in front and a prompt behind it.
const Stream& gameText() {
    static const Stream stream = [] {
        const std::string recorded = fileText("server-b/03_long_game_smoves.raw");
        std::string text;
        for (std::size_t at = recorded.find("<12> "); at != recorded.npos; at = recorded.find("<12> ", at + 1)) {
            text += "\n\r" + recorded.substr(at, recorded.find_first_of("\r\n", at) - at) + "\n\rfics% ";
        }
        return streamOf(text);
    }();
    return stream;
}

std::vector<std::string> linesOf(const Stream& stream, std::string_view marked) {
    std::vector<std::string> found;
    ServerLines lines;
    for (const std::string& arrival : stream.arrivals) {
        const int count = lines.zParse(arrival);
        for (int i = 0; i < count; ++i) {
            if (lines[i].find(marked) != std::string::npos) found.push_back(lines[i]);
        }
    }
    return found;
}

void report(benchmark::State& state, const Stream& stream) {
    state.SetItemsProcessed(state.iterations() * stream.lines);
    state.SetBytesProcessed(state.iterations() * stream.bytes);
}

void bareLineCount(benchmark::State& state, const Stream& (*text)()) {
    for (auto _ : state) {
        for (const std::string& arrival : text().arrivals) benchmark::DoNotOptimize(countLines(arrival));
    }
    report(state, text());
}
BENCHMARK_CAPTURE(bareLineCount, console, consoleText);
BENCHMARK_CAPTURE(bareLineCount, game, gameText);

void cutting(benchmark::State& state, const Stream& (*text)()) {
    ServerLines lines;
    for (auto _ : state) {
        for (const std::string& arrival : text().arrivals) benchmark::DoNotOptimize(lines.zParse(arrival));
    }
    report(state, text());
}
BENCHMARK_CAPTURE(cutting, console, consoleText);
BENCHMARK_CAPTURE(cutting, game, gameText);

void tellClassification(benchmark::State& state) {
    modChess.gPrompt = "fics% ";
    const auto lines = linesOf(consoleText(), "");
    for (auto _ : state) {
        for (const std::string& line : lines) benchmark::DoNotOptimize(zTellLine(line));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines.size()));
}
BENCHMARK(tellClassification);

void style12CutAndRead(benchmark::State& state) {
    const auto lines = linesOf(gameText(), "<12> ");
    Style12Record record;
    for (auto _ : state) {
        for (const std::string& line : lines) {
            const auto tokens = cutStyle12(line, LineEnd::RestIsToken);
            readStyle12PassingOver(*tokens, Style12Fields::All, record);
            benchmark::DoNotOptimize(record);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines.size()));
}
BENCHMARK(style12CutAndRead);

// Both passes, with a board that takes every game and a console that takes every line and keeps none.
void wholeClassifier(benchmark::State& state, const Stream& (*text)()) {
    modChess = ModChess();
    modChess.gPrompt = "fics% ";
    Session session(quietSurface());
    LineClassifier& classifier = session.classifier;
    classifier.hooks.zStyle12Line = [](const std::string& line) {
        const auto tokens = cutStyle12(line, LineEnd::RestIsToken);
        if (tokens) readStyle12PassingOver(*tokens, Style12Fields::All, modChess.Record);
        return tokens.has_value();
    };
    classifier.hooks.zFindBoard = [](std::int16_t) { return 0; };
    classifier.hooks.zSetPosition = [](int) {};
    classifier.hooks.zSetBughouse = [](int, const std::string&) {};
    std::size_t printed = 0;
    classifier.hooks.insert = [&printed](const std::string& line) { printed += line.size(); };
    for (auto _ : state) {
        for (const std::string& arrival : text().arrivals) classifier.zDataParse(arrival);
    }
    benchmark::DoNotOptimize(printed);
    report(state, text());
    modChess = ModChess();
}
BENCHMARK_CAPTURE(wholeClassifier, console, consoleText);
BENCHMARK_CAPTURE(wholeClassifier, game, gameText);

} // namespace
