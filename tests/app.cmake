# The command-line tool: its pieces, and the built tool run as a process on scenes.
orbisett_test(app_unit_tests
  SOURCES app_preview_test.cpp app_settings_test.cpp app_table_test.cpp
  LIBS orbisett_app)

orbisett_test(app_tool_tests
  SOURCES app_runs_test.cpp app_report_test.cpp app_errors_test.cpp
          app_bad_input_test.cpp app_run_outcome_test.cpp app_picture_file_test.cpp app_agreement_test.cpp
          app_gltf_test.cpp
  LIBS orbisett_app orbisett_core)
target_compile_definitions(app_tool_tests PRIVATE ORBISETT_HOST_PATH="$<TARGET_FILE:orbisett-host>"
                           ORBISETT_MODULE_PATH="$<TARGET_FILE:orbisett>")
add_dependencies(app_tool_tests orbisett-host orbisett)

# Outputs that cannot be written: every write of the built tool made to fail in turn by a
# preloaded shim, full devices, interruptions.
add_library(orbisett_write_fault_shim MODULE write_fault_shim.cpp)
target_link_libraries(orbisett_write_fault_shim PRIVATE ${CMAKE_DL_LIBS})
# Plain even in a sanitized build: the shell that starts the tool loads it too.
target_compile_options(orbisett_write_fault_shim PRIVATE -fno-sanitize=all)
target_link_options(orbisett_write_fault_shim PRIVATE -fno-sanitize=all)
orbisett_test(app_write_fault_tests SOURCES app_write_faults_test.cpp)
target_compile_definitions(app_write_fault_tests PRIVATE ORBISETT_HOST_PATH="$<TARGET_FILE:orbisett-host>"
                           ORBISETT_FAULT_SHIM="$<TARGET_FILE:orbisett_write_fault_shim>")
add_dependencies(app_write_fault_tests orbisett-host orbisett orbisett_write_fault_shim)
