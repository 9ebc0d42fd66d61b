# What makes numbrela.exe a program of the Windows desktop: no console, an icon, a version and a manifest.
find_program(iconBinder icotool REQUIRED NO_CACHE)

set(icon "${CMAKE_CURRENT_BINARY_DIR}/numbrela.ico")
set(pictures)
set(bound)
foreach(size 16 20 24 32 40 48 64 256)
  icon_picture(${size} picture)
  list(APPEND pictures "${picture}")
  if(size EQUAL 256)
    list(APPEND bound "--raw=${picture}") # as Windows wants the largest, or else it would be 256 KiB
  else()
    list(APPEND bound "${picture}")
  endif()
endforeach()
add_custom_command(OUTPUT "${icon}" COMMAND "${iconBinder}" --create --output "${icon}" ${bound}
  DEPENDS ${pictures} COMMENT "Binding the icon" VERBATIM)

foreach(file numbrela.rc numbrela.exe.manifest)
  configure_file("${CMAKE_CURRENT_LIST_DIR}/${file}.in" "${CMAKE_CURRENT_BINARY_DIR}/${file}" @ONLY)
endforeach()
target_sources(numbrela PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/numbrela.rc")
set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/numbrela.rc" PROPERTIES
  OBJECT_DEPENDS "${icon};${CMAKE_CURRENT_BINARY_DIR}/numbrela.exe.manifest")
set_target_properties(numbrela PROPERTIES WIN32_EXECUTABLE ON)
if(MINGW)
  target_link_options(numbrela PRIVATE -s)
endif()
add_custom_command(TARGET numbrela POST_BUILD
  COMMAND "${CMAKE_CURRENT_LIST_DIR}/run_from_memory.py" $<TARGET_FILE:numbrela> VERBATIM)

qt_add_resources(numbrela numbrela_platform PREFIX /qt/etc BASE "${CMAKE_CURRENT_LIST_DIR}"
  FILES "${CMAKE_CURRENT_LIST_DIR}/qt.conf")
