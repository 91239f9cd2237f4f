// What the heap of this process holds.
#pragma once

#include <cstddef>

#include <malloc.h>

// Bytes in use; 0 where the allocator does not tell.
inline std::size_t heapInUse() {
    const auto told = mallinfo2();
    return told.uordblks + told.hblkhd;
}
