# What a Windows program carries in itself: its icon, drawn from the one that other systems install, what it is and of which
# version, and what it asks of the system (program.manifest).
enable_language(RC)

# windows_program(NAME DESCRIPTION ICON)
function(windows_program name description icon)
  set(folder "${CMAKE_BINARY_DIR}/packaging/${name}")
  set(picture "${folder}/${icon}.ico")
  set(svg "${CMAKE_SOURCE_DIR}/packaging/icons/${icon}.svg")
  file(MAKE_DIRECTORY "${folder}")
  set(sizes)
  set(commands)
  foreach(size 16 24 32 48 64 256)
    list(APPEND sizes "${folder}/${size}.png")
    list(APPEND commands COMMAND rsvg-convert -w ${size} -h ${size} -o "${folder}/${size}.png" "${svg}")
  endforeach()
  add_custom_command(
    OUTPUT "${picture}" ${commands}
    COMMAND convert ${sizes} "${picture}"
    DEPENDS "${svg}"
    VERBATIM)
  add_custom_target(${name}_icon DEPENDS "${picture}")
  add_dependencies(${name} ${name}_icon)
  string(REPLACE "." "," numbers "${PROJECT_VERSION}")
  configure_file("${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in" "${folder}/${name}.rc" @ONLY)
  target_sources(${name} PRIVATE "${folder}/${name}.rc")
  set_source_files_properties(
    "${folder}/${name}.rc" TARGET_DIRECTORY ${name}
    PROPERTIES OBJECT_DEPENDS "${picture};${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest")
endfunction()
