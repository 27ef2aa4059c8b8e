# What `find_package(lakresvos)` and pkg-config find after an installation.
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/lakresvos)
configure_package_config_file(cmake/lakresvosConfig.cmake.in lakresvosConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(lakresvosConfigVersion.cmake COMPATIBILITY SameMajorVersion)
configure_file(cmake/lakresvos.pc.in lakresvos.pc @ONLY)
configure_file(cmake/lakresvos-render.pc.in lakresvos-render.pc @ONLY)

install(EXPORT lakresvosTargets NAMESPACE lakresvos:: DESTINATION ${package_dir})
install(FILES ${PROJECT_BINARY_DIR}/lakresvosConfig.cmake
              ${PROJECT_BINARY_DIR}/lakresvosConfigVersion.cmake
        DESTINATION ${package_dir})
install(FILES ${PROJECT_BINARY_DIR}/lakresvos.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(TARGET lakresvos_render)
  install(FILES ${PROJECT_BINARY_DIR}/lakresvos-render.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()
