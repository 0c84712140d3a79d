# SPDX-License-Identifier: Apache-2.0
find_package(GTest REQUIRED)
include(GoogleTest)

# camera_add_test(<name>
#   SOURCES <file>...        the test's sources
#   LIBS <target>...         what it tests; gtest, gmock and a main come with it
#   [TIMEOUT <seconds>]      for one test, 60 where nothing is said
#   [ENVIRONMENT <A=b>...]   for every test
# )
#
# Makes the program <name> and registers each of its tests with ctest as <name>:<Suite>.<Test>.
function(camera_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LIBS;ENVIRONMENT")
  if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES)
    message(FATAL_ERROR "camera_add_test(${name}): wants SOURCES,"
      " and knows nothing of '${arg_UNPARSED_ARGUMENTS}'")
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  if(CAMERA_SANITIZERS)
    math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 5")
  endif()

  add_executable(${name} ${arg_SOURCES})
  camera_target_defaults(${name})
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
