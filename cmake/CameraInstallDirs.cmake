# SPDX-License-Identifier: Apache-2.0
# Where cmake --install puts things below the prefix. What others could have files of the same name of goes into folders
# that carry the package's name.

include(GNUInstallDirs)

# The module is loaded by its path and never linked, so it has no place among the libraries that the linker searches.
set(CAMERA_INSTALL_MODULEDIR ${CMAKE_INSTALL_LIBDIR}/camera-component)
# A Thrift that is installed with the package must not be taken for the system's.
set(CAMERA_INSTALL_THRIFTDIR ${CMAKE_INSTALL_LIBDIR}/camera-component/thrift)
set(CAMERA_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/CameraComponent)
set(CAMERA_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(CAMERA_INSTALL_DATADIR ${CMAKE_INSTALL_DATADIR}/camera-component)
set(CAMERA_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/camera-component)

# How the program gets from its own folder to the module's.
cmake_path(ABSOLUTE_PATH CAMERA_INSTALL_MODULEDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
  OUTPUT_VARIABLE CAMERA_INSTALL_MODULE_FROM_PROGRAM)
cmake_path(RELATIVE_PATH CAMERA_INSTALL_MODULE_FROM_PROGRAM BASE_DIRECTORY ${CMAKE_INSTALL_FULL_BINDIR})
