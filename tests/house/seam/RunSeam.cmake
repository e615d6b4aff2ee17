# Builds SurfaceIO against the in-house library next to this file and runs the consumer:
#   cmake -D SCRATCH=folder -D SOURCE=folder -D WAY=package|together [-D GENERATOR=.. -D COMPILER=..
#     -D PREFIX_PATH=..] -P RunSeam.cmake
set(seam "${CMAKE_CURRENT_LIST_DIR}")
find_program(CCACHE ccache)
cmake_path(CONVERT "${SCRATCH}/prefix;${PREFIX_PATH};$ENV{CMAKE_PREFIX_PATH}" TO_NATIVE_PATH_LIST prefixes)
set(ENV{CMAKE_PREFIX_PATH} "${prefixes}")

function(run)
  list(JOIN ARGN " " line)
  message(STATUS "${line}")
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${output}\n${line}\nfailed: ${result}")
  endif()
endfunction()

# build(<name> <source> [-D...]): configures and builds in a folder of its own.
function(build name source)
  set(options -D CMAKE_BUILD_TYPE=Debug -D "CMAKE_INSTALL_PREFIX=${SCRATCH}/prefix" -D CMAKE_INSTALL_LIBDIR=lib
    -D "CMAKE_INSTALL_RPATH=${SCRATCH}/prefix/lib")
  if(COMPILER)
    list(APPEND options -D "CMAKE_CXX_COMPILER=${COMPILER}")
  endif()
  if(CCACHE)
    list(APPEND options -D "CMAKE_CXX_COMPILER_LAUNCHER=${CCACHE}")
  endif()
  if(GENERATOR)
    list(APPEND options -G "${GENERATOR}")
  endif()
  run("${CMAKE_COMMAND}" -S "${source}" -B "${SCRATCH}/${name}" ${options} ${ARGN})
  run("${CMAKE_COMMAND}" --build "${SCRATCH}/${name}" --parallel 2)
endfunction()

set(only_the_library
  -D SURFACEIO_BUILD_TOOLS=OFF -D SURFACEIO_BUILD_TESTS=OFF -D SURFACEIO_BUILD_EXAMPLES=OFF)
file(REMOVE_RECURSE "${SCRATCH}")

if(WAY STREQUAL "package")
  build(library "${seam}/library")
  run("${CMAKE_COMMAND}" --install "${SCRATCH}/library")
  build(surfaceio "${SOURCE}" ${only_the_library}
    -D SURFACEIO_INHOUSE_PACKAGE=OtherInhouse -D SURFACEIO_INHOUSE_TARGET=OtherInhouse::All)
  run("${CMAKE_COMMAND}" --install "${SCRATCH}/surfaceio")
  if(EXISTS "${SCRATCH}/prefix/include/surfaceio/inhouse")
    message(FATAL_ERROR "The stand-ins were installed beside the libraries that replace them.")
  endif()
  build(consumer "${seam}/consumer")
  run("${SCRATCH}/consumer/seam_consumer")
else()
  build(together "${seam}/together" ${only_the_library} -D "SURFACEIO_SOURCE=${SOURCE}")
  run("${SCRATCH}/together/bin/seam_consumer")
endif()
