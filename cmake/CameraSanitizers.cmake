# SPDX-License-Identifier: Apache-2.0
# Turns CAMERA_SANITIZERS into flags for everything that is built: a program and the modules it loads
# must agree on them.

if(CAMERA_SANITIZERS)
  list(JOIN CAMERA_SANITIZERS "," _camera_sanitizers)
  set(_camera_sanitizer_flags -fsanitize=${_camera_sanitizers} -fno-sanitize-recover=all)
  if("undefined" IN_LIST CAMERA_SANITIZERS)
    # A float that does not fit its integer is undefined too, yet not in the group.
    list(APPEND _camera_sanitizer_flags -fsanitize=float-cast-overflow)
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
      # A division of floats by zero is defined by IEC 60559, and an error but where it is meant.
      list(APPEND _camera_sanitizer_flags -fsanitize=float-divide-by-zero
        -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/MeantDivisions.txt)
    endif()
  endif()
  add_compile_options(${_camera_sanitizer_flags} -fno-omit-frame-pointer)
  add_link_options(${_camera_sanitizer_flags})
endif()
