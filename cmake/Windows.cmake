# All programs lie side by side, the tests' too, and beside them what they take from the system elsewhere: the letter of the
# print-outs, with its licence.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

# Installed, everything lies in one folder, with the programs at its top.
set(CMAKE_INSTALL_BINDIR .)
set(CMAKE_INSTALL_DOCDIR .)

set(letras /usr/share/fonts/truetype/liberation CACHE PATH "Folder of the fixed-width letter of the print-outs")
set(licencia /usr/share/doc/fonts-liberation/copyright CACHE FILEPATH "Its licence")
foreach(corte Regular Bold)
  configure_file("${letras}/LiberationMono-${corte}.ttf" "${CMAKE_BINARY_DIR}/bin/fonts/LiberationMono-${corte}.ttf" COPYONLY)
endforeach()
configure_file("${licencia}" "${CMAKE_BINARY_DIR}/bin/fonts/LICENSE.txt" COPYONLY)
install(DIRECTORY "${CMAKE_BINARY_DIR}/bin/fonts" DESTINATION "${CMAKE_INSTALL_BINDIR}")
