# The host stand-in, and the plug-in's suite access tested against it.
orbisett_test(host_tests
  SOURCES host_project_test.cpp host_selection_test.cpp host_values_test.cpp host_duplicate_undo_test.cpp
          host_hooks_test.cpp host_panels_test.cpp host_accounting_test.cpp host_scene_test.cpp
  LIBS orbisett_hostlib)

orbisett_test(suite_handler_tests
  SOURCES suite_handler_test.cpp
  LIBS orbisett_hostlib orbisett_core)
