# SPDX-License-Identifier: Apache-2.0
# A port for vcpkg that builds this tree, to be named with --overlay-ports. It is made here because it must state the
# version.
set(CAMERA_VCPKG_PORT ${PROJECT_BINARY_DIR}/packaging/vcpkg/camera-component)
foreach(_camera_file IN ITEMS vcpkg.json portfile.cmake)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/vcpkg/${_camera_file}.in ${CAMERA_VCPKG_PORT}/${_camera_file} @ONLY)
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/packaging/vcpkg/usage ${CAMERA_VCPKG_PORT}/usage COPYONLY)
