// Runs the tests of a program that needs nothing but them.
#include "TestRun.h"

int main(int argc, char** argv) { return runTests(argc, argv); }
