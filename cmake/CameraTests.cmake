# SPDX-License-Identifier: Apache-2.0
find_package(GTest REQUIRED)
include(GoogleTest)

# Tests that put their own operator new into the program. The thread sanitizer's runtime is linked into a program with
# one of its own, so they are left out there: they use one thread each.
set(CAMERA_TESTS_REPLACE_OPERATOR_NEW ON)
if("thread" IN_LIST CAMERA_SANITIZERS)
  set(CAMERA_TESTS_REPLACE_OPERATOR_NEW OFF)
  message(STATUS "Left out under the thread sanitizer: the tests of memory, which replace operator new")
endif()

# camera_test_defaults(<target>)
#
# What test code is compiled with beside the defaults of every target. It is not optimised: most of it calls each
# operation or treats each kind of record once, and an optimiser takes three times as long over it as over all that it
# tests, which keeps the flags of the build.
function(camera_test_defaults target)
  camera_target_defaults(${target})
  target_compile_options(${target} PRIVATE -O0)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
endfunction()

# What most tests include is read once for all sources with the same flags, as that takes half of a source's time. Where
# CMAKE_DISABLE_PRECOMPILE_HEADERS is set, as by the presets debug and lint, each source stands on its own includes.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/tests/headers.cpp CONTENT "int main() {}\n")
foreach(_target IN ITEMS camera_test_headers camera_optimised_test_headers)
  add_executable(${_target} EXCLUDE_FROM_ALL ${PROJECT_BINARY_DIR}/tests/headers.cpp)
  target_link_libraries(${_target} PRIVATE GTest::gmock GTest::gtest)
  target_precompile_headers(${_target} PRIVATE
    <algorithm> <array> <cmath> <filesystem> <fstream> <functional> <limits> <memory> <optional> <sstream> <string>
    <string_view> <tuple> <utility> <vector> <gmock/gmock.h> <gtest/gtest.h>)
endforeach()
camera_test_defaults(camera_test_headers)
target_link_libraries(camera_test_headers PRIVATE camera_interface)
target_precompile_headers(camera_test_headers PRIVATE <qel/api/camera/CameraAPIIf.h> <qel/api/camera/Operations.h>)
camera_target_defaults(camera_optimised_test_headers)

# camera_add_test(<name>
#   SOURCES <file>...        the test's sources
#   LIBS <target>...         what it tests; gtest, gmock and a main come with it
#   [TIMEOUT <seconds>]      for one test, 60 where nothing is said
#   [ENVIRONMENT <A=b>...]   for every test
#   [OPTIMISED]              compiled as the build says: where what is tested stands in headers, or runs long
# )
#
# Makes the program <name> and registers each of its tests with ctest as <name>:<Suite>.<Test>.
function(camera_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "OPTIMISED" "TIMEOUT" "SOURCES;LIBS;ENVIRONMENT")
  if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES)
    message(FATAL_ERROR "camera_add_test(${name}): wants SOURCES,"
      " and knows nothing of '${arg_UNPARSED_ARGUMENTS}'")
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  if(CMAKE_CROSSCOMPILING) # by an emulator
    math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 10")
  elseif(CAMERA_SANITIZERS)
    math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 5")
  endif()

  add_executable(${name} ${arg_SOURCES})
  if(arg_OPTIMISED)
    camera_target_defaults(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_precompile_headers(${name} REUSE_FROM camera_optimised_test_headers)
  else()
    camera_test_defaults(${name})
    target_precompile_headers(${name} REUSE_FROM camera_test_headers)
  endif()
  target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gmock GTest::gtest GTest::gtest_main)

  set(properties TIMEOUT ${arg_TIMEOUT})
  if(arg_ENVIRONMENT)
    list(APPEND properties ENVIRONMENT "${arg_ENVIRONMENT}")
  endif()
  gtest_discover_tests(${name}
    TEST_PREFIX "${name}:"
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 120
    PROPERTIES ${properties})
endfunction()
