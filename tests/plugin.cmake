# End to end: the built module loaded into the host stand-in.
orbisett_test(plugin_tests
  SOURCES plugin_window_test.cpp plugin_panel_test.cpp plugin_session_test.cpp plugin_registration_test.cpp
  LIBS orbisett_hostlib orbisett_platform)
target_compile_definitions(plugin_tests PRIVATE ORBISETT_MODULE_PATH="$<TARGET_FILE:orbisett>")
add_dependencies(plugin_tests orbisett)

# The module exports its entry point and nothing else.
add_test(NAME plugin_exports_only_its_entry_point
  COMMAND sh ${CMAKE_CURRENT_SOURCE_DIR}/exported_symbols.sh $<TARGET_FILE:orbisett>)
