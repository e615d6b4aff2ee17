#----------------------------------------------------------------
# Generated CMake target import file for configuration "Release".
#----------------------------------------------------------------

# Commands may need to know the format version.
set(CMAKE_IMPORT_FILE_VERSION 1)

# Import target "SurfaceIO::SurfaceIO" for configuration "Release"
set_property(TARGET SurfaceIO::SurfaceIO APPEND PROPERTY IMPORTED_CONFIGURATIONS RELEASE)
set_target_properties(SurfaceIO::SurfaceIO PROPERTIES
  IMPORTED_LINK_DEPENDENT_LIBRARIES_RELEASE "Qt6::Xml"
  IMPORTED_LOCATION_RELEASE "${_IMPORT_PREFIX}/lib/x86_64-linux-gnu/libsurfaceio.so.0.1.0"
  IMPORTED_SONAME_RELEASE "libsurfaceio.so.0"
  )

list(APPEND _cmake_import_check_targets SurfaceIO::SurfaceIO )
list(APPEND _cmake_import_check_files_for_SurfaceIO::SurfaceIO "${_IMPORT_PREFIX}/lib/x86_64-linux-gnu/libsurfaceio.so.0.1.0" )

# Import target "SurfaceIO::Inhouse" for configuration "Release"
set_property(TARGET SurfaceIO::Inhouse APPEND PROPERTY IMPORTED_CONFIGURATIONS RELEASE)
set_target_properties(SurfaceIO::Inhouse PROPERTIES
  IMPORTED_LINK_DEPENDENT_LIBRARIES_RELEASE "Qt6::Xml"
  IMPORTED_LOCATION_RELEASE "${_IMPORT_PREFIX}/lib/x86_64-linux-gnu/libsurfaceio-inhouse.so.0.1.0"
  IMPORTED_SONAME_RELEASE "libsurfaceio-inhouse.so.0"
  )

list(APPEND _cmake_import_check_targets SurfaceIO::Inhouse )
list(APPEND _cmake_import_check_files_for_SurfaceIO::Inhouse "${_IMPORT_PREFIX}/lib/x86_64-linux-gnu/libsurfaceio-inhouse.so.0.1.0" )

# Commands beyond this point should not need to know the version.
set(CMAKE_IMPORT_FILE_VERSION)
