# What is installed, by component: runtime (the two libraries), development (headers and package files), tools.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/SurfaceIO")

# A prefix can be moved: what is in it finds its libraries from where it lies itself. Distributions, whose
# libraries lie where the loader looks anyway, switch run paths off with CMAKE_SKIP_INSTALL_RPATH; a
# CMAKE_INSTALL_RPATH of your own wins.
if(NOT DEFINED CMAKE_INSTALL_RPATH)
  set(origin "$<IF:$<PLATFORM_ID:Darwin>,@loader_path,$ORIGIN>")
  file(RELATIVE_PATH bin_to_lib "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  foreach(library SurfaceIO surfaceio_inhouse)
    if(TARGET ${library})
      set_target_properties(${library} PROPERTIES INSTALL_RPATH "${origin}")
    endif()
  endforeach()
  if(TARGET surfaceio_tool)
    set_target_properties(surfaceio_tool PROPERTIES INSTALL_RPATH "${origin}/${bin_to_lib}")
  endif()
endif()

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

# Relocatable: the prefix is found from where the .pc file lies, unless that is a fixed place. A replaced
# in-house library has its own .pc file, or none.
set(SURFACEIO_PC_REQUIRES "Qt6Core >= 6.4, Qt6Gui >= 6.4")
if(SURFACEIO_INHOUSE_PKGCONFIG)
  string(APPEND SURFACEIO_PC_REQUIRES ", ${SURFACEIO_INHOUSE_PKGCONFIG}")
endif()
set(SURFACEIO_PC_INHOUSE "")
if(TARGET surfaceio_inhouse)
  set(SURFACEIO_PC_INHOUSE "-lsurfaceio-inhouse")
endif()
set(SURFACEIO_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  file(RELATIVE_PATH SURFACEIO_PC_PREFIX "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
  string(PREPEND SURFACEIO_PC_PREFIX "\${pcfiledir}/")
endif()
# Behind the prefix, or instead of it when it is absolute.
cmake_path(APPEND SURFACEIO_PC_LIBDIR "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND SURFACEIO_PC_INCLUDEDIR "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}" surfaceio)
configure_file("${CMAKE_CURRENT_LIST_DIR}/surfaceio.pc.in" "${PROJECT_BINARY_DIR}/surfaceio.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/surfaceio.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

# The interface, for the API reference.
set(public_headers "")
foreach(library SurfaceIO surfaceio_inhouse)
  if(TARGET ${library})
    get_target_property(headers ${library} HEADER_SET)
    list(APPEND public_headers ${headers})
  endif()
endforeach()
list(JOIN public_headers "\n" public_headers)
file(WRITE "${PROJECT_BINARY_DIR}/public-headers.txt" "${public_headers}\n")
