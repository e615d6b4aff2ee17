# What ./dev install makes finds its libraries from where it lies.
include("${CMAKE_CURRENT_LIST_DIR}/../support/Consume.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/Elf.cmake")
expect_run_paths("${MOVED}" "$ORIGIN" "$ORIGIN/../${LIBDIR}")
