// File number 1: the one number under which game files are open, so that there is one at a time.
#pragma once

#include "common/Fault.h"
#include "common/modChess.h"

// Holds file number 1 while it lives, if nobody has closed it meanwhile.
class FileOne {
public:
    // Faults (file) while the number is held.
    FileOne() {
        if (modChess.FileOneHolder) throw Fault(FaultKind::File, "a game file is open already");
        modChess.FileOneHolder = this;
    }
    ~FileOne() {
        if (modChess.FileOneHolder == this) close();
    }
    FileOne(const FileOne&) = delete;
    FileOne& operator=(const FileOne&) = delete;

    // Whoever holds the number loses it.
    static void close() { modChess.FileOneHolder = nullptr; }
};
