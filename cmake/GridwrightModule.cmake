# One module of the program: an object library without Qt, whose headers compile on their own.
#
#   gridwright_module(NAME [SOURCES a.cpp ...])
#
# Folder and library share a name. All modules are linked together into gridwright-program.
function(gridwright_module name)
  cmake_parse_arguments(arg "" "" "SOURCES" ${ARGN})
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(gridwright-${name} OBJECT ${arg_SOURCES})
  target_sources(gridwright-${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/src FILES ${headers})
  target_link_libraries(gridwright-${name} PUBLIC gridwright-options)
  set_target_properties(gridwright-${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()
