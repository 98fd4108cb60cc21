# SPDX-License-Identifier: GPL-3.0-or-later
# Read when a package is made: only then is it known where its ffmpeg comes from.
if(IS_SYMLINK "${CPACK_TONEARM_RESOURCES}/bin/ffmpeg")
  string(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS ", ffmpeg")
endif()
