# Debian packages, made by ./dev package with CPack: libsurfaceio0, libsurfaceio-dev and surfaceio.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME surfaceio)
set(CPACK_PACKAGE_CONTACT "The SurfaceIO developers <surfaceio@surfaceio.invalid>")
set(CPACK_PACKAGE_VENDOR "The SurfaceIO developers")
set(CPACK_OUTPUT_FILE_PREFIX "${PROJECT_BINARY_DIR}/packages")
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/compress.cmake")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src" "${PROJECT_BINARY_DIR}/src/inhouse")
set(debian_version "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
# The first version with another interface, as HACKING.md has it; ~ sorts before everything of that version.
math(EXPR next_minor "${PROJECT_VERSION_MINOR} + 1")
set(debian_next_interface "${PROJECT_VERSION_MAJOR}.${next_minor}~")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libsurfaceio0)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
configure_file("${PROJECT_SOURCE_DIR}/packaging/shlibs.in" "${PROJECT_BINARY_DIR}/packaging/shlibs" @ONLY)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  "${PROJECT_SOURCE_DIR}/packaging/triggers" "${PROJECT_BINARY_DIR}/packaging/shlibs")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "surface meshes for treatment planning - library
Reads and writes the surface meshes of dental and maxillofacial treatment
planning: STL with facet tags, PLY, OBJ, volume meshes and scenes.

This package has the libraries that programs need to run.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libsurfaceio-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libsurfaceio0 (= ${debian_version}), qt6-base-dev (>= 6.4)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "surface meshes for treatment planning - development files
Reads and writes the surface meshes of dental and maxillofacial treatment
planning: STL with facet tags, PLY, OBJ, volume meshes and scenes.

This package has the headers, the CMake package and the pkg-config file that
programs need to be built.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME surfaceio)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "libsurfaceio0 (= ${debian_version})")
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS qt6-translations-l10n) # what Qt says of files
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "look at, check and convert scans of surfaces
surfaceio is a program for the files of dental and maxillofacial scanners:
it describes them, finds what is wrong with them, converts them between STL,
PLY, OBJ and volume meshes, and draws previews.")

foreach(package IN ITEMS runtime:libsurfaceio0 development:libsurfaceio-dev tools:surfaceio)
  string(REGEX MATCH "^(.*):(.*)$" package "${package}")
  set(component "${CMAKE_MATCH_1}")
  set(folder "${CMAKE_INSTALL_DATAROOTDIR}/doc/${CMAKE_MATCH_2}")
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright" DESTINATION "${folder}" COMPONENT ${component})
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/changelog" DESTINATION "${folder}" RENAME changelog.Debian
    COMPONENT ${component})
  install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" DESTINATION "${folder}" RENAME changelog COMPONENT ${component})
endforeach()
include(CPack)
