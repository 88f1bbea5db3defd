# The SDK that "cmake --install" lays out for Windows hosts: the DLLs and the MinGW runtime
# in bin/, import libraries and KelAfxMain in lib/, the public headers in include/, and the
# package configuration that find_package(KelControls) reads in lib/cmake/KelControls/.
# The layer, the companion and the frame install their own targets and headers.
include(CMakePackageConfigHelpers)

set(KEL_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KelControls)

install(TARGETS KelControls EXPORT KelControlsTargets)
install(FILES KelControls.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT KelControlsTargets NAMESPACE KelControls:: DESTINATION ${KEL_PACKAGE_DIR})

configure_package_config_file(cmake/KelControlsConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/KelControlsConfig.cmake
  INSTALL_DESTINATION ${KEL_PACKAGE_DIR}
  PATH_VARS CMAKE_INSTALL_BINDIR)
# Before 1.0 a minor version may change the interface. The file also refuses a host of the
# other pointer size.
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/KelControlsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/KelControlsConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/KelControlsConfigVersion.cmake
  DESTINATION ${KEL_PACKAGE_DIR})
