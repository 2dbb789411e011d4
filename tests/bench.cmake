# The faster layout answers exactly as the plain one: the footprint index against testing every
# footprint, and the plain arithmetic of an even placement against the layout.
orbisett_test(bench_equivalence_tests
  SOURCES bench_equivalence_test.cpp ${CMAKE_SOURCE_DIR}/bench/placement_arithmetic.cpp
  LIBS orbisett_core orbisett_hostlib orbisett_platform)
