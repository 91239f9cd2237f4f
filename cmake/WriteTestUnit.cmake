# Writes one unit of test files: the headers of all of them, then each file in a namespace of its own. Their own includes
# then have nothing left to bring. No path of this copy of the tree is in it, so that the compiler's cache knows it again.
#   cmake -D UNIT=build/board_1.cpp -D ROOT=tests -P cmake/WriteTestUnit.cmake -- tests/board/HoldingsTest.cpp ...
set(files)
set(behind FALSE)
foreach(index RANGE 1 ${CMAKE_ARGC})
    set(argument "${CMAKE_ARGV${index}}")
    if(behind AND argument)
        list(APPEND files "${argument}")
    elseif(argument STREQUAL "--")
        set(behind TRUE)
    endif()
endforeach()

set(headers)
set(bodies)
foreach(file IN LISTS files)
    file(RELATIVE_PATH path "${ROOT}" "${file}")
    get_filename_component(folder "${path}" DIRECTORY)
    file(STRINGS "${file}" includes REGEX "^#include ")
    foreach(include IN LISTS includes)
        # A header that stands beside the file is named from the root of the tests.
        string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" name "${include}")
        if(EXISTS "${ROOT}/${folder}/${name}")
            set(include "#include \"${folder}/${name}\"")
        endif()
        list(APPEND headers "${include}")
    endforeach()
    string(MAKE_C_IDENTIFIER "${path}" name)
    # What the file adds to a namespace of the sources lies in its own namespace as well, and sees what is there.
    set(opened)
    file(STRINGS "${file}" namespaces REGEX "^namespace [a-zA-Z]+ {")
    foreach(namespace IN LISTS namespaces)
        string(REGEX REPLACE "^namespace ([a-zA-Z]+) .*" "\\1" namespace "${namespace}")
        string(APPEND opened "namespace ${namespace} {\nusing namespace ::${namespace};\n}\n")
    endforeach()
    string(APPEND bodies "namespace ${name} {\n${opened}#include \"${path}\"\n}\n")
endforeach()
list(REMOVE_DUPLICATES headers)
list(JOIN headers "\n" headers)

# Fixtures of an anonymous namespace are meant to be this unit's.
file(WRITE "${UNIT}" "${headers}\n#pragma GCC diagnostic ignored \"-Wsubobject-linkage\"\n${bodies}")
