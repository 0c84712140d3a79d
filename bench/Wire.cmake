# SPDX-License-Identifier: Apache-2.0
# Reading and writing records beside the code that Thrift's compiler generates from the same description, under
# another namespace; where that compiler is.
if(NOT CAMERA_THRIFT_COMPILER)
  message(STATUS "No Thrift compiler, so no generated code to measure beside; scripts/bench builds one")
  return()
endif()

# Generated while configuring: what only reads the sources, a linter, finds the headers without a build.
set(_generated ${CMAKE_CURRENT_BINARY_DIR}/generated)
foreach(_name base camera)
  set(_description ${PROJECT_SOURCE_DIR}/interface/${_name}.thrift)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_description})
  file(READ ${_description} _text)
  string(REPLACE "namespace cpp qel.api" "namespace cpp qel.generated" _text "${_text}")
  file(WRITE ${_generated}/${_name}.thrift "${_text}")
endforeach()
execute_process(
  COMMAND ${CAMERA_THRIFT_COMPILER} -r -gen cpp:no_skeleton -out ${_generated} ${_generated}/camera.thrift
  COMMAND_ERROR_IS_FATAL ANY)

add_library(camera_generated STATIC ${_generated}/base_types.cpp ${_generated}/camera_types.cpp)
target_include_directories(camera_generated SYSTEM PUBLIC ${_generated})
target_link_libraries(camera_generated PUBLIC camera::thrift)
target_compile_features(camera_generated PUBLIC cxx_std_20)

target_sources(camera_bench PRIVATE Wire.cpp)
target_link_libraries(camera_bench PRIVATE camera_generated)
target_compile_definitions(camera_bench PRIVATE CAMERA_BENCH_WIRE)
