# What `cmake --install` puts where, and the Debian package that `cpack --config build/release/CPackConfig.cmake` makes
# of it. The version is the project's own and the release's date that of its notes; all other files take them from here.
include(GNUInstallDirs)

# Where the pictures of the metadata can be fetched. The project has no place on the web yet, and the metadata have to
# name one: the end of this address is set aside for names that never exist. Whoever publishes packages gives his own.
set(BRIGHTRANK_WEB "https://brightrank.invalid" CACHE STRING "Where docs/images can be fetched")

set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/LICENSE)
file(STRINGS CHANGELOG.md releases REGEX "^## \\[[0-9]")
list(GET releases 0 release)
if(NOT release MATCHES "^## \\[${PROJECT_VERSION}\\] - ([0-9]+-[0-9]+-[0-9]+)$")
    message(FATAL_ERROR "The newest release in CHANGELOG.md is \"${release}\", the project's version ${PROJECT_VERSION}.")
endif()
set(BRIGHTRANK_RELEASE_DATE ${CMAKE_MATCH_1})
execute_process(COMMAND date --utc --date=${BRIGHTRANK_RELEASE_DATE} --rfc-email OUTPUT_VARIABLE BRIGHTRANK_RELEASE_DAY
    OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND date --utc --date=${BRIGHTRANK_RELEASE_DATE} +%s OUTPUT_VARIABLE CPACK_BRIGHTRANK_RELEASE_SECOND
    OUTPUT_STRIP_TRAILING_WHITESPACE)

# The licence as a paragraph of Debian's form: a blank in front of each line, and a dot in the empty ones.
file(READ LICENSE licence)
string(FIND "${licence}" "Permission is hereby granted" begin)
string(SUBSTRING "${licence}" ${begin} -1 licence)
string(STRIP "${licence}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " licence " ${licence}")
set(BRIGHTRANK_LICENCE "${licence}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brightrank)
set(CPACK_PACKAGE_VENDOR "The Brightrank authors")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "graphical client for Internet Chess Servers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# The authors have no public address, and nobody else's is invented: see BRIGHTRANK_WEB.
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Brightrank authors <authors@brightrank.invalid>")
# Debian keeps the section of games for programs in a folder that is not in everybody's path.
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Brightrank shows what a chess server says in a coloured console and opens a
board for each game that is played, observed or examined. It draws the open
seeks as a graph, and lists, saves and reads games. All of it can be done by
keyboard.

A practice server comes with it: brightrank-play starts both for a game
without a network.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The libraries are found by what the programs link; the engine is run by the practice server, which is nothing without;
# libpulse0 is opened at the first sound.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fairy-stockfish)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libnotify-bin, libpulse0")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/PackageTime.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/PackageTree.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/PackageArchive.cmake)
set(CPACK_BRIGHTRANK_SOURCE ${PROJECT_SOURCE_DIR})

set(written ${PROJECT_BINARY_DIR}/packaging)
foreach(name brightrank.1 brightrank-play.1 brightrank-practice.1 copyright changelog
        net.brightrank.brightrank.metainfo.xml)
    configure_file(packaging/${name}.in ${written}/${name} @ONLY)
endforeach()
# Beside the two programs, where it looks for them.
configure_file(packaging/brightrank-play.in ${PROJECT_BINARY_DIR}/brightrank-play @ONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS brightrank brightrank-practice RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${PROJECT_BINARY_DIR}/brightrank-play DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${written}/brightrank.1 ${written}/brightrank-play.1 ${written}/brightrank-practice.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY assets/sounds DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank FILES_MATCHING PATTERN "*.wav")
install(FILES docs/manual/README.md RENAME Brightrank.hlp DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank/help)
install(DIRECTORY docs/manual/ DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank/help
    FILES_MATCHING PATTERN "*.md" PATTERN "README.md" EXCLUDE)
install(DIRECTORY docs/images DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank FILES_MATCHING PATTERN "*.png")
install(FILES assets/icon/brightrank.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/net.brightrank.brightrank.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${written}/net.brightrank.brightrank.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/lintian-overrides RENAME brightrank DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides)
install(FILES ${written}/copyright ${written}/changelog README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

include(CPack)
