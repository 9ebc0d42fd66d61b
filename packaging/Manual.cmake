# The pages of the manual for a browser, made when the program is built, in the folder ${manualPages}.
find_program(manualMaker cmark-gfm REQUIRED NO_CACHE)

set(manualPages "${CMAKE_CURRENT_BINARY_DIR}/manual")
file(GLOB_RECURSE manualSources CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/docs/manual/*" "${PROJECT_SOURCE_DIR}/packaging/manual/*")
add_custom_command(OUTPUT "${manualPages}/index.html"
  COMMAND "${PROJECT_SOURCE_DIR}/packaging/manual/pages" "${manualPages}"
  DEPENDS ${manualSources} COMMENT "Making the pages of the manual" VERBATIM)
add_custom_target(numbrela_manual_html ALL DEPENDS "${manualPages}/index.html")
