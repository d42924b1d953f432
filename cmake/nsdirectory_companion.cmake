# A companion: a library beside the main one that uses its public headers only. It is built and
# installed as the main one is, shared and static.
#
#   nsdirectory_companion(NAME
#     HEADERS file...     the public ones, from the project's root
#     SOURCES file...
#     LIBRARIES name...)  what it is linked with besides
#
# This makes nsdirectory_NAME and nsdirectory_NAME_static with their aliases. pkg-config gets
# cmake/nsdirectory-NAME.pc.in, where an underscore of NAME is a dash.
function(nsdirectory_companion name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;SOURCES;LIBRARIES")
  set(target nsdirectory_${name})

  # Compiled once, for the shared and the static library alike.
  add_library(${target}_objects OBJECT ${arg_SOURCES})
  nsdirectory_target(${target}_objects)
  target_compile_options(${target}_objects PRIVATE -fno-exceptions -fno-rtti)
  target_link_libraries(${target}_objects PRIVATE nsdirectory::nsdirectory ${arg_LIBRARIES})
  set_target_properties(${target}_objects PROPERTIES
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON POSITION_INDEPENDENT_CODE ON)

  add_library(${target} ${NSDIRECTORY_LIBRARY_TYPE})
  nsdirectory_companion_library(${target} ${name} nsdirectory::nsdirectory)
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    COMPANION_HEADERS "${arg_HEADERS}")
  if(NSDIRECTORY_SHARED)
    add_library(${target}_static STATIC)
    nsdirectory_companion_library(${target}_static ${name}_static nsdirectory::nsdirectory_static)
  else()
    add_library(${target}_static ALIAS ${target})
    add_library(nsdirectory::${name}_static ALIAS ${target})
  endif()
  set_property(GLOBAL APPEND PROPERTY NSDIRECTORY_COMPANIONS ${name})
endfunction()

# One of the two libraries of the companion whose variables are in scope.
macro(nsdirectory_companion_library library exported directory)
  target_sources(${library} PRIVATE $<TARGET_OBJECTS:${target}_objects>)
  add_library(nsdirectory::${exported} ALIAS ${library})
  target_link_libraries(${library} PUBLIC ${directory} PRIVATE ${arg_LIBRARIES})
  set_target_properties(${library} PROPERTIES
    LINKER_LANGUAGE CXX OUTPUT_NAME ${target} EXPORT_NAME ${exported})
endmacro()
