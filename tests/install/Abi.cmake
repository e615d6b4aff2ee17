# Builds the two libraries with debug information and compares their interface with the dumps in abi/, or with
# -D UPDATE=ON writes the dumps.
include("${CMAKE_CURRENT_LIST_DIR}/../support/Consume.cmake")
find_program(ABIDW abidw)
find_program(ABIDIFF abidiff)
if(NOT ABIDW OR NOT ABIDIFF)
  message(STATUS "skipped: there is no abidw or abidiff (Debian: abigail-tools)")
  return()
endif()
if(NOT UPDATE AND NOT "${COMPILER_ID} ${COMPILER_VERSION} ${QT_VERSION}" MATCHES "^GNU 12\\..* 6\\.4\\.")
  message(STATUS "skipped: the dumps are of g++ 12 and Qt 6.4, this is ${COMPILER_ID} ${COMPILER_VERSION} and "
    "Qt ${QT_VERSION}")
  return()
endif()

set(LIBDIR lib)
build(abi "${SOURCE}" -D SURFACEIO_BUILD_TESTS=OFF -D SURFACEIO_BUILD_TOOLS=OFF -D SURFACEIO_BUILD_EXAMPLES=OFF
  -D CMAKE_BUILD_TYPE= -D "CMAKE_CXX_FLAGS=-O0 -g" -D "CMAKE_INSTALL_PREFIX=${SCRATCH}/prefix")
run("${CMAKE_COMMAND}" --install "${SCRATCH}/abi")
set(changed "")
foreach(library IN ITEMS libsurfaceio libsurfaceio-inhouse)
  if(UPDATE)
    set(dump "${SOURCE}/abi/${library}.abi")
    file(MAKE_DIRECTORY "${SOURCE}/abi")
  else()
    set(dump "${SCRATCH}/${library}.abi")
  endif()
  run("${ABIDW}" --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names --no-write-default-sizes
    --no-elf-needed --drop-private-types --drop-undefined-syms --exported-interfaces-only --type-id-style hash
    --suppressions "${SOURCE}/abi/foreign.suppr"
    --headers-dir "${SCRATCH}/prefix/include/surfaceio" --out-file "${dump}" "${SCRATCH}/prefix/lib/${library}.so")
  if(NOT UPDATE)
    execute_process(COMMAND "${ABIDIFF}" "${SOURCE}/abi/${library}.abi" "${dump}"
      RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
      string(APPEND changed "${library}:\n${output}\n")
    endif()
  endif()
endforeach()
if(changed)
  message(FATAL_ERROR "${changed}\nThe interface is not that of abi/. HACKING.md says what to do.")
endif()
