// How the program's memory goes back to the system.
#pragma once

#ifdef __GLIBC__
#include <malloc.h>
#endif

// Blocks of a megabyte and more, which are the console's text, are mapped each by itself from now on: one that grows
// is moved without being copied, and one that is freed goes back at once. Otherwise the allocator takes to keeping them
// among the small ones, where each leaves a hole as it grows.
inline void keepLargeBlocksApart() {
#ifdef __GLIBC__
    constexpr int Large = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, Large);
    mallopt(M_TRIM_THRESHOLD, 2 * Large);
#endif
}

// What is free now goes back.
inline void giveBackMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
