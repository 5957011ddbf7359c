# find_package(mossHarbour.ui CONFIG) gives the target mossHarbour::ui.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/mossHarbour.ui")

install(TARGETS mossHarbour.ui EXPORT mossHarbour.uiTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
if(MOSSHARBOUR_RUNTIME_DLLS)
    install(FILES ${MOSSHARBOUR_RUNTIME_DLLS} DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()

install(EXPORT mossHarbour.uiTargets NAMESPACE mossHarbour::
    DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/mossHarbour.uiConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES cmake/mossHarbour.uiConfig.cmake "${PROJECT_BINARY_DIR}/mossHarbour.uiConfigVersion.cmake"
    DESTINATION "${package_folder}")
