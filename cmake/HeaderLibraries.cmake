# Libraries of headers alone. They are the same for every system, so that a build for another one takes this one's, by a
# folder in which nothing else of this system lies.
find_path(XA518_FAST_CSV libfccp/csv.h REQUIRED NO_CMAKE_FIND_ROOT_PATH)
add_library(fast_csv INTERFACE)
if(CMAKE_CROSSCOMPILING)
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/headers")
  file(CREATE_LINK "${XA518_FAST_CSV}/libfccp" "${CMAKE_BINARY_DIR}/headers/libfccp" SYMBOLIC)
  target_include_directories(fast_csv SYSTEM INTERFACE "${CMAKE_BINARY_DIR}/headers")
elseif(WIN32)
  target_include_directories(fast_csv SYSTEM INTERFACE "${XA518_FAST_CSV}")
endif()
