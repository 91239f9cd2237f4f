# Test files are compiled several at a time, so that the headers and templates which they share are worked through once.
# Each file keeps a namespace of its own in its unit: helpers may be called what those of the neighbours are called.
#   brightrank_test_units(core_tests)      behind the last file of the target
# A unit holds up to 8 files named *Test.cpp of one folder; all other files are compiled by themselves.
function(brightrank_test_units target)
    get_target_property(files ${target} SOURCES)
    list(TRANSFORM files PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ REGEX "^[^/]")
    list(FILTER files INCLUDE REGEX "Test\\.cpp$")
    list(TRANSFORM files REPLACE "/[^/]*$" "" OUTPUT_VARIABLE folders)
    list(REMOVE_DUPLICATES folders)
    foreach(folder IN LISTS folders)
        set(ofFolder ${files})
        list(FILTER ofFolder INCLUDE REGEX "^${folder}/[^/]*$")
        brightrank_units_of_folder(${target} ${folder} ${ofFolder})
    endforeach()
    set_source_files_properties(${files} TARGET_DIRECTORY ${target} PROPERTIES HEADER_FILE_ONLY ON)
endfunction()

# The files spread evenly over as many units as they need.
function(brightrank_units_of_folder target folder)
    get_filename_component(name ${folder} NAME)
    list(LENGTH ARGN count)
    math(EXPR units "(${count} + 7) / 8")
    foreach(number RANGE 1 ${units})
        math(EXPR first "(${number} - 1) * ${count} / ${units}")
        math(EXPR length "${number} * ${count} / ${units} - ${first}")
        list(SUBLIST ARGN ${first} ${length} files)
        set(unit ${CMAKE_CURRENT_BINARY_DIR}/${target}_units/${name}_${number}.cpp)
        # Written anew with each change, because a file may have come to include something more.
        add_custom_command(OUTPUT ${unit}
            COMMAND ${CMAKE_COMMAND} -D UNIT=${unit} -D ROOT=${PROJECT_SOURCE_DIR}/tests
                -P ${PROJECT_SOURCE_DIR}/cmake/WriteTestUnit.cmake -- ${files}
            DEPENDS ${files} ${PROJECT_SOURCE_DIR}/cmake/WriteTestUnit.cmake
            VERBATIM)
        target_sources(${target} PRIVATE ${unit})
        set_source_files_properties(${unit} TARGET_DIRECTORY ${target} PROPERTIES SKIP_AUTOMOC ON)
    endforeach()
endfunction()
