orbisett_test(cylinder_layout_tests
  SOURCES distribution_modes_test.cpp overlap_test.cpp equatorial_ring_test.cpp
  LIBS orbisett_core orbisett_hostlib orbisett_platform)
