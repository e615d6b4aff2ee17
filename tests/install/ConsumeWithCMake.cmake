# A project of somebody else: find_package, compile, run.
include("${CMAKE_CURRENT_LIST_DIR}/../support/Consume.cmake")
file(REMOVE_RECURSE "${SCRATCH}")
use_prefix("${MOVED}")
build(consumer "${CMAKE_CURRENT_LIST_DIR}/consumer" -D "EXPECTED_PREFIX=${MOVED}")
if(TRANSLATIONS)
  set(language german)
endif()
run("${SCRATCH}/consumer/consumer" "${CMAKE_CURRENT_LIST_DIR}/consumer/tetrahedron.stl" "${SCRATCH}/copy.ply" ${language})
