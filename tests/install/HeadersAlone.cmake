# Each installed header compiles alone. Building it is the test.
include("${CMAKE_CURRENT_LIST_DIR}/../support/Consume.cmake")
file(REMOVE_RECURSE "${SCRATCH}")
use_prefix("${MOVED}")
build(headers "${CMAKE_CURRENT_LIST_DIR}/headers" -D "INCLUDE_ROOT=${MOVED}/include/surfaceio")
