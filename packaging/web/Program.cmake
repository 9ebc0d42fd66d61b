# What makes numbrela.wasm and numbrela.js of the program, for the page in packaging/web/page. Qt adds its loader.
#
# A browser lets no program wait, so the stack of one that asks something in a box is put aside (Asyncify). Pages that
# forbid making code out of text run it, too.
add_library(numbrela_web_options INTERFACE)
target_link_options(numbrela_web_options INTERFACE
  -Os -fexceptions -sASYNCIFY -sASYNCIFY_STACK_SIZE=65536 -sENVIRONMENT=web -sDYNAMIC_EXECUTION=0)

# The fonts that the program asks for, with what western languages need, all in the file in which Qt looks first.
set(fonts "${CMAKE_CURRENT_BINARY_DIR}/fonts/DejaVuSansMono.ttf")
set(fontSources
  liberation/LiberationSans-Regular liberation/LiberationSans-Bold
  liberation/LiberationMono-Regular liberation/LiberationMono-Bold
  dejavu/DejaVuSans)
list(TRANSFORM fontSources REPLACE "(.+)" "/usr/share/fonts/truetype/\\1.ttf")
find_program(python python3 REQUIRED NO_CACHE)
set(fontBinder "${CMAKE_CURRENT_LIST_DIR}/fonts.py")
add_custom_command(OUTPUT "${fonts}" COMMAND "${python}" "${fontBinder}" "${fonts}" ${fontSources}
  DEPENDS "${fontBinder}" ${fontSources} COMMENT "Binding the fonts" VERBATIM)

# What the first paint is measured by: an empty window of the same Qt.
add_executable(numbrela_empty EXCLUDE_FROM_ALL "${PROJECT_SOURCE_DIR}/bench/EmptyWindow.cpp")
target_link_libraries(numbrela_empty PRIVATE numbrela_qt_options)
set_target_properties(numbrela_empty PROPERTIES
  OUTPUT_NAME numbrela QT_WASM_EXPORT_NAME numbrela_entry RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/empty")

foreach(target numbrela numbrela_empty)
  target_link_libraries(${target} PRIVATE numbrela_web_options)
  qt_add_resources(${target} numbrela_fonts
    PREFIX "/fonts" BASE "${CMAKE_CURRENT_BINARY_DIR}/fonts" OPTIONS --no-compress --format-version 1 FILES "${fonts}")
  qt_finalize_target(${target})
endforeach()
