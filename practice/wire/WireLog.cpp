// The record of what clients send, for tests that look at the bytes.
#include "practice/wire/WireLog.h"

namespace practice {

bool WireLog::open(const std::string& path) {
    out_.open(path, std::ios::binary | std::ios::trunc);
    return out_.is_open();
}

void WireLog::take(const std::string& name, std::string_view bytes, std::string& partial) {
    if (!out_.is_open()) return;
    for (const char byte : bytes) {
        if (byte != '\n') {
            if (partial.size() < lineLimit) partial += byte;
            continue;
        }
        out_ << (name.empty() ? "-" : name) << '\t' << partial << '\n' << std::flush;
        partial.clear();
    }
}

} // namespace practice
