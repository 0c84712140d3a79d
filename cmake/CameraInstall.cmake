# SPDX-License-Identifier: Apache-2.0
# What cmake --install lays down: the module, the program where it is built, what a host compiles against, and the pages.
# Everything finds the rest by relative paths, so the prefix may be moved afterwards.

include(CMakePackageConfigHelpers)

# A host must compile and link with the very Thrift that the records were compiled with. Where that is the private copy
# made by scripts/setup, nobody else can have it: it goes along, headers and library. Any other Thrift is expected on
# the machine of whoever uses the package.
set(_camera_thrift_private "${PROJECT_SOURCE_DIR}/.deps/thrift")
cmake_path(IS_PREFIX _camera_thrift_private "${CAMERA_THRIFT_LOCATION}" NORMALIZE CAMERA_INSTALL_THRIFT)
if(CAMERA_THRIFT_SYSTEM_ONLY)
  set(CAMERA_INSTALL_THRIFT OFF)
endif()
if(CAMERA_INSTALL_THRIFT)
  cmake_path(GET CAMERA_THRIFT_LOCATION FILENAME CAMERA_THRIFT_FILE)
  install(DIRECTORY ${_camera_thrift_private}/include/thrift
    DESTINATION ${CAMERA_INSTALL_THRIFTDIR}/include FILES_MATCHING PATTERN *.h PATTERN *.tcc
    PATTERN windows EXCLUDE PATTERN qt EXCLUDE)
  install(FILES ${CAMERA_THRIFT_LOCATION} DESTINATION ${CAMERA_INSTALL_THRIFTDIR}/lib)
  install(FILES ${_camera_thrift_private}/LICENSE ${_camera_thrift_private}/NOTICE
    DESTINATION ${CAMERA_INSTALL_THRIFTDIR})
endif()

# The targets, by the names that a project around this one knows them by as well.
set_target_properties(camera_records PROPERTIES EXPORT_NAME Interface)
set_target_properties(camera_interface PROPERTIES EXPORT_NAME Headers)
set_target_properties(camera_host PROPERTIES EXPORT_NAME Host)
install(TARGETS camera_interface camera_records camera_host EXPORT CameraComponentTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS CameraLibrary EXPORT CameraComponentTargets
  LIBRARY DESTINATION ${CAMERA_INSTALL_MODULEDIR})
install(EXPORT CameraComponentTargets NAMESPACE CameraComponent:: DESTINATION ${CAMERA_INSTALL_CMAKEDIR})

if(TARGET camera)
  install(TARGETS camera RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/host/program/completion/camera.bash RENAME camera
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  # Something to try it with.
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/models DESTINATION ${CAMERA_INSTALL_DATADIR})
endif()

install(DIRECTORY ${PROJECT_SOURCE_DIR}/interface/qel ${PROJECT_SOURCE_DIR}/host/include/qel
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN *.h)
install(FILES ${PROJECT_SOURCE_DIR}/interface/base.thrift ${PROJECT_SOURCE_DIR}/interface/camera.thrift
  DESTINATION ${CAMERA_INSTALL_DATADIR}/thrift)

# The pages and the examples that they show, as they stand in the tree.
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CAMERA_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CAMERA_INSTALL_DOCDIR}
  PATTERN examples/CMakeLists.txt EXCLUDE) # it is part of this tree
# Their links to headers lead to the installed ones.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_INCLUDEDIR
  BASE_DIRECTORY ${CMAKE_INSTALL_FULL_DATAROOTDIR}/doc/camera-component OUTPUT_VARIABLE _camera_headers_from_pages)
install(CODE "
  set(headers \"${_camera_headers_from_pages}\")
  set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CAMERA_INSTALL_DOCDIR}\")")
install(CODE [[
  file(GLOB pages "${folder}/README.md" "${folder}/docs/*.md")
  foreach(page IN LISTS pages)
    file(READ "${page}" text)
    string(REGEX REPLACE "\\]\\(((\\.\\./)*)(interface|host/include)/qel/" "](\\1${headers}/qel/" text "${text}")
    file(WRITE "${page}" "${text}")
  endforeach()
]])

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/packaging/CameraComponentConfig.cmake.in
  ${PROJECT_BINARY_DIR}/packaging/CameraComponentConfig.cmake
  INSTALL_DESTINATION ${CAMERA_INSTALL_CMAKEDIR}
  PATH_VARS CAMERA_INSTALL_THRIFTDIR CAMERA_INSTALL_DATADIR)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/packaging/CameraComponentConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/packaging/CameraComponentConfig.cmake
  ${PROJECT_BINARY_DIR}/packaging/CameraComponentConfigVersion.cmake
  DESTINATION ${CAMERA_INSTALL_CMAKEDIR})

# pkg-config's file says everything by its distance from itself.
set(_camera_pkgconfig_folder /prefix/${CAMERA_INSTALL_PKGCONFIGDIR})
set(CAMERA_PKGCONFIG_PREFIX /prefix)
cmake_path(RELATIVE_PATH CAMERA_PKGCONFIG_PREFIX BASE_DIRECTORY ${_camera_pkgconfig_folder})
if(CAMERA_INSTALL_THRIFT)
  set(CAMERA_PKGCONFIG_REQUIRES "")
  set(CAMERA_PKGCONFIG_THRIFT_FLAGS " -isystem \${thriftdir}/include")
  set(CAMERA_PKGCONFIG_THRIFT_LIBS " \${thriftdir}/lib/${CAMERA_THRIFT_FILE}")
else()
  set(CAMERA_PKGCONFIG_REQUIRES "Requires: thrift\n")
  set(CAMERA_PKGCONFIG_THRIFT_FLAGS "")
  set(CAMERA_PKGCONFIG_THRIFT_LIBS "")
endif()
configure_file(
  ${PROJECT_SOURCE_DIR}/packaging/camera-component.pc.in
  ${PROJECT_BINARY_DIR}/packaging/camera-component.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/packaging/camera-component.pc DESTINATION ${CAMERA_INSTALL_PKGCONFIGDIR})
