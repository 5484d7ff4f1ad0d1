# A compiler cache where there is one: rebuilding another branch or a fresh folder then takes seconds.
find_program(XA518_CCACHE ccache)
if(XA518_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_C_COMPILER_LAUNCHER "${XA518_CCACHE}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${XA518_CCACHE}")
endif()

# Every target of the house links this one and so gets the same language and the same severity.
add_library(house_options INTERFACE)
target_compile_features(house_options INTERFACE cxx_std_20)
target_compile_options(
  house_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            -Wnon-virtual-dtor
            -Werror)
target_compile_definitions(
  house_options
  INTERFACE QT_NO_CAST_FROM_ASCII
            QT_NO_CAST_TO_ASCII
            QT_NO_URL_CAST_FROM_STRING
            QT_NO_KEYWORDS
            QT_NO_FOREACH
            QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
            _GLIBCXX_ASSERTIONS)
target_include_directories(house_options INTERFACE "${CMAKE_CURRENT_SOURCE_DIR}/src")

set(XA518_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")
if(XA518_SANITIZE)
  target_compile_options(house_options INTERFACE -fsanitize=${XA518_SANITIZE} -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=all)
  target_link_options(house_options INTERFACE -fsanitize=${XA518_SANITIZE})
endif()

option(XA518_COVERAGE "Count the lines that the tests run" OFF)
if(XA518_COVERAGE)
  target_compile_options(house_options INTERFACE --coverage)
  target_link_options(house_options INTERFACE --coverage)
endif()

# The account that opens the database, as codes from which the programs build the two texts at run time.
set(XA518_ACCOUNT_CODES "1b1c19130a1a5159" CACHE STRING "Account of the workgroup file, eight masked bytes in hex")
set(XA518_PASSWORD_CODES "2922372d2f1e2119" CACHE STRING "Password of the workgroup file, eight masked bytes in hex")
