# What makes a mistake in the programs hard to use for an attack: code at unforeseeable addresses, tables of the linker
# that are read-only before main, guards on the stack, checked copies of the C library, checked containers of the C++
# library, and jumps only to where they may go. In every build; tools/hardening_check.py reads the programs for it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
add_compile_options(-fPIE) # there is no shared library of ours
add_link_options(LINKER:-z,relro,-z,now,-z,noexecstack)
add_compile_options(-fstack-protector-strong)
add_compile_definitions(_GLIBCXX_ASSERTIONS)

# Those that a processor or a compiler may not have.
foreach(flag -fstack-clash-protection -fcf-protection=full)
    string(MAKE_C_IDENTIFIER "HAS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
        add_compile_options(${flag})
    endif()
endforeach()

# The C library checks copies only in optimised code; the sanitizers check them themselves, and better.
string(TOUPPER "${CMAKE_BUILD_TYPE}" buildType)
set(flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${buildType}}")
set(BRIGHTRANK_FORTIFIED OFF)
if(flags MATCHES "-O[1-9gsz]" AND NOT flags MATCHES "-fsanitize")
    set(BRIGHTRANK_FORTIFIED ON)
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
endif()
