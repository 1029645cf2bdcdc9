# What an installation consists of, and the Debian package made of it by cpack.
include(GNUInstallDirs)

install(TARGETS cumeron cumeron-drive cumeron-sim cumeron-zip RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

file(STRINGS CHANGELOG.md newest_change REGEX "^## " LIMIT_COUNT 1)
if(NOT newest_change MATCHES "^## ${PROJECT_VERSION}(,|$)")
  message(FATAL_ERROR "CHANGELOG.md begins with \"${newest_change}\", not with ${PROJECT_VERSION}")
endif()

file(GLOB man_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/packaging/*.1)
foreach(page IN LISTS man_pages)
  cmake_path(GET page FILENAME name)
  configure_file(${page} man/${name} @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/${name} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
install(FILES packaging/cumeron.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/cumeron.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES README.md CHANGELOG.md LICENSE packaging/60-cumeron.rules
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/manual DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "the Cumeron developers")
set(CPACK_PACKAGE_CONTACT "the Cumeron developers <dev@cumeron.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS zip) # called by cumeron-zip
set(CPACK_STRIP_FILES ON)
include(CPack)
