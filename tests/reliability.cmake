# Robustness: every host call made to fail in turn through the built module, and what that
# sweep found, each pinned down on its own.
orbisett_test(fault_sweep_tests
  SOURCES fault_sweep_test.cpp fault_sweep_findings_test.cpp failing_allocation.cpp
  LIBS orbisett_hostlib orbisett_platform)
target_compile_definitions(fault_sweep_tests PRIVATE ORBISETT_MODULE_PATH="$<TARGET_FILE:orbisett>")
add_dependencies(fault_sweep_tests orbisett)

include(${CMAKE_CURRENT_SOURCE_DIR}/fuzz/fuzz.cmake)
