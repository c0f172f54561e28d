# Sessions on disks that give up, and programs that are killed: a few moments of each; ./test --long faults tries all.
add_library(gridwright-failing-disk MODULE faults/failing_disk.cpp)
target_link_libraries(gridwright-failing-disk PRIVATE ${CMAKE_DL_LIBS})
add_dependencies(gridwright-failing-disk gridwright-headless gridwright-book)
set(faults $<TARGET_FILE:Python3::Interpreter> ${CMAKE_CURRENT_SOURCE_DIR}/faults/faults.py
  --headless $<TARGET_FILE:gridwright-headless> --book $<TARGET_FILE:gridwright-book>
  --disk $<TARGET_FILE:gridwright-failing-disk>)
add_test(NAME faults.kills COMMAND ${faults} --kills 10)
set_tests_properties(faults.kills PROPERTIES TIMEOUT 600)
if(NOT GRIDWRIGHT_COVERAGE)  # what is counted is written to the disk at each end, and would itself be counted
  add_test(NAME faults.disk COMMAND ${faults} --points 2)
  set_tests_properties(faults.disk PROPERTIES TIMEOUT 600)
endif()
