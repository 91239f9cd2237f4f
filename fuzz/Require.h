// What a fuzz target asserts: a sentence that has to hold for every input.
#pragma once

#include <cstdio>
#include <cstdlib>

// Ends the run with `what` on standard error when `holds` is false; that is a finding.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
