# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the copyright file and the overrides for lintian. Where the package brings an ffmpeg of its own,
# both tell of it, and the copyright files of what that was made from come along.
set(documents "${CMAKE_INSTALL_PREFIX}/share/doc/tonearm")
file(READ "${TONEARM_DEBIAN}/copyright" copyright)
file(READ "${TONEARM_DEBIAN}/lintian-overrides" overrides)

if(NOT IS_SYMLINK "${TONEARM_RESOURCES}/bin/ffmpeg")
  # The first paragraph of the notice is that of ffmpeg and ffprobe.
  file(STRINGS "${TONEARM_RESOURCES}/audio-tools.txt" versions REGEX "^Version: ")
  list(GET versions 0 version)
  string(REPLACE "Version: " "" version "${version}")
  file(READ "${TONEARM_DEBIAN}/copyright-ffmpeg.in" more)
  string(CONFIGURE "${more}" more @ONLY)
  string(APPEND copyright "${more}")
  file(READ "${TONEARM_DEBIAN}/lintian-overrides-ffmpeg" more)
  string(APPEND overrides "${more}")
  foreach(package ffmpeg libc6 zlib1g)
    file(INSTALL "/usr/share/doc/${package}/copyright" DESTINATION "${documents}/bundled"
      RENAME ${package}.copyright)
  endforeach()
endif()

file(WRITE "${TONEARM_STAGING}/copyright" "${copyright}")
file(INSTALL "${TONEARM_STAGING}/copyright" DESTINATION "${documents}")
file(WRITE "${TONEARM_STAGING}/overrides" "${overrides}")
file(INSTALL "${TONEARM_STAGING}/overrides" DESTINATION "${CMAKE_INSTALL_PREFIX}/share/lintian/overrides"
  RENAME tonearm)
