# What is installed: the two libraries, their headers, the program, the package files.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/SurfaceIO")

install(TARGETS SurfaceIO EXPORT SurfaceIOTargets
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  RUNTIME COMPONENT runtime
  ARCHIVE COMPONENT development
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/surfaceio" COMPONENT development)

if(TARGET surfaceio_inhouse)
  install(TARGETS surfaceio_inhouse EXPORT SurfaceIOTargets
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    RUNTIME COMPONENT runtime
    ARCHIVE COMPONENT development
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/surfaceio" COMPONENT development)
endif()

if(TARGET surfaceio_tool)
  install(TARGETS surfaceio_tool RUNTIME COMPONENT tools)
endif()

install(EXPORT SurfaceIOTargets NAMESPACE SurfaceIO:: DESTINATION "${package_dir}" COMPONENT development)
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/SurfaceIOConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/SurfaceIOConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/SurfaceIOConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/SurfaceIOConfig.cmake" "${PROJECT_BINARY_DIR}/SurfaceIOConfigVersion.cmake"
  DESTINATION "${package_dir}" COMPONENT development)

# Relocatable: the prefix is found from where the .pc file lies.
file(RELATIVE_PATH SURFACEIO_PC_PREFIX
  "${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/surfaceio.pc.in" "${PROJECT_BINARY_DIR}/surfaceio.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/surfaceio.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
