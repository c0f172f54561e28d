# One folder of src/: a library, the floor it lies on, and the folders it may stand on.
#
#   gridwright_module(FOLDER
#     FLOOR     number from the ground up
#     STANDS_ON folders whose headers it may include; all of them lie lower, or before it on its floor
#     SOURCES   a.cpp ...
#     [LIBRARY  name of a static library of its own; left out, the folder is a part of gridwright-program]
#     [LINKS    what that library links besides]
#   )
#
# Headers compile on their own. Before anything of a folder is compiled its includes are held against
# STANDS_ON (CheckFloors.cmake), so the build fails where an arrow would run up.
function(gridwright_module folder)
  cmake_parse_arguments(arg "" "FLOOR;LIBRARY" "STANDS_ON;SOURCES;LINKS" ${ARGN})
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(arg_LIBRARY)
    set(target ${arg_LIBRARY})
    add_library(${target} STATIC ${arg_SOURCES})
  else()
    set(target gridwright-${folder})
    add_library(${target} OBJECT ${arg_SOURCES})
    set_property(GLOBAL APPEND PROPERTY GRIDWRIGHT_MODULES ${target})
  endif()
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/src FILES ${headers})
  target_link_libraries(${target} PUBLIC gridwright-options ${arg_LINKS})
  set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  add_dependencies(${target} gridwright-floors)
endfunction()

# The check runs again whenever a file of src/ has changed, and takes a tenth of a second. Separate include
# directories for each library would say no more than "no such file"; this says what may not stand on what.
function(gridwright_check_floors)
  file(GLOB_RECURSE looked_at CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/src/*.h ${PROJECT_SOURCE_DIR}/src/*.cpp ${PROJECT_SOURCE_DIR}/src/*.inc
    ${PROJECT_SOURCE_DIR}/src/CMakeLists.txt)
  set(check ${PROJECT_SOURCE_DIR}/cmake/CheckFloors.cmake)
  set(stamp ${CMAKE_BINARY_DIR}/floors.stamp)
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -D SOURCES=${PROJECT_SOURCE_DIR}/src -P ${check}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${looked_at} ${check}
    COMMENT "Looking at what stands on what"
    VERBATIM
  )
  add_custom_target(gridwright-floors DEPENDS ${stamp})
endfunction()
