# Warnings for every target of ours, and warnings are errors.
add_library(brightrank_warnings INTERFACE)
target_compile_options(brightrank_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast -Werror)
