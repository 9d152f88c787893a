# What `cmake --install` puts into place: the libraries, the headers that hosts include, the
# command, the pictures of the buttons, and the package that find_package(zk_curve_editor) finds.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zk_curve_editor)
install(TARGETS zk_curve_core zk_curve_files zk_curve_editor EXPORT zk_curve_editor-targets
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zk_curve_editor)
install(EXPORT zk_curve_editor-targets NAMESPACE zk:: DESTINATION ${package_dir})

if(TARGET zk-curve)
    install(TARGETS zk-curve)
    install(FILES docs/zk-curve.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()

set(ICONS_DIR ${CMAKE_INSTALL_DATADIR}/zk_curve_editor/icons)
install(DIRECTORY icons/ DESTINATION ${ICONS_DIR} FILES_MATCHING PATTERN *.png PATTERN svg EXCLUDE)

configure_package_config_file(cmake/zk_curve_editor-config.cmake.in zk_curve_editor-config.cmake
    INSTALL_DESTINATION ${package_dir} PATH_VARS ICONS_DIR)
write_basic_package_version_file(zk_curve_editor-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
        ${CMAKE_CURRENT_BINARY_DIR}/zk_curve_editor-config.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/zk_curve_editor-config-version.cmake
    DESTINATION ${package_dir})
