# One test program per room, its cases found by name. The world is frozen: time zone, locale and platform.
include(GoogleTest)

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
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "TZ=UTC;LC_ALL=C.UTF-8;QT_QPA_PLATFORM=offscreen" LABELS "${TEST_LABELS}")
endfunction()
