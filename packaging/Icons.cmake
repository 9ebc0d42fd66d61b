# The program's icon in the sizes that systems ask for, drawn when it is built. icon_picture(<size> <variable>) says where
# the picture of a size is.
find_program(iconDrawer rsvg-convert REQUIRED NO_CACHE)

set(iconSizes 16 20 22 24 32 40 48 64 128 256 512)
set(largestSmallIcon 32) # pixels: up to this the details of the large drawing are too fine
set(iconFolder "${CMAKE_CURRENT_BINARY_DIR}/icons")
file(MAKE_DIRECTORY "${iconFolder}")

function(icon_picture size variable)
  if(NOT size IN_LIST iconSizes)
    message(FATAL_ERROR "There is no icon of ${size} pixels.")
  endif()
  set(${variable} "${iconFolder}/${size}.png" PARENT_SCOPE)
endfunction()

set(iconPictures)
foreach(size ${iconSizes})
  icon_picture(${size} picture)
  set(drawing "${CMAKE_CURRENT_LIST_DIR}/numbrela.svg")
  if(size LESS_EQUAL largestSmallIcon)
    set(drawing "${CMAKE_CURRENT_LIST_DIR}/numbrela-16.svg")
  endif()
  add_custom_command(OUTPUT "${picture}"
    COMMAND "${iconDrawer}" --width ${size} --height ${size} --output "${picture}" "${drawing}"
    DEPENDS "${drawing}" COMMENT "Drawing the icon, ${size} pixels" VERBATIM)
  list(APPEND iconPictures "${picture}")
endforeach()
add_custom_target(numbrela_icons ALL DEPENDS ${iconPictures})
