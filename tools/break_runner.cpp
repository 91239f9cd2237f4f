// Joined to a test program by tools/break_rules.py: says which break is chosen, and writes down which functions each
// test enters.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

#include <sys/mman.h>

extern int breakChosen;
extern int breakTraced;
void breakSeen(int function);
int breakAt(int value);

namespace {

int numberFrom(const char* name) {
    const char* text = std::getenv(name);
    return text == nullptr ? 0 : std::atoi(text);
}

constexpr std::size_t Most = 1 << 22; // of the numbers that tools/break_rules.py gives
char* seen = nullptr; // 1 for each function that was entered, here or in a process that a test has forked

void beginSeeing() {
    if (seen != nullptr) return;
    void* const shared = ::mmap(nullptr, Most, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) std::abort();
    seen = static_cast<char*>(shared);
}

// "Suite.Test 12 3 4 5": the test took 12 ms and entered the functions 3, 4 and 5. "end": no test is left out.
class Tracer : public testing::EmptyTestEventListener {
public:
    explicit Tracer(const char* path) : file_(path) {}

private:
    void OnTestStart(const testing::TestInfo&) override { writeOut("-", 0); }
    void OnTestEnd(const testing::TestInfo& test) override {
        const auto name = std::string(test.test_suite_name()) + "." + test.name();
        writeOut(test.result()->Failed() ? "!" + name : name, test.result()->elapsed_time());
    }
    void OnTestProgramEnd(const testing::UnitTest&) override {
        writeOut("-", 0);
        file_ << "end" << std::endl;
    }
    void writeOut(const std::string& name, long milliseconds) {
        file_ << name << ' ' << milliseconds;
        for (char* at = next(seen); at != nullptr; at = next(at + 1)) {
            file_ << ' ' << at - seen;
            *at = 0;
        }
        file_ << std::endl;
    }
    static char* next(char* from) {
        return static_cast<char*>(std::memchr(from, 1, static_cast<std::size_t>(seen + Most - from)));
    }
    std::ofstream file_;
};

} // namespace

void breakSeen(int function) {
    beginSeeing();
    if (static_cast<std::size_t>(function) >= Most) std::abort();
    seen[function] = 1;
}

int breakChosen = 0;
int breakTraced = 0;

int breakAt(int value) {
    if (breakTraced != 0) breakSeen(value);
    return breakChosen;
}

namespace {

const char* trace = nullptr; // the file to write

// Before every initialisation of the program's own, which may already run a broken function.
__attribute__((constructor(101))) void choose() {
    breakChosen = numberFrom("BREAK_CHOSEN");
    const char* const path = std::getenv("BREAK_TRACE");
    if (path == nullptr) return;
    trace = ::strdup(path);
    breakTraced = 1;
    ::unsetenv("BREAK_TRACE"); // a test may start this program again
}

const bool listens = [] {
    if (breakTraced == 0) return false;
    beginSeeing();
    testing::UnitTest::GetInstance()->listeners().Append(new Tracer(trace));
    return true;
}();

} // namespace
