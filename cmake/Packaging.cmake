# What is installed beside the programs, and the Debian package (`scripts/check-package`).
if(WIN32)
  include(WindowsPackaging)
  return()
endif()

install(FILES packaging/man/consola.1 packaging/man/xa518.1 packaging/man/xa518-lote.1
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES packaging/bash-completion/consola packaging/bash-completion/xa518-lote
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
install(FILES packaging/desktop/consola.desktop packaging/desktop/xa518.desktop
        DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES packaging/icons/consola.svg packaging/icons/xa518.svg
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
install(FILES packaging/metainfo/local.xa518.declaracion.metainfo.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME xa518)
set(CPACK_PACKAGE_VENDOR "xa518")
set(CPACK_PACKAGE_CONTACT "xa518 <xa518@example.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Monthly declaration 0518 of perception agents")
set(CPACK_PACKAGE_DESCRIPTION
    "The module, the launcher that it runs beside, and the same rules as a command line, over one local database.")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CPACK_STRIP_FILES TRUE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded at run time, so that no library names them: the database driver, the letter of the print-outs, and the words of
# the toolkit's own windows.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, fonts-liberation, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libqt6sql6-psql, postgresql-client") # for a base on a server, and its copies
include(CPack)
