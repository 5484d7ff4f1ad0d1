# What a Windows installation has beside the programs: the plugins of Qt that they load as they run, and every library that
# programs and plugins import (libraries.cmake.in).
set(plugins
    platforms/qwindows
    platforms/qoffscreen # the batch tool draws its PDFs on it
    sqldrivers/qsqlite
    sqldrivers/qsqlpsql
    styles/qwindowsvistastyle)
foreach(plugin IN LISTS plugins)
  cmake_path(GET plugin PARENT_PATH kind)
  install(FILES "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS}/${plugin}.dll" DESTINATION ${kind})
endforeach()
install(FILES packaging/windows/LEEME.txt DESTINATION .)

cmake_path(GET CMAKE_CXX_COMPILER PARENT_PATH compiler_folder)
set(folders_of_libraries "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}" "${sqlite3_PREFIX}/bin" "${sodium_PREFIX}/bin"
                         "${compiler_folder}")
configure_file(packaging/windows/libraries.cmake.in "${CMAKE_BINARY_DIR}/packaging/libraries.cmake" @ONLY)
install(SCRIPT "${CMAKE_BINARY_DIR}/packaging/libraries.cmake")
