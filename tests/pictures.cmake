# Pictures as people bring them: painted by a script when the tests are built, and the tests that go through all.
find_program(GRIDWRIGHT_PAINTER NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)  # python3-pil belongs to this one
set(brought ${CMAKE_CURRENT_BINARY_DIR}/pictures/brought)
add_custom_command(
  OUTPUT ${brought}/painted
  COMMAND ${GRIDWRIGHT_PAINTER} ${CMAKE_CURRENT_SOURCE_DIR}/pictures/make_pictures.py ${brought}
  COMMAND ${CMAKE_COMMAND} -E touch ${brought}/painted
  DEPENDS pictures/make_pictures.py
  COMMENT "Painting pictures for the tests"
  VERBATIM
)
add_custom_target(brought-pictures DEPENDS ${brought}/painted)

function(gridwright_picture_test name)
  gridwright_test(${name} LIBRARIES gridwright-picture-files gridwright-images)
  string(REPLACE "/" "-" target ${name})
  string(REPLACE ".cpp" "" target ${target})
  add_dependencies(${target} brought-pictures)
  target_compile_definitions(${target} PRIVATE GRIDWRIGHT_BROUGHT="${brought}"
    GRIDWRIGHT_STAMPS="${PROJECT_SOURCE_DIR}/content/stamps" GRIDWRIGHT_GOLDEN="${CMAKE_CURRENT_SOURCE_DIR}/pictures/golden" GRIDWRIGHT_PREPARE="$<TARGET_FILE:gridwright-prepare>")
  add_dependencies(${target} gridwright-prepare)
endfunction()

gridwright_picture_test(pictures/read_picture_test.cpp)
gridwright_picture_test(pictures/prepared_pictures_test.cpp)
gridwright_picture_test(pictures/prepared_mazes_test.cpp)
gridwright_picture_test(pictures/prepare_program_test.cpp)
gridwright_picture_test(pictures/stamps_test.cpp)
gridwright_picture_test(pictures/words_test.cpp)
gridwright_test(pictures/bit_plane_test.cpp)
gridwright_test(pictures/flood_test.cpp)
gridwright_test(pictures/sheet_test.cpp)
gridwright_test(pictures/harden_test.cpp LIBRARIES gridwright-picture-files)
gridwright_test(pictures/pairing_test.cpp)
gridwright_test(pictures/paper_test.cpp LIBRARIES gridwright-picture-files)
gridwright_test(pictures/prepare_test.cpp LIBRARIES gridwright-picture-files)
gridwright_test(pictures/svg_cleaner_test.cpp LIBRARIES gridwright-picture-files)
gridwright_test(pictures/ready_test.cpp)
gridwright_test(pictures/regions_test.cpp)
