# Where the file-system standard wants everything: cmake --install BUILD [--prefix FOLDER]
include(GNUInstallDirs)
set(linuxFiles "${CMAKE_CURRENT_LIST_DIR}")
set(programFolder "${CMAKE_INSTALL_LIBDIR}/numbrela")

install(TARGETS numbrela DESTINATION "${programFolder}")
file(RELATIVE_PATH programFromPath
  "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}/numbrela/numbrela")
set(linkOnPath "${CMAKE_CURRENT_BINARY_DIR}/onpath/numbrela")
file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/onpath")
file(CREATE_LINK "${programFromPath}" "${linkOnPath}" SYMBOLIC)
install(FILES "${linkOnPath}" DESTINATION "${CMAKE_INSTALL_BINDIR}")

install(FILES "${linuxFiles}/org.example.numbrela.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "${linuxFiles}/numbrela.6" DESTINATION "${CMAKE_INSTALL_MANDIR}/man6")
install(FILES "${linuxFiles}/numbrela.es.6" DESTINATION "${CMAKE_INSTALL_MANDIR}/es/man6" RENAME numbrela.6)

set(documents "${CMAKE_INSTALL_DATAROOTDIR}/doc/numbrela")
set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
foreach(size 16 22 24 32 48 64 128 256 512)
  icon_picture(${size} picture)
  install(FILES "${picture}" DESTINATION "${icons}/${size}x${size}/apps" RENAME numbrela.png)
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/packaging/numbrela.svg" DESTINATION "${icons}/scalable/apps")

install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${documents}")
include("${PROJECT_SOURCE_DIR}/packaging/Manual.cmake")
install(DIRECTORY "${manualPages}" DESTINATION "${documents}")

# Where the manual is, to which the desktop entry leads, is only known when the program is installed.
install(CODE "
  set(MANUAL \"\${CMAKE_INSTALL_PREFIX}/${documents}/manual/index.html\")
  configure_file(\"${linuxFiles}/numbrela.desktop\"
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/applications/numbrela.desktop\"
    @ONLY FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)")

# The catalogue as it is at first, for whoever wants it back.
set(firstProducts "${PROJECT_SOURCE_DIR}/activities/shopping/catalogue/productos.txt")
set(firstCatalogue "${CMAKE_CURRENT_BINARY_DIR}/productos.dat")
add_custom_command(OUTPUT "${firstCatalogue}"
  COMMAND "${CMAKE_COMMAND}" -E rm -f "${firstCatalogue}" # the tool leaves a catalogue that is there as it is
  COMMAND "${NUMBRELA_CATALOGUE_MAKER}" "${firstProducts}" "${firstCatalogue}"
  DEPENDS "${firstProducts}" numbrela_make_catalogue
  COMMENT "Making the catalogue of a new installation" VERBATIM)
add_custom_target(numbrela_first_catalogue ALL DEPENDS "${firstCatalogue}")
install(FILES "${firstCatalogue}" DESTINATION "${CMAKE_INSTALL_DATADIR}/numbrela")
configure_file("${linuxFiles}/Catalogue.cmake.in" "${CMAKE_CURRENT_BINARY_DIR}/Catalogue.cmake" @ONLY)
install(SCRIPT "${CMAKE_CURRENT_BINARY_DIR}/Catalogue.cmake")
