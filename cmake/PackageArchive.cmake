# Run by cpack when the package is written: it is put together anew by Debian's own packer, whose bytes do not hang on the mask
# of new files, and which makes it smaller.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(folder "${CPACK_TEMPORARY_DIRECTORY}-anew")
    file(REMOVE_RECURSE "${folder}")
    foreach(step "--raw-extract;${package};${folder}" "--root-owner-group;-Zxz;--build;${folder};${package}")
        execute_process(COMMAND dpkg-deb ${step} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
        execute_process(COMMAND chmod --recursive u=rwX,go=rX "${folder}" COMMAND_ERROR_IS_FATAL ANY)
    endforeach()
    file(REMOVE_RECURSE "${folder}")
endforeach()
