# What an installation holds. debian/ divides it into packages.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/nsdirectory)
set(CONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/nsdirectory)
set(PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(PRINTER_DIR ${CMAKE_INSTALL_DATADIR}/nsdirectory/gdb)
set(GENERATED_DIR ${CMAKE_CURRENT_BINARY_DIR}/install)

# The libraries and their headers.
set(INSTALLED_LIBRARIES nsdirectory nsdirectory_platform_host)
if(NSDIRECTORY_SHARED)
  list(APPEND INSTALLED_LIBRARIES nsdirectory_static)
endif()
set_target_properties(nsdirectory_platform_host PROPERTIES EXPORT_NAME platform_host)
install(TARGETS ${INSTALLED_LIBRARIES} EXPORT nsdirectory-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${HEADER_DIR})
install(FILES
  directory/contact_local_manager.h
  directory/contact_records.h
  directory/data_files.h
  directory/export.h
  directory/id_generator.h
  directory/string_convert.h
  DESTINATION ${HEADER_DIR}/directory)
install(FILES include/qzstl/list_like include/qzstl/string_like
  DESTINATION ${HEADER_DIR}/qzstl)
install(FILES platform/device_services.h
  DESTINATION ${HEADER_DIR}/platform)

# The companions and their headers.
get_property(COMPANIONS GLOBAL PROPERTY NSDIRECTORY_COMPANIONS)
foreach(name ${COMPANIONS})
  get_target_property(headers nsdirectory_${name} COMPANION_HEADERS)
  set(libraries nsdirectory_${name})
  if(NSDIRECTORY_SHARED)
    list(APPEND libraries nsdirectory_${name}_static)
  endif()
  install(TARGETS ${libraries} EXPORT nsdirectory-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  foreach(header ${headers})
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${header} DESTINATION ${HEADER_DIR}/${folder})
  endforeach()
endforeach()

# For find_package.
configure_package_config_file(cmake/nsdirectory-config.cmake.in
  ${GENERATED_DIR}/nsdirectory-config.cmake INSTALL_DESTINATION ${CONFIG_DIR})
write_basic_package_version_file(${GENERATED_DIR}/nsdirectory-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${GENERATED_DIR}/nsdirectory-config.cmake ${GENERATED_DIR}/nsdirectory-config-version.cmake
  DESTINATION ${CONFIG_DIR})
install(EXPORT nsdirectory-targets NAMESPACE nsdirectory::
  DESTINATION ${CONFIG_DIR})

# For pkg-config. The files find the prefix by their own place.
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
  install(FILES ${GENERATED_DIR}/${name}.pc DESTINATION ${PKGCONFIG_DIR})
endforeach()

# For gdb, which loads a script from the path of the shared object that it was made for.
install(FILES tools/gdb/nsdirectory_printers.py DESTINATION ${PRINTER_DIR})
if(NSDIRECTORY_SHARED)
  set(AUTO_LOAD_DIR ${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR})
  cmake_path(RELATIVE_PATH PRINTER_DIR
    BASE_DIRECTORY ${AUTO_LOAD_DIR} OUTPUT_VARIABLE PRINTERS_FROM_AUTO_LOAD)
  configure_file(tools/gdb/auto_load.py.in ${GENERATED_DIR}/auto_load.py @ONLY)
  install(FILES ${GENERATED_DIR}/auto_load.py DESTINATION ${AUTO_LOAD_DIR}
    RENAME libnsdirectory.so.${PROJECT_VERSION}-gdb.py)
endif()
