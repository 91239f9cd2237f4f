// The answers of the server that can be collected, as zSetstate is told them.
#pragma once

#include <cstdint>

enum CaptureState : std::int16_t {
    VarsState = 3,
    MovesState = 4,
    SoughtState = 6,
    NotesState = 7,
    HelpState = 8,
    HistoryState = 9
};
