#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Fails unless a prefix holds what the package consists of, and nothing else.
#
#   expect-files.sh PREFIX [PATTERN...]     where the patterns tell what else may be there

set -euo pipefail
shopt -s extglob

prefix=$1
shift
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source=$(cd "$here/../.." && pwd -P)

# The library folder may be the one of a machine, such as lib/x86_64-linux-gnu.
mapfile -t found < <(cd "$prefix" && find . ! -type d -printf '%P\n' | sed -E 's,^lib(64|/[^/]*-linux-gnu[^/]*)/,lib/,' | sort)
((${#found[@]})) || { printf '%s is empty\n' "$prefix" >&2 && exit 1; }

expected=(
    lib/camera-component/CameraLibrary.so
    lib/libcamera_interface.a
    lib/cmake/CameraComponent/CameraComponent{Config,ConfigVersion,Targets}.cmake
    lib/pkgconfig/camera-component.pc
    share/camera-component/thrift/{base,camera}.thrift
    share/doc/camera-component/{LICENSE,README.md}
)
# Headers, pages and examples are as many as the tree has.
mapfile -t -O "${#expected[@]}" expected < <(
    cd "$source/interface" && find qel -name '*.h' -printf 'include/%p\n'
    cd "$source/host/include" && find qel -name '*.h' -printf 'include/%p\n'
    cd "$source" && find docs examples -type f ! -path examples/CMakeLists.txt -printf 'share/doc/camera-component/%p\n'
)
program=(
    bin/camera
    share/bash-completion/completions/camera
    share/camera-component/models/{README.md,bunny.obj,teapot.obj}
)
thrift=(
    lib/camera-component/thrift/{LICENSE,NOTICE,lib/libthrift.a}
    lib/camera-component/thrift/include/thrift/TBase.h
    lib/camera-component/thrift/include/thrift/protocol/TCompactProtocol.tcc
)
also=(
    'lib/cmake/CameraComponent/CameraComponentTargets-+([a-z]).cmake'
    'lib/camera-component/thrift/include/thrift/*.@(h|tcc)'
    "$@"
)

has() {
    local file
    for file in "${found[@]}"; do [[ $file == "$1" ]] && return; done
    return 1
}
# Each of these stands there as a whole or not at all.
if has bin/camera; then expected+=("${program[@]}"); fi
if has lib/camera-component/thrift/LICENSE; then expected+=("${thrift[@]}"); fi

wrong=()
for file in "${expected[@]}"; do
    has "$file" || wrong+=("missing: $file")
done
for file in "${found[@]}"; do
    for pattern in "${expected[@]}" "${also[@]}"; do
        # shellcheck disable=SC2053 # a pattern is meant
        [[ $file == $pattern ]] && continue 2
    done
    wrong+=("unexpected: $file")
done
((${#wrong[@]} == 0)) || { printf '%s\n' "${wrong[@]}" >&2 && exit 1; }
printf '%s files, all as expected\n' "${#found[@]}"
