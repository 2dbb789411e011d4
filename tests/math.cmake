orbisett_test(math_tests
  SOURCES vector3d_test.cpp matrix3d_test.cpp random_numbers_test.cpp math_exceptions_test.cpp
  LIBS orbisett_core)
