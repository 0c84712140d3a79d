# SPDX-License-Identifier: Apache-2.0
# Finds an Apache Thrift C++ library that is new enough and offers it as camera::thrift.
#
# New enough is what compiles and links, not a version number: the protocol interface must know the uuid
# type, and the library must fit into a shared module. Looked at in this order: a CMake package (in
# CMAKE_PREFIX_PATH, the prefix made by scripts/setup, the system), then what pkg-config names, the
# static library before the shared one.
#
# CAMERA_THRIFT_COMPILER is Thrift's compiler where there is one that goes with it, and
# CAMERA_THRIFT_PYTHON_PATH the folder of its Python library; both are for the tests, made by
# `scripts/setup test`.
#
# CAMERA_THRIFT_SHARED says afterwards whether a module linked with it needs Thrift's shared library.

include(CheckCXXSourceCompiles)

set(_camera_thrift_prefix "${CMAKE_CURRENT_LIST_DIR}/../.deps/thrift")
cmake_path(NORMAL_PATH _camera_thrift_prefix)

# Sets <result> to whether a shared module can use the uuid type through <target>.
function(_camera_thrift_suits target result)
  get_target_property(directories ${target} INTERFACE_INCLUDE_DIRECTORIES)
  get_target_property(location ${target} LOCATION)
  string(SHA256 key "${CMAKE_CXX_COMPILER};${directories};${location};${CAMERA_BOOST_INCLUDE_DIR}")
  string(SUBSTRING ${key} 0 12 key)
  set(CMAKE_REQUIRED_LIBRARIES ${target})
  set(CMAKE_REQUIRED_INCLUDES ${CAMERA_BOOST_INCLUDE_DIR})
  set(CMAKE_REQUIRED_FLAGS "-std=c++20 -fPIC")
  set(CMAKE_REQUIRED_LINK_OPTIONS -shared -Wl,-z,defs)
  set(CMAKE_REQUIRED_QUIET ON)
  check_cxx_source_compiles([[
    #include <memory>
    #include <thrift/TUuid.h>
    #include <thrift/protocol/TBinaryProtocol.h>
    #include <thrift/protocol/TJSONProtocol.h>
    #include <thrift/transport/TBufferTransports.h>
    unsigned readUuid(apache::thrift::protocol::TProtocol& protocol, apache::thrift::TUuid& id)
    { return protocol.readUUID(id); }
    unsigned readUuid(apache::thrift::TUuid& id)
    {
        auto buffer = std::make_shared<apache::thrift::transport::TMemoryBuffer>();
        apache::thrift::protocol::TBinaryProtocol binary(buffer);
        apache::thrift::protocol::TJSONProtocol text(buffer);
        return readUuid(binary, id) + readUuid(text, id);
    }
    int main() { apache::thrift::TUuid id; return static_cast<int>(readUuid(id)); }
    ]] _CAMERA_THRIFT_SUITS_${key})
  set(${result} ${_CAMERA_THRIFT_SUITS_${key}} PARENT_SCOPE)
  if(NOT _CAMERA_THRIFT_SUITS_${key})
    # Asked again next time: by then it may have been replaced.
    unset(_CAMERA_THRIFT_SUITS_${key} CACHE)
  endif()
endfunction()

set(CameraThrift_TARGET "")
set(_camera_thrift_rejected "")

# Thrift's headers include headers of Boost.
find_path(CAMERA_BOOST_INCLUDE_DIR boost/uuid/uuid.hpp)
mark_as_advanced(CAMERA_BOOST_INCLUDE_DIR)

