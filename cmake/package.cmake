# What `find_package(lakresvos)` and pkg-config find after an installation.
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/lakresvos)
configure_package_config_file(cmake/lakresvosConfig.cmake.in lakresvosConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
# Until 1.0 every minor version may break what was built for another.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatibility SameMinorVersion)
else()
  set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file(lakresvosConfigVersion.cmake COMPATIBILITY ${compatibility})

install(EXPORT lakresvosTargets NAMESPACE lakresvos:: DESTINATION ${package_dir})
install(FILES ${PROJECT_BINARY_DIR}/lakresvosConfig.cmake
              ${PROJECT_BINARY_DIR}/lakresvosConfigVersion.cmake
        DESTINATION ${package_dir})

# lakresvos_pkg_config(NAME LIBRARY DESCRIPTION ... [REQUIRES ...]): what pkg-config finds as NAME. The
# paths in it follow its own place, because the prefix may be chosen as late as at the installation.
function(lakresvos_pkg_config name library)
  cmake_parse_arguments(PARSE_ARGV 2 pc "" "DESCRIPTION" "REQUIRES")
  set(pc_NAME ${name})
  set(pc_LIBRARY ${library})
  list(JOIN pc_REQUIRES ", " pc_REQUIRES)
  set(folder ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
  file(RELATIVE_PATH pc_prefix ${folder} ${CMAKE_INSTALL_PREFIX})
  file(RELATIVE_PATH pc_include ${folder} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
  configure_file(cmake/lakresvos.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

set(platform_packages "")
if(TARGET lakresvos_cells)
  lakresvos_pkg_config(lakresvos-cells lakresvos_cells DESCRIPTION "The cells of lakresvos documents")
  list(APPEND platform_packages lakresvos-cells)
endif()
if(TARGET lakresvos_codepage)
  lakresvos_pkg_config(lakresvos-codepage lakresvos_codepage
                       DESCRIPTION "Conversion of UTF-8 to other code pages")
  list(APPEND platform_packages lakresvos-codepage)
endif()
lakresvos_pkg_config(lakresvos lakresvos DESCRIPTION "${PROJECT_DESCRIPTION}"
                     REQUIRES ${platform_packages})
if(TARGET lakresvos_render)
  lakresvos_pkg_config(lakresvos-render lakresvos_render
                       DESCRIPTION "Renderers for lakresvos documents" REQUIRES lakresvos)
  lakresvos_pkg_config(lakresvos-tabulate lakresvos_tabulate
                       DESCRIPTION "Tabulation of data into lakresvos pivot tables" REQUIRES lakresvos)
endif()
