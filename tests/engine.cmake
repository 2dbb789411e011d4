# The engine and the dialog framework run in-process on the window system through the toolkit;
# the engine's tests also need the host stand-in.
orbisett_test(dialog_wrapper_tests
  SOURCES dialog_wrapper_test.cpp
  LIBS orbisett_core)
orbisett_test(dialog_base_tests
  SOURCES dialog_base_test.cpp
  LIBS orbisett_core orbisett_hostlib)
orbisett_test(engine_tests
  SOURCES test_assistant.cpp engine_snapshot_test.cpp engine_apply_test.cpp engine_repeat_test.cpp
          engine_errors_test.cpp engine_controls_test.cpp
  LIBS orbisett_core orbisett_hostlib)