if(CAMERA_BOOST_INCLUDE_DIR)
  block(PROPAGATE Thrift_FOUND Thrift_VERSION Thrift_DIR)
    if(NOT CAMERA_THRIFT_SYSTEM_ONLY)
      list(APPEND CMAKE_PREFIX_PATH "${_camera_thrift_prefix}")
    endif()
    find_package(Thrift CONFIG QUIET)
  endblock()
  mark_as_advanced(Thrift_DIR)
  if(Thrift_FOUND AND TARGET thrift::thrift)
    _camera_thrift_suits(thrift::thrift _camera_thrift_suitable)
    if(_camera_thrift_suitable)
      set(CameraThrift_TARGET thrift::thrift)
      set(CameraThrift_VERSION ${Thrift_VERSION})
    else()
      list(APPEND _camera_thrift_rejected "${Thrift_DIR} (version ${Thrift_VERSION})")
      unset(Thrift_DIR CACHE)
    endif()
  endif()

  if(NOT CameraThrift_TARGET)
    find_package(PkgConfig QUIET)
    if(PKG_CONFIG_FOUND)
      pkg_check_modules(CAMERA_THRIFT_PC QUIET thrift)
    endif()
    if(CAMERA_THRIFT_PC_FOUND)
      foreach(_camera_thrift_kind STATIC SHARED)
        set(_camera_thrift_name libthrift${CMAKE_${_camera_thrift_kind}_LIBRARY_SUFFIX})
        find_library(CAMERA_THRIFT_${_camera_thrift_kind}_LIBRARY NAMES ${_camera_thrift_name}
          HINTS ${CAMERA_THRIFT_PC_LIBRARY_DIRS} ${CAMERA_THRIFT_PC_LIBDIR})
        mark_as_advanced(CAMERA_THRIFT_${_camera_thrift_kind}_LIBRARY)
        if(CameraThrift_TARGET OR NOT CAMERA_THRIFT_${_camera_thrift_kind}_LIBRARY)
          continue()
        endif()
        set(_camera_thrift_candidate camera_thrift_${_camera_thrift_kind})
        add_library(${_camera_thrift_candidate} ${_camera_thrift_kind} IMPORTED)
        set_target_properties(${_camera_thrift_candidate} PROPERTIES
          IMPORTED_LOCATION "${CAMERA_THRIFT_${_camera_thrift_kind}_LIBRARY}"
          INTERFACE_INCLUDE_DIRECTORIES "${CAMERA_THRIFT_PC_INCLUDE_DIRS}"
          INTERFACE_COMPILE_OPTIONS "${CAMERA_THRIFT_PC_CFLAGS_OTHER}"
          INTERFACE_LINK_LIBRARIES pthread)
        _camera_thrift_suits(${_camera_thrift_candidate} _camera_thrift_suitable)
        if(_camera_thrift_suitable)
          set(CameraThrift_TARGET ${_camera_thrift_candidate})
          set(CameraThrift_VERSION ${CAMERA_THRIFT_PC_VERSION})
        else()
          list(APPEND _camera_thrift_rejected
            "${CAMERA_THRIFT_${_camera_thrift_kind}_LIBRARY} (version ${CAMERA_THRIFT_PC_VERSION})")
        endif()
      endforeach()
    endif()
  endif()
endif()

if(NOT CAMERA_BOOST_INCLUDE_DIR)
  set(_camera_thrift_reason
    "The headers of Boost, which Thrift's headers include, were not found: run scripts/setup.")
elseif(_camera_thrift_rejected)
  list(JOIN _camera_thrift_rejected ", " _camera_thrift_rejected)
  set(_camera_thrift_reason "Found ${_camera_thrift_rejected}, but its protocol interface lacks the"
    " uuid type or it does not link into a shared module: run scripts/setup, which builds one that"
    " serves.")
else()
  set(_camera_thrift_reason
    "Apache Thrift's C++ library was not found: run scripts/setup, which provides it.")
endif()
string(CONCAT _camera_thrift_reason ${_camera_thrift_reason})

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CameraThrift
  REQUIRED_VARS CameraThrift_TARGET CAMERA_BOOST_INCLUDE_DIR
  VERSION_VAR CameraThrift_VERSION
  REASON_FAILURE_MESSAGE "${_camera_thrift_reason}")

if(CameraThrift_FOUND AND NOT TARGET camera::thrift)
  get_target_property(CAMERA_THRIFT_LOCATION ${CameraThrift_TARGET} LOCATION)
  set(CAMERA_THRIFT_SHARED OFF)
  if(CAMERA_THRIFT_LOCATION MATCHES "\\.so(\\.[0-9.]+)?$")
    set(CAMERA_THRIFT_SHARED ON)
    message(STATUS "Thrift is there as a shared library only; what is built will need it: "
      "${CAMERA_THRIFT_LOCATION}")
  endif()
  add_library(camera::thrift INTERFACE IMPORTED)
  # An imported target's directories are searched as system ones, without our warnings.
  set_target_properties(camera::thrift PROPERTIES
    INTERFACE_LINK_LIBRARIES ${CameraThrift_TARGET}
    INTERFACE_INCLUDE_DIRECTORIES "${CAMERA_BOOST_INCLUDE_DIR}")
endif()

find_program(CAMERA_THRIFT_COMPILER thrift HINTS "${_camera_thrift_prefix}/bin")
find_path(CAMERA_THRIFT_PYTHON_PATH thrift/Thrift.py PATHS "${_camera_thrift_prefix}/share/thrift/python"
  NO_DEFAULT_PATH)
mark_as_advanced(CAMERA_THRIFT_COMPILER CAMERA_THRIFT_PYTHON_PATH)
