# What people read, in their language. HACKING.md says what to do when a text changes.
if(SURFACEIO_BUILD_TRANSLATIONS)
  find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)
endif()

# surfaceio_add_translations(<target> <catalogue>): compiles translations/<catalogue>_<language>.ts and puts the
# results into the target, as :/surfaceio/translations/<catalogue>_<language>.qm. There they move with it, and
# no installation is without them.
function(surfaceio_add_translations target catalogue)
  if(NOT SURFACEIO_BUILD_TRANSLATIONS)
    return()
  endif()
  set(compiled "")
  file(GLOB texts CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/translations/${catalogue}_*.ts")
  foreach(text IN LISTS texts)
    cmake_path(GET text STEM LAST_ONLY name)
    set(result "${CMAKE_CURRENT_BINARY_DIR}/translations/${name}.qm")
    add_custom_command(OUTPUT "${result}"
      COMMAND Qt6::lrelease -silent "${text}" -qm "${result}"
      DEPENDS "${text}" VERBATIM)
    list(APPEND compiled "${result}")
  endforeach()
  file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/translations")
  qt_add_resources(${target} "${catalogue}_translations"
    PREFIX /surfaceio/translations BASE "${CMAKE_CURRENT_BINARY_DIR}/translations" FILES ${compiled})
endfunction()
