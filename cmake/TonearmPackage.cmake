# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package: `cpack` in a build folder puts tonearm_<version>_<architecture>.deb into build/.

# What only a package holds is a component of its own, which `cmake --install` leaves out.
install(FILES "${CMAKE_BINARY_DIR}/packaging/debian/changelog.gz"
  DESTINATION share/doc/tonearm RENAME changelog.Debian.gz COMPONENT debian EXCLUDE_FROM_ALL)
install(CODE "set(TONEARM_RESOURCES \"${TONEARM_RESOURCES}\")
set(TONEARM_DEBIAN \"${CMAKE_SOURCE_DIR}/packaging/debian\")
set(TONEARM_STAGING \"${CMAKE_BINARY_DIR}/packaging/debian\")" COMPONENT debian EXCLUDE_FROM_ALL)
install(SCRIPT "${CMAKE_SOURCE_DIR}/packaging/debian/install_documents.cmake"
  COMPONENT debian EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tonearm)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_VENDOR "The Tonearm Project")
set(CPACK_PACKAGE_CONTACT "The Tonearm Project <packages@tonearm.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "turn chaptered Matroska files and audio CDs into tagged FLAC files")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_SOURCE_DIR}/build")
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${CMAKE_BINARY_DIR};tonearm;Unspecified;/" "${CMAKE_BINARY_DIR};tonearm;debian;/")
# With the prefix that it will have, so that links within it come out right.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://tonearm.example/")
file(READ "${CMAKE_SOURCE_DIR}/packaging/debian/description" CPACK_DEBIAN_PACKAGE_DESCRIPTION)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Started or loaded by name, which no look at the programs tells; more in dependencies.cmake.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fuse3, cd-paranoia, libpulse0")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, qt6-wayland, udisks2, xdg-utils")
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_SOURCE_DIR}/packaging/debian/dependencies.cmake")
set(CPACK_TONEARM_RESOURCES "${TONEARM_RESOURCES}")
include(CPack)
