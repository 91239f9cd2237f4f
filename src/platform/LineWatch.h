// The system's own watch over a connection: it finds out that the other end can no longer be reached.
#pragma once

// Asks the system to watch the connected TCP socket `descriptor`: after 30 s of silence it knocks at the other end,
// every 10 s, and gives the connection up after three knocks without an answer, or when what was sent has not been
// acknowledged for 60 s. It tells so as an error of the socket. A system that knows no such limit for what was sent
// keeps its own.
void watchLine(int descriptor);

// True when the system has ended the connection, by that watch or by a word of the other end. What came before may
// still wait to be read.
bool lineIsDead(int descriptor);
