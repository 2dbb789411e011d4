# Checks the page's scripts with node and bundles them with three.js into one script.
cmake_minimum_required(VERSION 3.20)
# In: NODE, PAGE_DIR, OUT.
set(ESBUILD ${PAGE_DIR}/node_modules/.bin/esbuild)
if(NOT EXISTS ${ESBUILD} OR NOT EXISTS ${PAGE_DIR}/node_modules/three/package.json)
  message(FATAL_ERROR "The 3D page's packages are not installed in ${PAGE_DIR}/node_modules: run `make deps`.")
endif()
file(GLOB scripts ${PAGE_DIR}/src/*.js)
foreach(script ${scripts})
  execute_process(COMMAND ${NODE} --check ${script} RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${script} does not parse")
  endif()
endforeach()
execute_process(
  COMMAND ${ESBUILD} ${PAGE_DIR}/src/main.js --bundle --format=iife --minify --target=es2020
          --log-level=warning --outfile=${OUT}
  WORKING_DIRECTORY ${PAGE_DIR}
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "bundling the 3D page failed")
endif()
