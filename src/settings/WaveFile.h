// Which files are wave files that can be played.
#pragma once

#include <string_view>

// True when `file`, all bytes of a file, is a whole wave file: uncompressed, one to eight channels of 8, 16 or 32 bits
// at 1,000 to 192,000 frames a second, with all the samples it announces. Never faults, whatever the bytes are.
bool isPlayableWave(std::string_view file);
