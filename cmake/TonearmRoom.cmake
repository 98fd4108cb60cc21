# SPDX-License-Identifier: GPL-3.0-or-later
# A room is one folder of src/ built as one static library, standing on a numbered floor.

# What most files of a room read anyway, made ready once for all rooms: halves the time of a build. GCC
# refuses it to a room that is compiled otherwise.
function(tonearm_headers name)
  cmake_parse_arguments(HEADERS "" "" "HEADERS;LIBRARIES" ${ARGN})
  add_library(tonearm_headers_${name} OBJECT "${CMAKE_SOURCE_DIR}/cmake/headers.cpp")
  set_target_properties(tonearm_headers_${name} PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(tonearm_headers_${name} PRIVATE tonearm_flags ${HEADERS_LIBRARIES})
  target_precompile_headers(tonearm_headers_${name} PRIVATE
    <QCoroFuture> <QCoroTask> <QList> <QObject> <QProperty> <QString> <QStringList> <QUrl>
    <algorithm> <chrono> <functional> <memory> <optional> <variant> ${HEADERS_HEADERS})
endfunction()

tonearm_headers(core LIBRARIES Qt6::Core QCoro6::Core)
tonearm_headers(widgets
  HEADERS <QBoxLayout> <QLabel> <QPainter> <QPushButton> <QWidget>
  LIBRARIES Qt6::Core QCoro6::Core Qt6::Widgets)

# tonearm_room(<name> FLOOR <n> SOURCES <file>... [LIBRARIES <library>...])
#
# Makes the library tonearm_<name>. A room may use only rooms of its own floor or below: a dependency
# upwards stops the configuration, and floor_<name>, a program that links every object of the room
# with nothing but what the room declares, stops the build when the code needs more than that.
function(tonearm_room name)
  cmake_parse_arguments(ROOM "" "FLOOR" "SOURCES;LIBRARIES" ${ARGN})
  set(library tonearm_${name})

  add_library(${library} STATIC ${ROOM_SOURCES})
  set_target_properties(${library} PROPERTIES TONEARM_FLOOR ${ROOM_FLOOR})
  target_link_libraries(${library} PUBLIC tonearm_flags Qt6::Core QCoro6::Core ${ROOM_LIBRARIES})

  if("Qt6::Widgets" IN_LIST ROOM_LIBRARIES)
    target_precompile_headers(${library} REUSE_FROM tonearm_headers_widgets)
  else()
    target_precompile_headers(${library} REUSE_FROM tonearm_headers_core)
  endif()

  foreach(other IN LISTS ROOM_LIBRARIES)
    if(other MATCHES "^tonearm_")
      get_target_property(floor ${other} TONEARM_FLOOR)
      if(floor GREATER ROOM_FLOOR)
        message(FATAL_ERROR "${library} (floor ${ROOM_FLOOR}) may not use ${other} (floor ${floor})")
      endif()
    endif()
  endforeach()

  add_executable(floor_${name} "${CMAKE_SOURCE_DIR}/cmake/floor.cpp")
  set_target_properties(floor_${name} PROPERTIES
    AUTOMOC OFF RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/floors")
  target_link_libraries(floor_${name} PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,${library}>)
endfunction()
