# The command-line tool: its pieces, and the built tool run as a process on scenes.
if(TARGET orbisett_app)
  orbisett_test(app_unit_tests
    SOURCES app_preview_test.cpp app_settings_test.cpp app_table_test.cpp
    LIBS orbisett_app)
endif()
