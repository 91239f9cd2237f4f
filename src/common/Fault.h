// The one exception of the program: a limit or a conversion that nobody may step over.
#pragma once

#include <exception>
#include <string>
#include <utility>

// What went wrong. A fault that nothing takes ends the program in the orderly fatal way.
enum class FaultKind {
    Subscript,    // an index past a fixed array, or a window that is not there
    TypeMismatch, // text that is no number in a strict conversion
    Overflow,     // a number past its 16- or 32-bit field
    File,         // a file that cannot be opened, read or written
};

// Always carries a kind and a text that names the limit and what was found.
class Fault : public std::exception {
public:
    Fault(FaultKind kind, std::string text) : kind_(kind), text_(std::move(text)) {}
    FaultKind kind() const noexcept { return kind_; }
    const char* what() const noexcept override { return text_.c_str(); }

private:
    FaultKind kind_;
    std::string text_;
};

// Runs `statement` and passes over a fault in it; true if there was none.
template <typename Statement>
bool passOver(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const Fault&) {
        return false;
    }
}
