# What `cmake --install` puts where, and the Debian package that `cpack --config build/release/CPackConfig.cmake` makes
# of it.
include(GNUInstallDirs)

foreach(program brightrank brightrank-practice)
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES packaging/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

install(DIRECTORY assets/sounds DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank FILES_MATCHING PATTERN "*.wav")
install(FILES docs/manual/README.md RENAME Brightrank.hlp DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank/help)
install(DIRECTORY docs/manual/ DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank/help
    FILES_MATCHING PATTERN "*.md" PATTERN "README.md" EXCLUDE)
install(DIRECTORY docs/images DESTINATION ${CMAKE_INSTALL_DATADIR}/brightrank FILES_MATCHING PATTERN "*.png")
install(FILES assets/icon/brightrank.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/net.brightrank.Brightrank.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/net.brightrank.Brightrank.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES LICENSE RENAME copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brightrank)
set(CPACK_PACKAGE_VENDOR "The Brightrank authors")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Brightrank authors <brightrank@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Brightrank shows what a chess server says in a coloured console and opens a board for each game that is\n played, observed or examined. A practice server for a first game without a network comes with it.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The libraries are found by what the programs link; the engine is only run, and only by the practice server.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fairy-stockfish)
include(CPack)
