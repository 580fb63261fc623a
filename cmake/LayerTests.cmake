# The direction of the rooms is a test like any other, and so is the check itself.
add_test(NAME layers
  COMMAND ${CMAKE_COMMAND} -DSOURCES=${CMAKE_SOURCE_DIR}/src -P ${CMAKE_SOURCE_DIR}/cmake/CheckLayers.cmake)
add_test(NAME layers.CheckFindsEachKindOfFault
  COMMAND ${CMAKE_COMMAND} -DCHECK=${CMAKE_SOURCE_DIR}/cmake/CheckLayers.cmake
    -DWORK=${CMAKE_BINARY_DIR}/layers-test -P ${CMAKE_SOURCE_DIR}/cmake/CheckLayersTest.cmake)
set_tests_properties(layers layers.CheckFindsEachKindOfFault PROPERTIES LABELS core TIMEOUT 60)
