# SPDX-License-Identifier: Apache-2.0
# camera_add_component_module(<target>
#   SOURCES <file>...        the module's own sources: the factory
#   LIBS <target>...         static libraries it is made of
#   EXPORTS <file>           linker version script that names what the module exports
# )
#
# Makes <target>.so, without a prefix, to be loaded with dlopen. The version script alone decides what
# is visible, so whatever the static libraries bring, Thrift's core among it, stays inside. The module
# must name every library it needs, and must leave the process when it is closed.
#
#   camera_add_component_module(CameraLibrary
#     SOURCES factory.cpp
#     LIBS camera_component
#     EXPORTS ${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
function(camera_add_component_module target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORTS" "SOURCES;LIBS")
  if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES OR NOT arg_EXPORTS)
    message(FATAL_ERROR "camera_add_component_module(${target}): wants SOURCES and EXPORTS,"
      " and knows nothing of '${arg_UNPARSED_ARGUMENTS}'")
  endif()
  cmake_path(ABSOLUTE_PATH arg_EXPORTS BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})

  add_library(${target} MODULE ${arg_SOURCES})
  camera_target_defaults(${target})
  target_link_libraries(${target} PRIVATE ${arg_LIBS})
  set_target_properties(${target} PROPERTIES PREFIX "" SUFFIX ".so" LINK_DEPENDS ${arg_EXPORTS})
  target_link_options(${target} PRIVATE
    -Wl,--version-script=${arg_EXPORTS} -Wl,-soname,${target}.so -Wl,--as-needed -Wl,--no-undefined-version)
  if(NOT CAMERA_SANITIZERS)
    # Under a sanitizer the program brings the runtime that the module calls.
    target_link_options(${target} PRIVATE -Wl,-z,defs)
  endif()
endfunction()
