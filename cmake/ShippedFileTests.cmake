# What the init file, the sources and the help pages name has to be there.
add_test(NAME shipped_files
  COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_SOURCE_DIR} -P ${CMAKE_SOURCE_DIR}/cmake/CheckShippedFiles.cmake)
add_test(NAME shipped_files.CheckFindsEachKindOfFault
  COMMAND ${CMAKE_COMMAND} -DCHECK=${CMAKE_SOURCE_DIR}/cmake/CheckShippedFiles.cmake
    -DWORK=${CMAKE_BINARY_DIR}/shipped-files-test -P ${CMAKE_SOURCE_DIR}/cmake/CheckShippedFilesTest.cmake)
set_tests_properties(shipped_files shipped_files.CheckFindsEachKindOfFault PROPERTIES LABELS core TIMEOUT 60)
