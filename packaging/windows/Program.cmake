# What makes numbrela.exe a program of the Windows desktop: no console, an icon, a version and a manifest.
find_program(iconDrawer rsvg-convert REQUIRED NO_CACHE)
find_program(iconBinder icotool REQUIRED NO_CACHE)

set(drawing "${CMAKE_CURRENT_LIST_DIR}/numbrela.svg")
set(icon "${CMAKE_CURRENT_BINARY_DIR}/numbrela.ico")
set(pictures)
set(draw)
foreach(size 16 20 24 32 40 48 64 256)
  set(picture "${CMAKE_CURRENT_BINARY_DIR}/numbrela-${size}.png")
  list(APPEND draw COMMAND "${iconDrawer}" --width ${size} --height ${size} --output "${picture}" "${drawing}")
  if(size EQUAL 256)
    list(APPEND pictures "--raw=${picture}") # as Windows wants the largest, or else it would be 256 KiB
  else()
    list(APPEND pictures "${picture}")
  endif()
endforeach()
add_custom_command(OUTPUT "${icon}" ${draw} COMMAND "${iconBinder}" --create --output "${icon}" ${pictures}
  DEPENDS "${drawing}" COMMENT "Drawing the icon" VERBATIM)

configure_file("${CMAKE_CURRENT_LIST_DIR}/numbrela.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/numbrela.rc" @ONLY)
configure_file("${CMAKE_CURRENT_LIST_DIR}/numbrela.exe.manifest" "${CMAKE_CURRENT_BINARY_DIR}/numbrela.exe.manifest" COPYONLY)
target_sources(numbrela PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/numbrela.rc")
set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/numbrela.rc" PROPERTIES
  OBJECT_DEPENDS "${icon};${CMAKE_CURRENT_BINARY_DIR}/numbrela.exe.manifest")
set_target_properties(numbrela PROPERTIES WIN32_EXECUTABLE ON)
target_link_options(numbrela PRIVATE -s)
