# What a Windows program carries in itself: its icon, drawn from the one that other systems install, what it is and of which
# version, and what it asks of the system (program.manifest).
enable_language(RC)
find_program(XA518_RSVG rsvg-convert)
if(CMAKE_HOST_WIN32)
  find_program(XA518_CONVERT magick) # what is called convert there works on disks
else()
  find_program(XA518_CONVERT convert)
endif()
if(NOT XA518_RSVG OR NOT XA518_CONVERT)
  message(WARNING "Without rsvg-convert and ImageMagick the programs carry no icon")
endif()

# The icon of a program, drawn into a folder; `result` is the line of the resources that names it.
function(windows_icon name icon folder result)
  set(picture "${folder}/${icon}.ico")
  set(svg "${CMAKE_SOURCE_DIR}/packaging/icons/${icon}.svg")
  set(sizes)
  set(commands)
  foreach(size 16 24 32 48 64 256)
    list(APPEND sizes "${folder}/${size}.png")
    list(APPEND commands COMMAND "${XA518_RSVG}" -w ${size} -h ${size} -o "${folder}/${size}.png" "${svg}")
  endforeach()
  add_custom_command(
    OUTPUT "${picture}" ${commands}
    COMMAND "${XA518_CONVERT}" ${sizes} "${picture}"
    DEPENDS "${svg}"
    VERBATIM)
  add_custom_target(${name}_icon DEPENDS "${picture}")
  add_dependencies(${name} ${name}_icon)
  set(${result} "1 ICON \"${picture}\"" PARENT_SCOPE)
endfunction()

# windows_program(NAME DESCRIPTION ICON)
function(windows_program name description icon)
  set(folder "${CMAKE_BINARY_DIR}/packaging/${name}")
  file(MAKE_DIRECTORY "${folder}")
  set(icon_line)
  set(needed "${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest")
  if(XA518_RSVG AND XA518_CONVERT)
    windows_icon(${name} ${icon} "${folder}" icon_line)
    list(APPEND needed "${folder}/${icon}.ico")
  endif()
  string(REPLACE "." "," numbers "${PROJECT_VERSION}")
  configure_file("${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in" "${folder}/${name}.rc" @ONLY)
  target_sources(${name} PRIVATE "${folder}/${name}.rc")
  set_source_files_properties("${folder}/${name}.rc" TARGET_DIRECTORY ${name} PROPERTIES OBJECT_DEPENDS "${needed}")
endfunction()
