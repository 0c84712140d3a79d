#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Lets a host be built where the package brings no Thrift along and the machine has one instead: the package's files are
# made anew for that, and the private Thrift is moved out of a copy of the prefix to where a machine would have it.
# Exits with 77, to be skipped, where the package brings none anyway.
#
#   machine-thrift.sh PREFIX LIBRARY WORK VERSION     where LIBRARY is Thrift's

set -euo pipefail

prefix=$1
library=$2
work=$3
version=$4
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source=$(cd "$here/../.." && pwd -P)

private=$prefix/lib/camera-component/thrift
[[ -d $private ]] || { echo "skipped: the package has no Thrift of its own" && exit 77; }

rm -rf "$work"
mkdir -p "$work/machine/bin" # ThriftConfig.cmake wants to see one
cp -R "$prefix" "$work/prefix"
rm -rf "$work/prefix/lib/camera-component/thrift"
cp -R "$(dirname "$library")" "$work/machine/lib"
cp -R "$private/include" "$work/machine/include"

# What others may have set must not name another Thrift.
unset PKG_CONFIG_PATH
export CMAKE_PREFIX_PATH=$work/machine
cmake -S "$source" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="${CXX:-g++}" \
    -DCAMERA_BUILD_TESTS=OFF -DCAMERA_BUILD_DEMO=OFF -DCAMERA_BUILD_FUZZERS=OFF -DCAMERA_THRIFT_SYSTEM_ONLY=ON
cp "$work/build/packaging/"CameraComponentConfig*.cmake "$work/prefix/lib/cmake/CameraComponent"

"$here/use-prefix.sh" cmake "$work/prefix" "$work/with-package" "$version"

# Debian's Thrift, for one, has a file for pkg-config and no package for CMake.
rm -rf "$work/machine/lib/cmake"
sed -i -E "s,^(prefix)=.*,\1=$work/machine,; s,^(includedir)=.*,\1=$work/machine/include,; s,^(libdir)=.*,\1=$work/machine/lib," \
    "$work/machine/lib/pkgconfig/thrift.pc"
"$here/use-prefix.sh" cmake "$work/prefix" "$work/with-pkg-config" "$version"
