# Warnings for every target of ours, and warnings are errors.
add_library(brightrank_warnings INTERFACE)
target_compile_options(brightrank_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast -Werror)
# GCC 12 warns falsely of overlapping copies where std::string operators are inlined (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(brightrank_warnings INTERFACE -Wno-restrict)
endif()
