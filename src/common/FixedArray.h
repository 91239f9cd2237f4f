// An array of fixed size whose every subscript is checked in every build.
#pragma once

#include "common/Fault.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

// What the elements of an array are, for the text of a fault: "moves of a game".
template <std::size_t Size>
struct Label {
    char text[Size]{};

    consteval Label(const char (&words)[Size]) { std::copy_n(words, Size, text); }
};

// Holds the elements 0 to Last. Never grows; a subscript outside 0..Last faults (subscript).
template <typename T, int Last, Label Of = "">
class FixedArray {
public:
    static constexpr int last = Last;

    // The element at `index`; faults (subscript) outside 0..Last.
    T& operator[](long index) { return elements_[checked(index)]; }
    const T& operator[](long index) const { return elements_[checked(index)]; }

    void fill(const T& value) { elements_.fill(value); }
    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

    friend bool operator==(const FixedArray&, const FixedArray&) = default;

private:
    static std::size_t checked(long index) {
        if (index < 0 || index > Last) {
            const std::string of = Of.text[0] == 0 ? "" : std::string(" (") + Of.text + ")";
            throw Fault(FaultKind::Subscript,
                        "subscript " + std::to_string(index) + " is outside 0 to " + std::to_string(Last) + of);
        }
        return static_cast<std::size_t>(index);
    }

    std::array<T, static_cast<std::size_t>(Last) + 1> elements_{};
};
