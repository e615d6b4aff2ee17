# How every target of this project is built.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# surfaceio_compile_rules(<target>): warnings, Qt's strict string rules, sanitizers.
function(surfaceio_compile_rules target)
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_KEYWORDS QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
      -Wcast-qual -Wimplicit-fallthrough -Wundef -ffp-contract=off)
  elseif(MSVC)
    target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8)
  endif()
  if(SURFACEIO_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${SURFACEIO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all
      "$<$<CXX_COMPILER_ID:Clang>:-fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/tests/support/ubsan.ignore>")
    target_link_options(${target} PRIVATE -fsanitize=${SURFACEIO_SANITIZE})
  endif()
endfunction()

# surfaceio_reuse_precompiled(<target>): the headers that tests/support parses once, where it does.
function(surfaceio_reuse_precompiled target)
  if(TARGET surfaceio_precompiled)
    target_precompile_headers(${target} REUSE_FROM surfaceio_precompiled)
  endif()
endfunction()

# surfaceio_include_root(<target>): src/, the root of all includes. Where another target replaces
# src/inhouse, its headers go by the same names and have to be found first: its folders stand in front, and
# src/ is a system folder, because CMake makes the folders of imported targets system folders, which
# compilers search after all others.
function(surfaceio_include_root target)
  if(SURFACEIO_INHOUSE_TARGET)
    target_include_directories(${target} SYSTEM PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>")
    target_include_directories(${target} BEFORE PUBLIC
      "$<BUILD_INTERFACE:$<TARGET_PROPERTY:${SURFACEIO_INHOUSE_TARGET},INTERFACE_INCLUDE_DIRECTORIES>>")
    target_compile_definitions(${target} PUBLIC "$<BUILD_INTERFACE:SURFACEIO_INHOUSE_REPLACED>")
  else()
    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>")
  endif()
endfunction()

# surfaceio_add_level(<name> LINK <targets> SOURCES <files>): one level of the house, an object
# library that ends in libsurfaceio.so (and in the static twin that tests of private parts link).
function(surfaceio_add_level name)
  cmake_parse_arguments(ARG "" "" "LINK;SOURCES" ${ARGN})
  add_library(surfaceio_${name} OBJECT ${ARG_SOURCES})
  set_target_properties(surfaceio_${name} PROPERTIES
    AUTOMOC ON POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_compile_definitions(surfaceio_${name} PRIVATE SURFACEIO_LIBRARY)
  surfaceio_include_root(surfaceio_${name})
  target_link_libraries(surfaceio_${name} PUBLIC surfaceio_inhouse_interface ${ARG_LINK})
  surfaceio_compile_rules(surfaceio_${name})
  set_property(GLOBAL APPEND PROPERTY SURFACEIO_LEVELS surfaceio_${name})
endfunction()

# surfaceio_export_rules(<library>): a shared library offers its public classes and nothing else.
function(surfaceio_export_rules library)
  if(UNIX AND NOT APPLE AND NOT SURFACEIO_SANITIZE)
    set(map "${PROJECT_SOURCE_DIR}/cmake/exports.map")
    target_link_options(${library} PRIVATE "LINKER:--version-script=${map}")
    set_property(TARGET ${library} APPEND PROPERTY LINK_DEPENDS "${map}")
  endif()
endfunction()
