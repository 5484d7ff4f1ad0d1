# A room is one folder of src/ built as one library, and as a second one for its windows. What holds rules never sees
# a widget, not even by way of what it links: the checks below are what keeps the windowless tools windowless.
function(add_library_of_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE house_options)
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
endfunction()

# The rules of a room.
function(add_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  foreach(link IN LISTS ROOM_LINKS)
    get_target_property(windows ${link} XA518_WINDOWS)
    if(windows OR link MATCHES "Widgets|PrintSupport")
      message(FATAL_ERROR "${name} holds rules: it may not link ${link}")
    endif()
  endforeach()
  add_library_of_room(${name} ${ARGN})
endfunction()

# The windows of a room: the library that may include a widget header.
function(add_window_room name)
  add_library_of_room(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES XA518_WINDOWS ON AUTOMOC ON AUTOUIC ON AUTORCC ON)
endfunction()
