# The host stand-in, and the plug-in's suite access tested against it.
add_library(orbisett_host_test_plugin MODULE host_test_plugin.cpp)
target_link_libraries(orbisett_host_test_plugin PRIVATE orbisett_sdk)
set_target_properties(orbisett_host_test_plugin PROPERTIES CXX_VISIBILITY_PRESET hidden PREFIX "")

orbisett_test(host_tests
  SOURCES host_project_test.cpp host_selection_test.cpp host_values_test.cpp host_duplicate_undo_test.cpp
          host_hooks_test.cpp host_panels_test.cpp host_accounting_test.cpp host_scene_test.cpp
          host_loader_test.cpp
  LIBS orbisett_hostlib)
target_compile_definitions(host_tests PRIVATE
  ORBISETT_HOST_TEST_PLUGIN="$<TARGET_FILE:orbisett_host_test_plugin>")
add_dependencies(host_tests orbisett_host_test_plugin)

orbisett_test(suite_handler_tests
  SOURCES suite_handler_test.cpp
  LIBS orbisett_hostlib orbisett_core)
