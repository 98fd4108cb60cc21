# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the audio tools of TONEARM_TOOLS: those that were built as programs in libexec/tonearm, those
# of the system as links to them. share/tonearm/bin, where the programs look, is a link to that folder,
# because programs don't belong below share/. Links are made in TONEARM_STAGING first.

# A link within the prefix moves with it; one that leads out of it has to be whole.
function(make_link target name)
  cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX "${target}" NORMALIZE is_within)
  if(is_within)
    file(RELATIVE_PATH target "${CMAKE_INSTALL_PREFIX}/libexec/tonearm" "${target}")
  endif()
  file(CREATE_LINK "${target}" "${TONEARM_STAGING}/${name}" SYMBOLIC)
endfunction()

file(MAKE_DIRECTORY "${TONEARM_STAGING}")
foreach(tool ffmpeg ffprobe cd-paranoia)
  set(file "${TONEARM_TOOLS}/${tool}")
  if(IS_SYMLINK "${file}")
    file(READ_SYMLINK "${file}" target)
    make_link("${target}" ${tool})
    set(file "${TONEARM_STAGING}/${tool}")
  endif()
  file(INSTALL "${file}" DESTINATION "${CMAKE_INSTALL_PREFIX}/libexec/tonearm" USE_SOURCE_PERMISSIONS)
endforeach()

file(CREATE_LINK ../../libexec/tonearm "${TONEARM_STAGING}/bin" SYMBOLIC)
file(INSTALL "${TONEARM_STAGING}/bin" DESTINATION "${CMAKE_INSTALL_PREFIX}/share/tonearm")
