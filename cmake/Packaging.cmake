# What `cmake --install` lays where, and the Debian package that `cpack` makes of it.
include(GNUInstallDirs)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/gridwright)

install(TARGETS gridwright gridwright-book gridwright-headless gridwright-prepare RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${packaging}/gridwright-start DESTINATION ${CMAKE_INSTALL_BINDIR})

get_property(content GLOBAL PROPERTY GRIDWRIGHT_CONTENT)
install(FILES ${content} DESTINATION ${CMAKE_INSTALL_DATADIR}/gridwright)
get_property(examples GLOBAL PROPERTY GRIDWRIGHT_EXAMPLES)
install(FILES ${examples} DESTINATION ${CMAKE_INSTALL_DATADIR}/gridwright/examples)
get_property(stamps GLOBAL PROPERTY GRIDWRIGHT_STAMPS)
install(FILES ${stamps} DESTINATION ${CMAKE_INSTALL_DATADIR}/gridwright/stamps)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/patterns DESTINATION ${CMAKE_INSTALL_DATADIR}/gridwright FILES_MATCHING
        PATTERN "*pat")

# Software centres fetch screenshots from the web and from nowhere else. Whoever publishes a package names the
# place where docs/pictures lies; without one no picture is named that nobody could fetch.
set(GRIDWRIGHT_PICTURES "" CACHE STRING "Web address of docs/pictures")
set(GRIDWRIGHT_SCREENSHOTS "")
if(GRIDWRIGHT_PICTURES)
  file(READ ${packaging}/screenshots.xml.in GRIDWRIGHT_SCREENSHOTS)
  string(CONFIGURE "${GRIDWRIGHT_SCREENSHOTS}" GRIDWRIGHT_SCREENSHOTS @ONLY)
endif()

install(FILES ${packaging}/gridwright.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${packaging}/gridwright.metainfo.xml.in ${CMAKE_BINARY_DIR}/gridwright.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/gridwright.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging}/gridwright.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${packaging}/icons/gridwright.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 32 48 64 128 256)
  install(FILES ${packaging}/icons/gridwright-${size}.png RENAME gridwright.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()

# Debian wants manuals and changelogs packed, and the same bytes from the same sources.
find_program(GRIDWRIGHT_GZIP gzip)
function(install_packed source name destination)
  if(NOT GRIDWRIGHT_GZIP)
    install(FILES ${source} RENAME ${name} DESTINATION ${destination})
    return()
  endif()
  set(packed ${CMAKE_BINARY_DIR}/packed/${name}.gz)
  add_custom_command(
    OUTPUT ${packed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packed
    COMMAND sh -c "\"$1\" -9nc \"$2\" >\"$3\"" sh ${GRIDWRIGHT_GZIP} ${source} ${packed}
    DEPENDS ${source}
    VERBATIM
  )
  set_property(GLOBAL APPEND PROPERTY GRIDWRIGHT_PACKED ${packed})
  install(FILES ${packed} DESTINATION ${destination})
endfunction()

foreach(page gridwright gridwright-book gridwright-headless gridwright-prepare)
  install_packed(${packaging}/${page}.1 ${page}.1 ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
# gridwright-start is the program in another folder: one page tells of both.
if(GRIDWRIGHT_GZIP)
  set(end .gz)
else()
  set(end "")
endif()
file(CREATE_LINK gridwright.1${end} ${CMAKE_BINARY_DIR}/gridwright-start.1${end} SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/gridwright-start.1${end} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install_packed(${PROJECT_SOURCE_DIR}/CHANGELOG.md NEWS.md ${documents})
install_packed(${packaging}/changelog changelog ${documents})
install(FILES ${packaging}/copyright DESTINATION ${documents})
get_property(all_packed GLOBAL PROPERTY GRIDWRIGHT_PACKED)
add_custom_target(gridwright-packed ALL DEPENDS ${all_packed})

if(BUILD_TESTING)
  add_test(NAME packaging COMMAND ${packaging}/check.sh ${CMAKE_BINARY_DIR})
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME gridwright)
set(CPACK_PACKAGE_CONTACT "Gridwright maintainers <maintainers@users.noreply.c-seed-5cedc1fa.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "printable mazes inside pictures")
set(CPACK_PACKAGE_DESCRIPTION
    "Draw a picture or bring a bitmap, say which colours a maze may fill, and
Gridwright carves a maze through every patch of them. It solves the maze or
lets you play it, and prints it with its answer or without.
.
Mazes are plain, or run under themselves in two ways. Small scripts of steps
shape their corridors. A twin without a window runs the program from scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Plugins that Qt looks for when it reads a picture: no program is linked with them, as they are with that for SVG.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-image-formats-plugins")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)  # as the menu entry says
# Without qt6-wayland a desktop of Wayland alone has no window for it.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-user-dirs")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
