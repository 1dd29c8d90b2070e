# SPDX-License-Identifier: MIT
# Installs the targets with their headers under one include root, and the package files that find_package(Kova) reads.
include(CMakePackageConfigHelpers)

set(KOVA_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/Kova")
set(kova_header_rooms environment)
if(TARGET Visualization)
  list(APPEND kova_header_rooms visualization)
endif()
if(TARGET KovaCFrontend)
  list(APPEND kova_header_rooms frontends)
endif()
foreach(room IN LISTS kova_header_rooms)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/${room}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/kova"
          FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
endforeach()
if(TARGET Visualization)
  install(FILES "${PROJECT_BINARY_DIR}/include/visualization/VisualizationExport.h"
          DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/kova/visualization")
endif()

set(kova_libraries KovaEnvironment)
foreach(library Visualization KovaCFrontend)
  if(TARGET ${library})
    list(APPEND kova_libraries ${library})
  endif()
endforeach()
install(TARGETS ${kova_libraries} EXPORT KovaTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
if(TARGET kova-shell)
  install(TARGETS kova-shell RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
install(EXPORT KovaTargets NAMESPACE Kova:: DESTINATION "${KOVA_PACKAGE_DIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KovaConfig.cmake.in"
                              "${PROJECT_BINARY_DIR}/KovaConfig.cmake" INSTALL_DESTINATION "${KOVA_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KovaConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/KovaConfig.cmake" "${PROJECT_BINARY_DIR}/KovaConfigVersion.cmake"
        DESTINATION "${KOVA_PACKAGE_DIR}")
