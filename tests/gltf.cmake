# The glTF files of orbisett-host --gltf: the Khronos validator, and three.js's loader in headless
# Chromium, read them; a node program.
find_program(NODE_EXECUTABLE node REQUIRED)
add_test(NAME gltf_files
         COMMAND ${NODE_EXECUTABLE} --test --test-reporter=tap ${CMAKE_CURRENT_SOURCE_DIR}/gltf/gltf_test.mjs)
set_tests_properties(gltf_files PROPERTIES
  TIMEOUT 600
  ENVIRONMENT "ORBISETT_HOST=$<TARGET_FILE:orbisett-host>;ORBISETT_PAGE_DIR=${CMAKE_SOURCE_DIR}/app/page;ORBISETT_SOURCE_DIR=${CMAKE_SOURCE_DIR}")
