# Each suite of a test program is a test of ctest and a process of its own; the program itself says which there are.
#   brightrank_test_suites(core_tests TIMEOUT 60)      gives core.Numbers and so on, with properties of the tests
function(brightrank_test_suites target)
    list(TRANSFORM ARGN REPLACE "(.+)" "\"\\1\"" OUTPUT_VARIABLE PROPERTIES)
    list(JOIN PROPERTIES " " PROPERTIES)
    set(PROGRAM $<TARGET_FILE:${target}>)
    string(REPLACE "_tests" "" NAME ${target})
    configure_file(${PROJECT_SOURCE_DIR}/cmake/ListSuites.cmake.in ${target}_suites.cmake.in @ONLY)
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake)
    file(GENERATE OUTPUT ${list} INPUT ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake.in)
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${list})
endfunction()
