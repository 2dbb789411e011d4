# The faster layout answers exactly as the plain one: the footprint index against testing every
# footprint, and a layout run with settings read once against the same layout reading every time.
orbisett_test(bench_equivalence_tests
  SOURCES bench_equivalence_test.cpp
  LIBS orbisett_core orbisett_hostlib orbisett_platform)
