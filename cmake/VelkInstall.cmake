# Installs the library with its header, a package for find_package(velk 0.52) and a pkg-config file. Both find
# their way from where they lie, so an installed tree may be moved.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/velk)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS velk EXPORT velkTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/include/velk DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT velkTargets NAMESPACE velk:: DESTINATION ${package_dir})

configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/velkConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/velkConfig.cmake
    INSTALL_DESTINATION ${package_dir}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/velkConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/velkConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/velkConfigVersion.cmake
    DESTINATION ${package_dir})

file(RELATIVE_PATH velk_pc_to_prefix /prefix/${pkgconfig_dir} /prefix)
string(REGEX REPLACE "/$" "" velk_pc_to_prefix ${velk_pc_to_prefix})
configure_file(${PROJECT_SOURCE_DIR}/cmake/velk.pc.in ${CMAKE_CURRENT_BINARY_DIR}/velk.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/velk.pc DESTINATION ${pkgconfig_dir})
