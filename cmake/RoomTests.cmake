# One test program per room, its cases found by name. The world is frozen: time zone, locale and platform.
include(GoogleTest)

# A build for another system needs nothing that runs its programs; only its tests do.
set(XA518_DISCOVERY POST_BUILD)
if(CMAKE_CROSSCOMPILING)
  set(XA518_DISCOVERY PRE_TEST)
endif()

# The cases that a Windows build leaves out, as a filter of GoogleTest.
set(XA518_LEFT_OUT "*")
if(WIN32)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/NotOnWindows.txt")
  file(STRINGS "${CMAKE_SOURCE_DIR}/tests/NotOnWindows.txt" left_out REGEX "^[A-Za-z0-9]+[.][A-Za-z]")
  list(TRANSFORM left_out REPLACE " .*" "")
  list(TRANSFORM left_out REPLACE "(.+)" "\\1:*/\\1/*") # alone, or with its instance in front and its number behind
  list(JOIN left_out ":" left_out)
  set(XA518_LEFT_OUT "*-${left_out}")
endif()

function(add_room_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINKS;LABELS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE house_options ${TEST_LINKS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${name} PRIVATE -Wno-subobject-linkage) # each test takes the fixtures beside it for a header's
  endif()
  gtest_discover_tests(
    ${name}
    TEST_PREFIX "${name}."
    TEST_FILTER "${XA518_LEFT_OUT}"
    DISCOVERY_MODE ${XA518_DISCOVERY}
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "TZ=UTC;LC_ALL=C.UTF-8;QT_QPA_PLATFORM=offscreen" LABELS "${TEST_LABELS}")
endfunction()
