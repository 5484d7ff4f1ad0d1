# A room is one folder of src/ built as one library. Rooms without "_forms" in their name hold rules and never
# see a widget: the check below is what keeps the windowless tools windowless.
function(add_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  if(NOT name MATCHES "_forms$" AND ROOM_LINKS MATCHES "Widgets|_forms")
    message(FATAL_ERROR "${name} holds rules: it may not link ${ROOM_LINKS}")
  endif()
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE house_options)
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  if(name MATCHES "_forms$")
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
  endif()
endfunction()
