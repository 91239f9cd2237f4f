# Run by cpack before it begins: every date in the package is that of the commit, so that a commit makes one package. A tree
# without a repository takes the day of the release. SOURCE_DATE_EPOCH comes before both.
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
    execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY "${CPACK_BRIGHTRANK_SOURCE}"
        OUTPUT_VARIABLE second OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(second STREQUAL "")
        set(second ${CPACK_BRIGHTRANK_RELEASE_SECOND})
    endif()
    set(ENV{SOURCE_DATE_EPOCH} ${second})
endif()
