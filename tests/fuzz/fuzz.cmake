# The fuzz targets as a library: replayed by the normal test suite, and driven by libFuzzer in
# the separate clang build (`make fuzz`, configured with ORBISETT_FUZZ=ON).
option(ORBISETT_FUZZ "Build the libFuzzer programs (clang only)" OFF)

add_library(orbisett_fuzz_targets STATIC
  fuzz/edit_field_target.cpp
  fuzz/scene_target.cpp
  fuzz/set_assignment_target.cpp)
target_include_directories(orbisett_fuzz_targets PUBLIC ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}
  ${CMAKE_CURRENT_SOURCE_DIR}/fuzz)
target_link_libraries(orbisett_fuzz_targets PUBLIC orbisett_app orbisett_core orbisett_hostlib orbisett_platform)

orbisett_test(fuzz_replay_tests
  SOURCES fuzz/replay_test.cpp
  LIBS orbisett_fuzz_targets)
target_compile_definitions(fuzz_replay_tests PRIVATE ORBISETT_FUZZ_DIR="${CMAKE_CURRENT_SOURCE_DIR}/fuzz")

if(ORBISETT_FUZZ)
  foreach(target edit_field:editFieldText scene:sceneFile set_assignment:setAssignment)
    string(REPLACE ":" ";" parts ${target})
    list(GET parts 0 name)
    list(GET parts 1 function)
    add_executable(fuzz_${name} fuzz/fuzzer_main.cpp)
    target_compile_definitions(fuzz_${name} PRIVATE ORBISETT_FUZZ_TARGET=${function})
    target_link_libraries(fuzz_${name} PRIVATE orbisett_fuzz_targets)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  endforeach()
endif()
