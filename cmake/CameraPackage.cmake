# SPDX-License-Identifier: Apache-2.0
# The package of the whole, for cpack: a .deb that apt installs and removes. scripts/package makes and tries it.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME camera-component)
set(CPACK_PACKAGE_VENDOR camera)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "camera component for 3D viewers, loaded at run time")
set(CPACK_PACKAGE_DESCRIPTION
"The camera that a 3D viewer loads instead of writing its own: a module with one
exported function, and a stateless service that places and turns a view, shapes
a projection, maps it onto a window, and navigates.

The package holds the module, what a host compiles against for C++, the
interface description for other languages, packages for CMake and pkg-config,
and the program camera, which shows what the module does.")

# Who packages it and when: whoever made the last change.
set(_camera_package_date "")
find_package(Git QUIET)
if(GIT_FOUND AND EXISTS ${PROJECT_SOURCE_DIR}/.git)
  execute_process(
    COMMAND ${GIT_EXECUTABLE} log -1 "--format=%an <%ae>;%cD"
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_VARIABLE _camera_last_change ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(_camera_last_change)
    list(GET _camera_last_change 0 CPACK_DEBIAN_PACKAGE_MAINTAINER)
    list(GET _camera_last_change 1 _camera_package_date)
  endif()
endif()
if(NOT _camera_package_date)
  set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The camera component's maintainers <maintainers@localhost>")
  string(TIMESTAMP _camera_package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
endif()
if(CAMERA_PACKAGE_MAINTAINER)
  set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CAMERA_PACKAGE_MAINTAINER}")
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# To compile a host, and for the program's pictures: none of them is needed to load the module.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libboost-dev")
if(NOT CAMERA_INSTALL_THRIFT)
  string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", libthrift-dev")
endif()
if(TARGET camera)
  string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", libegl1, libgl1-mesa-dri")
endif()

# What Debian wants of every package beside its files.
set(_camera_debian ${PROJECT_BINARY_DIR}/packaging/debian)
file(CONFIGURE OUTPUT ${_camera_debian}/changelog @ONLY CONTENT
"@CPACK_PACKAGE_NAME@ (@PROJECT_VERSION@) unstable; urgency=medium

  * The component as of this change of its source tree.

 -- @CPACK_DEBIAN_PACKAGE_MAINTAINER@  @_camera_package_date@
")
file(MAKE_DIRECTORY ${_camera_debian}/doc)
# Without the time of packing, so that the same sources give the same file.
execute_process(COMMAND gzip -9nc
  INPUT_FILE ${_camera_debian}/changelog OUTPUT_FILE ${_camera_debian}/doc/changelog.gz)
configure_file(${PROJECT_SOURCE_DIR}/packaging/debian/copyright ${_camera_debian}/doc/copyright COPYONLY)
set(CPACK_INSTALLED_DIRECTORIES ${_camera_debian}/doc usr/${CAMERA_INSTALL_DOCDIR})

include(CPack)
