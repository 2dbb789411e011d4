# The 3D page of orbisett-host --html, driven in headless Chromium by a node program.
find_program(NODE_EXECUTABLE node REQUIRED)
add_test(NAME page_browser
         COMMAND ${NODE_EXECUTABLE} --test --test-reporter=tap ${CMAKE_CURRENT_SOURCE_DIR}/page/browser_test.mjs)
set_tests_properties(page_browser PROPERTIES
  TIMEOUT 600
  ENVIRONMENT "ORBISETT_HOST=$<TARGET_FILE:orbisett-host>;ORBISETT_PAGE_DIR=${CMAKE_SOURCE_DIR}/app/page;ORBISETT_PAGE_SHOTS=${CMAKE_CURRENT_BINARY_DIR}/page-shots")

# The page's scripts checked by ESLint, pinned with the page's other packages, by the rules of
# app/page/eslint.config.js; a warning fails as an error does.
add_test(NAME page_lint
         COMMAND ${NODE_EXECUTABLE} node_modules/eslint/bin/eslint.js --max-warnings 0 src
         WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}/app/page)
