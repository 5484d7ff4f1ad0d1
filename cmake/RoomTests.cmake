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

# The same cases on the tests' own database server, but those that make no sense there.
option(XA518_SERVER_TESTS "Run the tests of the base on a private PostgreSQL server too" ON)
if(WIN32)
  set(XA518_SERVER_TESTS OFF) # the server is Debian's
endif()
if(XA518_SERVER_TESTS)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/NotOnServer.txt")
  file(STRINGS "${CMAKE_SOURCE_DIR}/tests/NotOnServer.txt" not_on_server REGEX "^[A-Za-z0-9]+[.][A-Za-z*]")
  list(TRANSFORM not_on_server REPLACE " .*" "")
  list(TRANSFORM not_on_server REPLACE "(.+)" "\\1:*/\\1/*")
  list(JOIN not_on_server ":" not_on_server)
  string(MD5 server_folder "${CMAKE_BINARY_DIR}")
  string(SUBSTRING "${server_folder}" 0 8 server_folder)
  set(XA518_SERVER_FOLDER "/tmp/xa-tests-${server_folder}") # a socket's path is short, and its owner reaches it
  set(server_script "${CMAKE_SOURCE_DIR}/tests/support/server")
  add_test(NAME servidor.empieza COMMAND "${server_script}" start "${XA518_SERVER_FOLDER}")
  add_test(NAME servidor.termina COMMAND "${server_script}" stop "${XA518_SERVER_FOLDER}")
  set_tests_properties(servidor.empieza PROPERTIES FIXTURES_SETUP servidor TIMEOUT 120)
  set_tests_properties(servidor.termina PROPERTIES FIXTURES_CLEANUP servidor TIMEOUT 120)
endif()

function(add_cases_on_server name)
  if(NOT XA518_SERVER_TESTS)
    return()
  endif()
  gtest_discover_tests(
    ${name}
    TEST_PREFIX "servidor.${name}."
    TEST_FILTER "*-${not_on_server}"
    DISCOVERY_MODE ${XA518_DISCOVERY}
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 FIXTURES_REQUIRED servidor LABELS servidor
    # One alone: of a list the cases would get the first. The others are the preset's.
    ENVIRONMENT "XA518_TEST_SERVER=host=${XA518_SERVER_FOLDER} user=postgres")
endfunction()

# SERVER: the cases are run on the server as well; ONLY_ON_SERVER: there alone.
function(add_room_test name)
  cmake_parse_arguments(TEST "SERVER;ONLY_ON_SERVER" "" "SOURCES;LINKS;LABELS" ${ARGN})
  if(TEST_ONLY_ON_SERVER AND NOT XA518_SERVER_TESTS)
    return()
  endif()
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE house_options ${TEST_LINKS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${name} PRIVATE -Wno-subobject-linkage) # each test takes the fixtures beside it for a header's
  endif()
  if(TEST_SERVER OR TEST_ONLY_ON_SERVER)
    add_cases_on_server(${name})
  endif()
  if(TEST_ONLY_ON_SERVER)
    return()
  endif()
  gtest_discover_tests(
    ${name}
    TEST_PREFIX "${name}."
    TEST_FILTER "${XA518_LEFT_OUT}"
    DISCOVERY_MODE ${XA518_DISCOVERY}
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "TZ=UTC;LC_ALL=C.UTF-8;QT_QPA_PLATFORM=offscreen" LABELS "${TEST_LABELS}")
endfunction()
