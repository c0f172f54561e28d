# A program that is built as an installed one is, and the same one without: the first has all that hardens it, and of the
# second packaging/hardened.sh tells that each thing is missing. The programs themselves are read where they are built so.
add_executable(hardened-sample scripts/sample.cpp)
target_compile_options(hardened-sample PRIVATE -O2 ${hardening_compile})
target_compile_definitions(hardened-sample PRIVATE ${hardening_definitions})
target_link_options(hardened-sample PRIVATE ${hardening_link})
set_target_properties(hardened-sample PROPERTIES POSITION_INDEPENDENT_CODE ON)

add_executable(plain-sample scripts/sample.cpp)
target_compile_options(plain-sample PRIVATE -O2 -fno-stack-protector -fno-stack-clash-protection -U_FORTIFY_SOURCE -fno-pie)
target_link_options(plain-sample PRIVATE -no-pie -Wl,-z,norelro -Wl,-z,lazy -Wl,-z,execstack)
set_target_properties(plain-sample PROPERTIES POSITION_INDEPENDENT_CODE OFF)

add_test(NAME scripts.hardened COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/scripts/hardened_test.sh
  ${PROJECT_SOURCE_DIR}/packaging/hardened.sh $<TARGET_FILE:hardened-sample> $<TARGET_FILE:plain-sample>)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND GRIDWRIGHT_HARDENING)
  add_test(NAME packaging.hardened COMMAND ${PROJECT_SOURCE_DIR}/packaging/hardened.sh $<TARGET_FILE:gridwright>
    $<TARGET_FILE:gridwright-book> $<TARGET_FILE:gridwright-headless> $<TARGET_FILE:gridwright-prepare>)
endif()
