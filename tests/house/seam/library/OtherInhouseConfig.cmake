include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core Gui Xml)
include("${CMAKE_CURRENT_LIST_DIR}/OtherInhouseTargets.cmake")
