cmake_minimum_required(VERSION 3.25)

# For scripts that build something against an installed SurfaceIO. They are given SCRATCH (a folder of their
# own), PREFIX_PATH (where else packages are found), and perhaps GENERATOR and COMPILER.
find_program(CCACHE ccache)

# use_prefix(<folder>): packages are looked for there first.
function(use_prefix folder)
  cmake_path(CONVERT "${folder};${PREFIX_PATH}" TO_NATIVE_PATH_LIST prefixes)
  set(ENV{CMAKE_PREFIX_PATH} "${prefixes}")
endfunction()

# run(<program> [<argument>...]): what it prints is in OUTPUT; a failure ends the script.
function(run)
  list(JOIN ARGN " " line)
  message(STATUS "${line}")
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${output}\n${line}\nfailed: ${result}")
  endif()
  set(OUTPUT "${output}" PARENT_SCOPE)
endfunction()

# require_pkg_config(): PKG_CONFIG, and an empty SCRATCH; ends the script where there is none.
macro(require_pkg_config)
  find_program(PKG_CONFIG pkg-config)
  if(NOT PKG_CONFIG)
    message(STATUS "skipped: there is no pkg-config")
    return()
  endif()
  file(REMOVE_RECURSE "${SCRATCH}")
  file(MAKE_DIRECTORY "${SCRATCH}")
endmacro()

# build(<name> <source> [-D...]): configures and builds in a folder of its own.
function(build name source)
  set(options -D CMAKE_INSTALL_LIBDIR=lib)
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
