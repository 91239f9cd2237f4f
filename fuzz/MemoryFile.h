// An input as a file, for readers that take a path.
#pragma once

#include "Require.h"

#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

// A file without a name, gone when it is closed.
struct MemoryFile {
    int handle = memfd_create("input", 0);

    explicit MemoryFile(std::string_view bytes) {
        require(handle >= 0, "a file can be made");
        require(write(handle, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "it can be written");
    }
    ~MemoryFile() { close(handle); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(handle); }
};
