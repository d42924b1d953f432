# What an installation holds, and the Debian packages made of it: the shared library in one, all
# that a host is built with in a second, and the tools in a third. Companions that need more than
# the library does have packages of their own.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/nsdirectory)
set(CONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/nsdirectory)
set(PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(PRINTER_DIR ${CMAKE_INSTALL_DATADIR}/nsdirectory/gdb)
set(GENERATED_DIR ${CMAKE_CURRENT_BINARY_DIR}/install)

# The libraries and their headers.
set(INSTALLED_LIBRARIES nsdirectory nsdirectory_platform_host)
if(BUILD_SHARED_LIBS)
  list(APPEND INSTALLED_LIBRARIES nsdirectory_static)
endif()
set_target_properties(nsdirectory_platform_host PROPERTIES EXPORT_NAME platform_host)
install(TARGETS ${INSTALLED_LIBRARIES} EXPORT nsdirectory-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  INCLUDES DESTINATION ${HEADER_DIR})
install(FILES
  directory/contact_local_manager.h
  directory/contact_records.h
  directory/data_files.h
  directory/export.h
  directory/id_generator.h
  directory/string_convert.h
  DESTINATION ${HEADER_DIR}/directory COMPONENT development)
install(FILES include/qzstl/list_like include/qzstl/string_like
  DESTINATION ${HEADER_DIR}/qzstl COMPONENT development)
install(FILES platform/device_services.h
  DESTINATION ${HEADER_DIR}/platform COMPONENT development)

# The companions and their headers.
get_property(COMPANIONS GLOBAL PROPERTY NSDIRECTORY_COMPANIONS)
foreach(name ${COMPANIONS})
  get_target_property(component nsdirectory_${name} COMPANION_COMPONENT)
  get_target_property(headers nsdirectory_${name} COMPANION_HEADERS)
  set(libraries nsdirectory_${name})
  if(BUILD_SHARED_LIBS)
    list(APPEND libraries nsdirectory_${name}_static)
  endif()
  install(TARGETS ${libraries} EXPORT nsdirectory-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}
            NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  foreach(header ${headers})
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${header} DESTINATION ${HEADER_DIR}/${folder} COMPONENT development)
  endforeach()
endforeach()

# For find_package.
configure_package_config_file(cmake/nsdirectory-config.cmake.in
  ${GENERATED_DIR}/nsdirectory-config.cmake INSTALL_DESTINATION ${CONFIG_DIR})
write_basic_package_version_file(${GENERATED_DIR}/nsdirectory-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${GENERATED_DIR}/nsdirectory-config.cmake ${GENERATED_DIR}/nsdirectory-config-version.cmake
  DESTINATION ${CONFIG_DIR} COMPONENT development)
install(EXPORT nsdirectory-targets NAMESPACE nsdirectory::
  DESTINATION ${CONFIG_DIR} COMPONENT development)

# For pkg-config. The files find the prefix from where they lie themselves.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${PKGCONFIG_DIR} OUTPUT_VARIABLE PREFIX_FROM_PKGCONFIG)
if(NSDIRECTORY_DATA_DIR)
  set(DATA_DIR_CFLAG " -DNSDIRECTORY_DATA_DIR='\"${NSDIRECTORY_DATA_DIR}\"'")
endif()
set(PKGCONFIG_NAMES nsdirectory nsdirectory-platform-host)
foreach(name ${COMPANIONS})
  string(REPLACE _ - name nsdirectory-${name})
  list(APPEND PKGCONFIG_NAMES ${name})
endforeach()
foreach(name ${PKGCONFIG_NAMES})
  configure_file(cmake/${name}.pc.in ${GENERATED_DIR}/${name}.pc @ONLY)
  install(FILES ${GENERATED_DIR}/${name}.pc DESTINATION ${PKGCONFIG_DIR} COMPONENT development)
endforeach()

# For gdb, which loads a script that lies under the path of the shared object it was made for.
install(FILES tools/gdb/nsdirectory_printers.py DESTINATION ${PRINTER_DIR} COMPONENT development)
if(BUILD_SHARED_LIBS)
  set(AUTO_LOAD_DIR ${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR})
  cmake_path(RELATIVE_PATH PRINTER_DIR
    BASE_DIRECTORY ${AUTO_LOAD_DIR} OUTPUT_VARIABLE PRINTERS_FROM_AUTO_LOAD)
  configure_file(tools/gdb/auto_load.py.in ${GENERATED_DIR}/auto_load.py @ONLY)
  install(FILES ${GENERATED_DIR}/auto_load.py DESTINATION ${AUTO_LOAD_DIR}
    RENAME libnsdirectory.so.${PROJECT_VERSION}-gdb.py COMPONENT development)
endif()

# The Debian packages.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The nsdirectory maintainers <maintainers@nsdirectory.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The companion needs the library, which comes with it.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libnsdirectory${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "The shared libraries: the phone book, which keeps contacts, groups and a blacklist in
two files, and the companion that guards its edits against power cuts and full disks.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnsdirectory-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libnsdirectory${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), libpugixml-dev (>= 1.13)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "What a host is built with: headers, the static libraries, a workstation's device
services, CMake package, pkg-config files and pretty printers for gdb.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME nsdirectory-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "python3 (>= 3.11), python3-vobject")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
  "A checker for the two files of the phone book, and a program that brings contacts in
and out as vCard or CSV.")

set(CPACK_COMPONENTS_ALL runtime development)
if(NSDIRECTORY_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL tools)
endif()

# The packages of companions. They hold one library each, whose dependencies are found in it, all
# but the one that is built with it.
foreach(name ${COMPANIONS})
  get_target_property(component nsdirectory_${name} COMPANION_COMPONENT)
  if(component STREQUAL name)
    string(REPLACE _ - package libnsdirectory-${name}${PROJECT_VERSION_MAJOR})
    string(TOUPPER ${name} NAME)
    set(CPACK_DEBIAN_${NAME}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${NAME}_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_${NAME}_PACKAGE_DEPENDS
      "libnsdirectory${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
    string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
      ", ${package} (= ${PROJECT_VERSION})")
    list(APPEND CPACK_COMPONENTS_ALL ${name})
  endif()
endforeach()
set(CPACK_COMPONENT_SEARCH_DESCRIPTION
  "The companion that finds contacts by words, parts of numbers and the keys of a telephone.")
set(CPACK_COMPONENT_NUMBER_SEARCH_DESCRIPTION
  "The companion that finds contacts by a number, however it is written.")
# What static libraries of companions are linked with besides.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libunistring-dev, libphonenumber-dev")
include(CPack)
