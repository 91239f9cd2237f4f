# Heavy headers are read once for a target instead of once for a file. Files still name every header that they use.
# Optimised builds go without: what comes from a precompiled header is no system header to GCC, and its false warnings of
# std::string's copies are errors then.
function(brightrank_precompile target header)
    if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
        return()
    endif()
    target_precompile_headers(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/${header})
    # For the compiler's cache: without it a file that uses a precompiled header is compiled each time.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
endfunction()
