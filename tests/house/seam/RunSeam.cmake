# Builds SurfaceIO against the in-house library next to this file and runs the consumer:
#   cmake -D SCRATCH=folder -D SOURCE=folder -D WAY=package|together [-D GENERATOR=.. -D COMPILER=..
#     -D CONSUMER_COMPILERS=.. -D PREFIX_PATH=..] -P RunSeam.cmake
set(seam "${CMAKE_CURRENT_LIST_DIR}")
include("${seam}/../../support/Consume.cmake")

set(only_the_library
  -D SURFACEIO_BUILD_TOOLS=OFF -D SURFACEIO_BUILD_TESTS=OFF -D SURFACEIO_BUILD_EXAMPLES=OFF)
set(built_here -D CMAKE_BUILD_TYPE=Debug -D "CMAKE_INSTALL_PREFIX=${SCRATCH}/prefix" -D "CMAKE_INSTALL_RPATH=$ORIGIN")
file(REMOVE_RECURSE "${SCRATCH}")

if(WAY STREQUAL "package")
  use_prefix("${SCRATCH}/prefix")
  build(library "${seam}/library" ${built_here})
  run("${CMAKE_COMMAND}" --install "${SCRATCH}/library")
  build(surfaceio "${SOURCE}" ${only_the_library} ${built_here}
    -D SURFACEIO_INHOUSE_PACKAGE=OtherInhouse -D SURFACEIO_INHOUSE_TARGET=OtherInhouse::All
    -D SURFACEIO_INHOUSE_PKGCONFIG=other-inhouse)
  run("${CMAKE_COMMAND}" --install "${SCRATCH}/surfaceio")
  file(RENAME "${SCRATCH}/prefix" "${SCRATCH}/moved")
  if(EXISTS "${SCRATCH}/moved/include/surfaceio/inhouse")
    message(FATAL_ERROR "The stand-ins were installed beside the libraries that replace them.")
  endif()
  file(READ "${SCRATCH}/moved/lib/pkgconfig/surfaceio.pc" pc)
  if(NOT pc MATCHES "Requires: [^\n]*other-inhouse" OR pc MATCHES "-lsurfaceio-inhouse")
    message(FATAL_ERROR "surfaceio.pc names the wrong in-house library:\n${pc}")
  endif()
  use_prefix("${SCRATCH}/moved")
  foreach(COMPILER IN LISTS CONSUMER_COMPILERS)
    cmake_path(GET COMPILER FILENAME name)
    build(consumer-${name} "${seam}/consumer" -D CMAKE_BUILD_TYPE=Debug)
    run("${SCRATCH}/consumer-${name}/seam_consumer")
  endforeach()
else()
  build(together "${seam}/together" ${only_the_library} ${built_here} -D "SURFACEIO_SOURCE=${SOURCE}")
  run("${SCRATCH}/together/bin/seam_consumer")
endif()
