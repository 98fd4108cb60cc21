# SPDX-License-Identifier: GPL-3.0-or-later
# What `cmake --install` puts under a prefix. Nothing in it names the prefix, so that the tree can be
# moved afterwards. The resources are those of the build: see TonearmResources.

# Installing builds nothing: a package needs the programs only, not the tests beside them.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(desktop "${CMAKE_SOURCE_DIR}/packaging")
set(desktop_built "${CMAKE_BINARY_DIR}/packaging")

install(TARGETS tonearm tonearm-cddafs RUNTIME DESTINATION bin)
install(FILES "${TONEARM_RESOURCES}/Genres.json" "${TONEARM_RESOURCES}/audio-tools.txt"
  DESTINATION share/tonearm)
install(DIRECTORY "${TONEARM_RESOURCES}/Licenses" DESTINATION share/tonearm)
install(CODE "set(TONEARM_TOOLS \"${TONEARM_RESOURCES}/bin\")
set(TONEARM_STAGING \"${desktop_built}/links\")")
install(SCRIPT "${desktop}/install_audio_tools.cmake")

install(FILES "${desktop}/${TONEARM_ID}.desktop" DESTINATION share/applications)
install(FILES "${desktop_built}/${TONEARM_ID}.metainfo.xml" DESTINATION share/metainfo)
install(FILES "${CMAKE_SOURCE_DIR}/resources/app/tonearm.svg"
  DESTINATION share/icons/hicolor/scalable/apps RENAME ${TONEARM_ID}.svg)
foreach(size IN LISTS TONEARM_ICON_SIZES)
  install(FILES "${desktop_built}/icons/${size}.png"
    DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME ${TONEARM_ID}.png)
endforeach()
install(FILES "${desktop_built}/man/tonearm.1.gz" "${desktop_built}/man/tonearm-cddafs.1.gz"
  DESTINATION share/man/man1)
