# Run by cpack between gathering the files and packing them: what Debian wants compressed and stripped, and
# the dates and permissions that hang on nothing but the commit.
set(tree "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr")
if(NOT EXISTS "${tree}")
    message(FATAL_ERROR "There is no ${tree} to be packed.")
endif()

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(GLOB texts "${tree}/share/man/man1/*.1" "${tree}/share/doc/brightrank/changelog" "${tree}/share/doc/brightrank/*.md")
run(gzip -9nf ${texts})
file(GLOB programs "${tree}/bin/*")
foreach(program IN LISTS programs)
    file(READ "${program}" magic LIMIT 4 HEX)
    if(magic STREQUAL "7f454c46")
        run(strip --remove-section=.comment --remove-section=.note "${program}")
    endif()
endforeach()
run(chmod --recursive u=rwX,go=rX "${tree}")
file(GLOB_RECURSE all LIST_DIRECTORIES true "${tree}/*")
run(touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} ${all} "${tree}")
