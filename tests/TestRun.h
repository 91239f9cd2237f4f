// Runs all tests of a program that the filter names. A program that ends before its last test has failed, however it
// ended; so has one that found no test to run.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

inline bool allTestsRan = false;

inline void failUnlessAllRan() {
    if (allTestsRan) return;
    std::fputs("The program ended in the middle of its tests.\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

inline int runTests(int& argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::atexit(failUnlessAllRan);
    const int result = RUN_ALL_TESTS();
    allTestsRan = true;
    if (testing::UnitTest::GetInstance()->test_to_run_count() > 0) return result;
    std::fputs("The filter names no test.\n", stderr);
    return EXIT_FAILURE;
}
