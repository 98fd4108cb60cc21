# SPDX-License-Identifier: GPL-3.0-or-later
# The resource folder share/tonearm/, found by the programs relative to their own place.

set(TONEARM_RESOURCES "${CMAKE_BINARY_DIR}/share/tonearm")
file(MAKE_DIRECTORY "${TONEARM_RESOURCES}/Licenses")
configure_file("${CMAKE_SOURCE_DIR}/resources/Genres.json" "${TONEARM_RESOURCES}/Genres.json" COPYONLY)

# The audio tools are built once for all presets; the script does nothing while they are up to date.
add_custom_target(audio_tools ALL
  COMMAND "${CMAKE_SOURCE_DIR}/scripts/build-audio-tools" "${TONEARM_RESOURCES}/bin"
          "${CMAKE_SOURCE_DIR}/build/cache/audio-tools"
  USES_TERMINAL
  COMMENT "Looking after the audio tools")

# Licence texts come from the system that builds, never from the source tree.
foreach(licence GPL-2 GPL-3 LGPL-2.1 LGPL-3)
  set(text "/usr/share/common-licenses/${licence}")
  if(EXISTS "${text}")
    file(COPY_FILE "${text}" "${TONEARM_RESOURCES}/Licenses/${licence}.txt" ONLY_IF_DIFFERENT)
  else()
    message(STATUS "The text of ${licence} is not on this system, so it is not bundled")
  endif()
endforeach()
