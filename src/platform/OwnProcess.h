// What the program asks of the process that it runs in, whoever started it.
#pragma once

// To be called before anything is opened. Standard input, output and error are open afterwards, if need be on nothing:
// else a file or the line to the server would get one of their numbers, and what is written to standard error. A write
// that nobody reads, or that a limit of the user's forbids, fails from now on and does not end the program.
void settleProcess();
