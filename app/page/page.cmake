# The 3D page of --html: its script bundled with three.js at build time, then baked with the
# page's template into a source file of the tool, so that the tool writes pages from anywhere and
# a page needs nothing beside it.
set(PAGE_DIR ${CMAKE_CURRENT_LIST_DIR})
file(GLOB PAGE_SCRIPTS CONFIGURE_DEPENDS ${PAGE_DIR}/src/*.js)
find_program(NODE_EXECUTABLE node REQUIRED)
if(NOT EXISTS ${PAGE_DIR}/node_modules/.package-lock.json)
  message(FATAL_ERROR "The 3D page's npm packages are not installed: run `make deps` (or `npm ci` in app/page) first.")
endif()

set(PAGE_BUNDLE ${CMAKE_CURRENT_BINARY_DIR}/page/page.js)
add_custom_command(
  OUTPUT ${PAGE_BUNDLE}
  COMMAND ${CMAKE_COMMAND} -DNODE=${NODE_EXECUTABLE} -DPAGE_DIR=${PAGE_DIR} -DOUT=${PAGE_BUNDLE}
          -P ${PAGE_DIR}/bundle.cmake
  DEPENDS ${PAGE_SCRIPTS} ${PAGE_DIR}/package-lock.json ${PAGE_DIR}/bundle.cmake
  COMMENT "Checking and bundling the 3D page's script"
  VERBATIM)

set(PAGE_ASSETS ${CMAKE_CURRENT_BINARY_DIR}/page/page_assets.cpp)
add_custom_command(
  OUTPUT ${PAGE_ASSETS}
  COMMAND ${CMAKE_COMMAND} -DTEMPLATE=${PAGE_DIR}/page.html -DSTYLE=${PAGE_DIR}/page.css -DSCRIPT=${PAGE_BUNDLE}
          -DOUT=${PAGE_ASSETS} -P ${PAGE_DIR}/embed.cmake
  DEPENDS ${PAGE_BUNDLE} ${PAGE_DIR}/page.html ${PAGE_DIR}/page.css ${PAGE_DIR}/embed.cmake
  COMMENT "Baking the 3D page into the tool"
  VERBATIM)
