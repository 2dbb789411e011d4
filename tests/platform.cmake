orbisett_test(platform_tests
  SOURCES platform_strings_test.cpp platform_events_test.cpp platform_windows_test.cpp
          platform_controls_test.cpp platform_driver_test.cpp platform_svg_test.cpp
  LIBS orbisett_platform)
