# Holds the includes of every folder of src/ against what its CMake file says it may stand on.
#
#   cmake -D SOURCES=DIR -P CheckFloors.cmake
#
# Fails, naming each fault, when a folder says nothing of a floor, when what it names does not lie below it or
# before it on its own floor, and when a file includes a folder that is not named. The order on a floor is that
# in which SOURCES/CMakeLists.txt adds the folders.
cmake_minimum_required(VERSION 3.25)

set(faults)
file(STRINGS ${SOURCES}/CMakeLists.txt lines REGEX "^ *add_subdirectory\\(")
set(place 0)
set(folders)
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^ *add_subdirectory\\(([^)]*)\\).*" "\\1" folder "${line}")
  file(READ ${SOURCES}/${folder}/CMakeLists.txt text)
  if(NOT text MATCHES "gridwright_module\\(([^)]*)\\)")
    list(APPEND faults "src/${folder}/CMakeLists.txt says nothing of a floor")
    continue()
  endif()
  string(REGEX REPLACE "[ \n]+" ";" words "${CMAKE_MATCH_1}")
  cmake_parse_arguments(arg "" "FLOOR;LIBRARY" "STANDS_ON;SOURCES;LINKS" ${words})
  list(APPEND folders ${folder})
  math(EXPR place "${place} + 1")
  set(floor_of_${folder} ${arg_FLOOR})
  set(place_of_${folder} ${place})
  set(ground_of_${folder} ${arg_STANDS_ON})
endforeach()

foreach(folder IN LISTS folders)
  foreach(ground IN LISTS ground_of_${folder})
    if(NOT DEFINED floor_of_${ground})
      list(APPEND faults "${folder}/ is to stand on ${ground}/, which is no folder here")
    elseif(floor_of_${ground} GREATER floor_of_${folder}
        OR (floor_of_${ground} EQUAL floor_of_${folder} AND NOT place_of_${ground} LESS place_of_${folder}))
      list(APPEND faults "${folder}/ is to stand on ${ground}/, which does not lie below it")
    endif()
  endforeach()
  file(GLOB files ${SOURCES}/${folder}/*.h ${SOURCES}/${folder}/*.cpp ${SOURCES}/${folder}/*.inc)
  foreach(file IN LISTS files)
    file(STRINGS ${file} includes REGEX "^ *# *include *\"[^\"]+/[^/\"]+\"")
    foreach(line IN LISTS includes)
      string(REGEX REPLACE "^[^\"]*\"([^\"]+)/([^/\"]+)\".*" "\\1" ground "${line}")
      if(NOT ground STREQUAL folder AND NOT ground IN_LIST ground_of_${folder})
        file(RELATIVE_PATH shown ${SOURCES}/.. ${file})
        string(REGEX MATCH "\"[^\"]+\"" what "${line}")
        string(REPLACE ";" "/, " allowed "${ground_of_${folder}}")
        if(allowed)
          string(APPEND allowed "/")
        else()
          set(allowed "nothing")
        endif()
        list(APPEND faults "${shown} includes ${what}, but ${folder}/ may stand on ${allowed}")
      endif()
    endforeach()
  endforeach()
endforeach()

if(faults)
  list(JOIN faults "\n  " told)
  message(FATAL_ERROR "These arrows may not be:\n  ${told}\n"
    "What stands on what is said in each folder's CMakeLists.txt; docs/house.md shows the floors.")
endif()
