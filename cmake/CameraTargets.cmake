# SPDX-License-Identifier: Apache-2.0
# camera_target_defaults(<target>)
#
# What every target of ours is compiled with. A header-only target passes on the language level alone:
# its users bring the flags.
function(camera_target_defaults target)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    target_compile_features(${target} INTERFACE cxx_std_20)
    return()
  endif()

  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD 20
    CXX_STANDARD_REQUIRED ON
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)

  # Results must not depend on whether the machine can fuse a multiplication with an addition.
  target_compile_options(${target} PRIVATE -ffp-contract=off)
  # Nobody reads errno after a square root; keeping it costs a branch by each.
  target_compile_options(${target} PRIVATE -fno-math-errno)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow)
  if(CAMERA_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A module that holds a symbol unique to the process can never be unloaded.
    target_compile_options(${target} PRIVATE -fno-gnu-unique)
  endif()
endfunction()

# camera_compile_together(<target>)
#
# Lets the compiler read the target's sources eight at a time, where CAMERA_UNITY_BUILD says so: for sources that spend
# most of their time on the same headers and templates. Without it each stands by itself.
function(camera_compile_together target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${CAMERA_UNITY_BUILD})
endfunction()
