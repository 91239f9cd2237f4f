# Warnings for every target of ours, and warnings are errors.
add_library(brightrank_warnings INTERFACE)
target_compile_options(brightrank_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast -Werror)
# gcc 12 sees an overlap of 9 exabytes in every `"text" + string` that it inlines, so only when it optimises fully.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(brightrank_warnings INTERFACE -Wno-restrict)
endif()
