# What is installed: libraries, public headers, the CMake package and the pkg-config modules.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/HwRailSeq)

install(TARGETS zol HwModels HwRailSeq faults EXPORT HwRailSeqTargets LIBRARY)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/src/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/hwrailseq
  FILES_MATCHING
  PATTERN "*.h"
  PATTERN "*.def")
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

install(
  EXPORT HwRailSeqTargets
  NAMESPACE HwRailSeq::
  DESTINATION ${package_dir})
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/HwRailSeqConfig.cmake.in ${PROJECT_BINARY_DIR}/HwRailSeqConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/HwRailSeqConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/HwRailSeqConfig.cmake
              ${PROJECT_BINARY_DIR}/HwRailSeqConfigVersion.cmake DESTINATION ${package_dir})

# The modules find their prefix from their own place, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
foreach(module hwrailseq hwrailseq-faults)
  configure_file(${PROJECT_SOURCE_DIR}/${module}.pc.in ${PROJECT_BINARY_DIR}/${module}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${module}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
