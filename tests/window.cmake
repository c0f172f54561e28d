# The window as a person meets it: under an X server and a window manager of the test's own.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME window.walk
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/window/walk.py $<TARGET_FILE:gridwright>
    ${PROJECT_SOURCE_DIR}/examples/patterns/spirals.pat
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(window.walk PROPERTIES TIMEOUT 300)

find_package(Qt6 REQUIRED COMPONENTS Widgets)
add_executable(drag-source window/drag_source.cpp)
target_link_libraries(drag-source PRIVATE Qt6::Widgets)
add_test(NAME window.arrivals
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/window/arrivals.py $<TARGET_FILE:gridwright>
    $<TARGET_FILE:drag-source>
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(window.arrivals PROPERTIES TIMEOUT 300)

add_test(NAME window.workshop
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/window/workshop.py $<TARGET_FILE:gridwright>
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(window.workshop PROPERTIES TIMEOUT 300)

add_test(NAME window.keys
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/window/keys.py $<TARGET_FILE:gridwright>
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(window.keys PROPERTIES TIMEOUT 300)

add_test(NAME window.export
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/window/export.py $<TARGET_FILE:gridwright>
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(window.export PROPERTIES TIMEOUT 300)

add_test(NAME window.book
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/window/book.py $<TARGET_FILE:gridwright>
    $<TARGET_FILE:gridwright-book>
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(window.book PROPERTIES TIMEOUT 300)

# A short form of what tests/long/window.sh does.
add_test(NAME window.flood
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/window/flood.py $<TARGET_FILE:gridwright>
    $<TARGET_FILE:drag-source> 1 25 1
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(window.flood PROPERTIES TIMEOUT 300)
