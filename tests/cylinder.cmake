orbisett_test(cylinder_tests
  SOURCES cylinder_dialog_test.cpp cylinder_geometry_test.cpp layer_orientation_test.cpp
  LIBS orbisett_core orbisett_hostlib)
