orbisett_test(toolkit_tests
  SOURCES toolkit_numbers_test.cpp toolkit_radio_test.cpp toolkit_dialog_test.cpp
          toolkit_panel_test.cpp toolkit_controls_test.cpp toolkit_suites_test.cpp
  LIBS orbisett_core)
