# SPDX-License-Identifier: GPL-3.0-or-later
# The resource folder share/tonearm/, found by the programs relative to their own place.

set(TONEARM_RESOURCES "${CMAKE_BINARY_DIR}/share/tonearm")
file(MAKE_DIRECTORY "${TONEARM_RESOURCES}/Licenses")
configure_file("${CMAKE_SOURCE_DIR}/resources/Genres.json" "${TONEARM_RESOURCES}/Genres.json" COPYONLY)

# The audio tools are built once for all presets; the script does nothing while they are up to date.
add_custom_target(audio_tools ALL
  COMMAND "${CMAKE_SOURCE_DIR}/scripts/build-audio-tools" "${TONEARM_RESOURCES}/bin"
          "${CMAKE_SOURCE_DIR}/build/cache/audio-tools"
  COMMAND "${CMAKE_SOURCE_DIR}/scripts/write-notices" "${TONEARM_RESOURCES}"
  USES_TERMINAL
  COMMENT "Looking after the audio tools")

# Licence texts come from the system that builds, never from the source tree.
function(tonearm_licence name text)
  if(EXISTS "${text}")
    file(COPY_FILE "${text}" "${TONEARM_RESOURCES}/Licenses/${name}.txt" ONLY_IF_DIFFERENT)
  else()
    message(STATUS "The text of ${name} is not on this system, so it is not bundled")
  endif()
endfunction()

foreach(licence GPL-2 GPL-3 LGPL-2.1 LGPL-3 Apache-2.0)
  tonearm_licence(${licence} "/usr/share/common-licenses/${licence}")
endforeach()
# Those that no other work shares, and who holds the copyright of what in the bundled programs.
tonearm_licence(cd-paranoia /usr/share/doc/cd-paranoia/copyright)
tonearm_licence(ffmpeg /usr/share/doc/ffmpeg/copyright)
tonearm_licence(libpng /usr/share/doc/libpng16-16/copyright)
tonearm_licence(QCoro /usr/share/doc/qcoro-qt6-dev/copyright)
tonearm_licence(zlib /usr/share/doc/zlib1g/copyright)
