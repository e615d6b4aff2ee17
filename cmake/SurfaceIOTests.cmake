set(SURFACEIO_TEST_TIMEOUT 300 CACHE STRING "Seconds that a test may take")

# surfaceio_add_test(<name> [PRIVATE_PARTS] [SOURCES ...] [LINK ...] [LABELS ...] [TIMEOUT s]):
# the Qt Test program <name> from <name>.cpp. It links the shared library, or with PRIVATE_PARTS its static
# twin, where what is not exported can be reached too. A message in the log that the test did not announce
# with QTest::ignoreMessage fails the run.
function(surfaceio_add_test name)
  cmake_parse_arguments(ARG "PRIVATE_PARTS" "TIMEOUT" "SOURCES;LINK;LABELS" ${ARGN})
  add_executable(${name} ${name}.cpp ${ARG_SOURCES})
  # One moc run for the one class of the file. AUTOMOC would add a scan, a depfile and an empty source per test.
  set(moc "${CMAKE_CURRENT_BINARY_DIR}/${name}.moc")
  qt_generate_moc(${name}.cpp "${moc}" TARGET ${name})
  set_source_files_properties(${name}.cpp PROPERTIES OBJECT_DEPENDS "${moc}")
  target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
  if(ARG_PRIVATE_PARTS)
    target_link_libraries(${name} PRIVATE surfaceio_static)
  else()
    target_link_libraries(${name} PRIVATE SurfaceIO)
  endif()
  target_link_libraries(${name} PRIVATE surfaceio_test_support ${ARG_LINK})
  surfaceio_compile_rules(${name})
  surfaceio_reuse_precompiled(${name})
  add_test(NAME ${name} COMMAND ${name})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT ${SURFACEIO_TEST_TIMEOUT})
  endif()
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${ARG_TIMEOUT}
    LABELS "${ARG_LABELS}"
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LANGUAGE=en;SURFACEIO_CORPUS=${SURFACEIO_CORPUS}"
    FAIL_REGULAR_EXPRESSION "QWARN  :;QCRITICAL:;QDEBUG :;QINFO  :;QFATAL :")
endfunction()
