# SPDX-License-Identifier: MIT
# Installs the libraries with their headers, and what find_package(cardtable) needs.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(header_root "${CMAKE_INSTALL_INCLUDEDIR}/cardtable")
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/cardtable")

foreach(library orvane cardtable)
  target_include_directories(${library} PUBLIC $<INSTALL_INTERFACE:${header_root}>)
  set_target_properties(${library} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endforeach()
set_target_properties(cardtable PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS orvane cardtable EXPORT cardtable)
install(EXPORT cardtable NAMESPACE cardtable:: FILE cardtableConfig.cmake DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/cardtableConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/cardtableConfigVersion.cmake" DESTINATION "${package_folder}")

# The kit is static: what a game uses of it becomes a part of the game.
target_include_directories(cardkit PUBLIC $<INSTALL_INTERFACE:${header_root}>)
install(TARGETS cardkit EXPORT cardtable)

# What the umbrella header reaches, the host's declarations, and the two headers of its start-up.
foreach(folder host geometry animation scene cardtable kit)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/${folder}" DESTINATION "${header_root}" FILES_MATCHING PATTERN "*.h")
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/orvane/orvane.h" "${PROJECT_SOURCE_DIR}/orvane/png_file.h"
        DESTINATION "${header_root}/orvane")

# The window is there when SDL2 is.
if(TARGET orvane_window)
  target_include_directories(orvane_window PUBLIC $<INSTALL_INTERFACE:${header_root}>)
  set_target_properties(orvane_window PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                                                 INSTALL_RPATH "$ORIGIN")
  install(TARGETS orvane_window EXPORT cardtable)
  foreach(header events export frame_clock loop pixel_scale program window)
    install(FILES "${PROJECT_SOURCE_DIR}/orvane/window/${header}.h" DESTINATION "${header_root}/orvane/window")
  endforeach()
endif()
