# SPDX-License-Identifier: GPL-3.0-or-later
# The compiler's settings for every target of the project, as the interface target tonearm_flags.

set(TONEARM_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")
option(TONEARM_COVERAGE "Count executed lines" OFF)
option(TONEARM_FUZZ "Build the fuzz programs; needs clang" OFF)

add_library(tonearm_flags INTERFACE)
target_include_directories(tonearm_flags INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_options(tonearm_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  # GCC 12 takes the variables of a coroutine's frame for uninitialised.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
target_compile_definitions(tonearm_flags INTERFACE
  QT_NO_KEYWORDS
  QT_NO_FOREACH
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_USE_QSTRINGBUILDER
  QT_STRICT_ITERATORS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400
  TONEARM_VERSION="${PROJECT_VERSION}")

# What people run reads bytes from foreign files, so it checks its stack and its copies as Debian's own
# programs do.
target_compile_options(tonearm_flags INTERFACE
  $<$<CONFIG:Release>:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>)

# A build links some eighty programs; mold does it in a fraction of the time.
find_program(TONEARM_MOLD mold)
if(TONEARM_MOLD)
  target_link_options(tonearm_flags INTERFACE -fuse-ld=mold)
endif()

if(TONEARM_SANITIZE)
  target_compile_options(tonearm_flags INTERFACE
    -fsanitize=${TONEARM_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(tonearm_flags INTERFACE -fsanitize=${TONEARM_SANITIZE})
endif()

if(TONEARM_COVERAGE)
  target_compile_options(tonearm_flags INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(tonearm_flags INTERFACE --coverage)
endif()

if(TONEARM_FUZZ)
  target_compile_options(tonearm_flags INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -g)
  target_link_options(tonearm_flags INTERFACE -fsanitize=address,undefined)
endif()
