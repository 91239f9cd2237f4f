// Writing to an open file until nothing is left.
#pragma once

#include <string_view>

// Writes all of `bytes` to the file descriptor `file`; false at the first write that fails, with a part written.
bool writeAll(int file, std::string_view bytes);
