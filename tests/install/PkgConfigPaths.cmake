# Folders that do not lie below the prefix stand in the .pc file as they are. It is only configured.
include("${CMAKE_CURRENT_LIST_DIR}/../support/Consume.cmake")
require_pkg_config()
use_prefix("${SCRATCH}")
set(ENV{PKG_CONFIG_PATH} "${SCRATCH}")

# expect_paths(<libdir> <includedir> <expected libdir> <expected includedir>)
function(expect_paths libdir includedir expected_libdir expected_includedir)
  run("${CMAKE_COMMAND}" -S "${SOURCE}" -B "${SCRATCH}" -G "${GENERATOR}"
    -D SURFACEIO_BUILD_TESTS=OFF -D SURFACEIO_BUILD_TOOLS=OFF -D SURFACEIO_BUILD_EXAMPLES=OFF
    -D SURFACEIO_BUILD_TRANSLATIONS=OFF -D CMAKE_INSTALL_PREFIX=/opt/prefix
    -D "CMAKE_INSTALL_LIBDIR=${libdir}" -D "CMAKE_INSTALL_INCLUDEDIR=${includedir}")
  foreach(variable IN ITEMS libdir includedir)
    run("${PKG_CONFIG}" --variable=${variable} surfaceio)
    string(STRIP "${OUTPUT}" found)
    cmake_path(NORMAL_PATH found)
    if(NOT found STREQUAL expected_${variable})
      message(FATAL_ERROR "with ${libdir} and ${includedir} the ${variable} is ${found}, expected ${expected_${variable}}")
    endif()
  endforeach()
endfunction()

expect_paths(/opt/libraries /opt/headers /opt/libraries /opt/headers/surfaceio)
expect_paths(/opt/libraries include /opt/libraries /opt/prefix/include/surfaceio)
# Two folders above where the .pc file will lie is the prefix.
cmake_path(APPEND SCRATCH ../../lib OUTPUT_VARIABLE below)
cmake_path(NORMAL_PATH below)
expect_paths(lib /opt/headers "${below}" /opt/headers/surfaceio)
