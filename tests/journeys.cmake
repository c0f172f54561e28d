# Whole sessions as scripts: every tests/journeys/*.txt is run through the headless twin.
add_executable(journey-pictures journeys/pictures.cpp)
target_link_libraries(journey-pictures PRIVATE gridwright-test-support gridwright-images)

file(GLOB journeys CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/journeys/*.txt)
if(NOT journeys)
  message(FATAL_ERROR "no journey is found in ${CMAKE_CURRENT_SOURCE_DIR}/journeys")
endif()
foreach(journey IN LISTS journeys)
  get_filename_component(name ${journey} NAME_WE)
  add_test(NAME journey.${name}
    COMMAND sh ${CMAKE_CURRENT_SOURCE_DIR}/journeys/run.sh $<TARGET_FILE:gridwright-headless>
      $<TARGET_FILE:journey-pictures> ${journey} ${CMAKE_CURRENT_BINARY_DIR}/journeys/${name})
  set_tests_properties(journey.${name} PROPERTIES TIMEOUT 300)
endforeach()

# The examples too: their pictures are painted as ./run paints them.
file(GLOB examples CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/examples/*.txt)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
foreach(example IN LISTS examples)
  get_filename_component(name ${example} NAME_WE)
  add_test(NAME example.${name}
    COMMAND sh ${CMAKE_CURRENT_SOURCE_DIR}/journeys/example.sh $<TARGET_FILE:gridwright-headless>
      $<TARGET_FILE:Python3::Interpreter> ${example} ${CMAKE_CURRENT_BINARY_DIR}/examples/${name})
  set_tests_properties(example.${name} PROPERTIES TIMEOUT 300)
endforeach()
