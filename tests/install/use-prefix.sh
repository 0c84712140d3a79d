#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Uses an installed prefix as somebody else's project would, who has nothing of this tree.
#
#   use-prefix.sh WAY PREFIX WORK [VERSION]
#
# WAY is one of
#   cmake        find_package, build and run a host
#   pkg-config   the compiler and what pkg-config says, build and run the same host
#   headers      every public header compiles alone
#   versions     find_package takes what this version serves, and refuses the rest
#   program      the program finds the module that was installed with it
# VERSION is the version that must be found there. WORK is emptied first. CXX and CMAKE_CXX_COMPILER_LAUNCHER
# are heeded.

set -euo pipefail

way=$1
prefix=$(realpath "$2")
work=$3
version=${4:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source=$(cd "$here/../.." && pwd -P)
cxx=${CXX:-g++}

fail() {
    printf '%s: %s\n' "$way" "$*" >&2
    exit 1
}

# The one folder PREFIX has under any folder of libraries, such as lib or lib/x86_64-linux-gnu.
folder_of() {
    local found
    found=$(find "$prefix" -path "*/$1" -printf '%h\n')
    [[ -n $found && $found != *$'\n'* ]] || fail "$prefix has not one $1, but: ${found:-none}"
    printf '%s\n' "$found"
}

# expect_corner COMMAND...: the box fills the height of a window of 1280 by 720, so its front corner (1, 1, 1) is at the
# top, 360 right of the middle.
expect_corner() {
    local output
    output=$("$@") || fail "$* failed"
    [[ $output == "$version corner at pixel Vector(mData=[1000, 720, "* ]] || fail "$* gave '$output'"
    printf '%s\n' "$output"
}

# Whatever a consumer uses, it comes from the prefix.
expect_nothing_of_the_tree() {
    ! grep -rnF -e "$source/interface" -e "$source/host" -e "$source/.deps" "$@" ||
        fail "what was configured reaches into $source"
}

configure() {
    local wanted=$1
    cmake -S "$work/consumer" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="$cxx" \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -DWANTED="$wanted"
}

rm -rf "$work"
mkdir -p "$work"
cp -R "$here/consumer" "$work/consumer"

case $way in
    cmake)
        configure "${version%.*}"
        expect_nothing_of_the_tree "$work/build/CMakeCache.txt" "$work/build/build.ninja"
        cmake --build "$work/build"
        expect_corner "$work/build/consumer"
        ;;
    pkg-config)
        PKG_CONFIG_PATH=$(folder_of camera-component.pc)
        export PKG_CONFIG_PATH
        found=$(pkg-config --modversion camera-component)
        [[ $found == "$version" ]] || fail "pkg-config knows version $found, not $version"
        read -r -a flags <<<"$(pkg-config --cflags camera-component)"
        read -r -a libs <<<"$(pkg-config --libs camera-component)"
        module=$(pkg-config --variable=module camera-component)
        printf '%s\n' "${flags[*]}" "${libs[*]}" "$module" | tee "$work/said"
        expect_nothing_of_the_tree "$work/said"
        for file in camera.thrift base.thrift; do
            [[ -r $(pkg-config --variable=descriptiondir camera-component)/$file ]] || fail "no $file"
        done
        "$cxx" -std=c++20 -Wall -Wextra -Werror "$work/consumer/host.cpp" "${flags[@]}" "${libs[@]}" -o "$work/host"
        expect_corner "$work/host" "$module"
        ;;
    headers)
        PKG_CONFIG_PATH=$(folder_of camera-component.pc)
        export PKG_CONFIG_PATH
        read -r -a flags <<<"$(pkg-config --cflags camera-component)"
        mapfile -t headers < <(cd "$prefix/include" && find qel -name '*.h' | sort)
        expected=$(cd "$source" && find interface/qel host/include/qel -name '*.h' | wc -l)
        ((${#headers[@]} == expected)) || fail "${#headers[@]} headers are there instead of $expected"
        for header in "${headers[@]}"; do
            printf '%s\n' "$header"
            printf '#include <%s>\n' "$header" >"$work/alone.cpp"
            "$cxx" -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Werror "${flags[@]}" "$work/alone.cpp"
        done
        ;;
    versions)
        major=${version%%.*}
        minor=${version#*.}
        minor=${minor%.*}
        for wanted in "$version" "$major.$minor" "$major.$minor.0"; do
            configure "$wanted" >"$work/log" 2>&1 || { cat "$work/log" && fail "$wanted is refused"; }
        done
        for wanted in "$version.1" "$major.$((minor + 1))" "$major.$((minor - 1))" "$((major + 1)).$minor"; do
            rm -rf "$work/build"
            ! configure "$wanted" >"$work/log" 2>&1 || fail "$wanted is taken"
            grep -q "compatible with requested version" <(tr -s ' \n' ' ' <"$work/log") ||
                { cat "$work/log" && fail "$wanted is refused for another reason"; }
            printf '%s is refused\n' "$wanted"
        done
        ;;
    program)
        found=$("$prefix/bin/camera" --version)
        [[ $found == "camera $version" ]] || fail "camera --version says $found"
        module=$(folder_of CameraLibrary.so)/CameraLibrary.so
        help=$("$prefix/bin/camera" call --help)
        [[ $help == *"=$module"* ]] || fail "its module is not $module: $help"
        # The corner that the host looks at as well.
        pixel=$("$prefix/bin/camera" call planarCameraCreateDefault |
            "$prefix/bin/camera" call planarCameraUpdateWindowSize - 1280 720 |
            "$prefix/bin/camera" call planarCameraFitWorldSpaceBoundingBox - -1 -1 -1 1 1 1 |
            "$prefix/bin/camera" call transformWorldPointToScreenPoint - 1,1,1 | tr -d ' \n')
        [[ $pixel == *'"mData":[1000'*,720* ]] || fail "the corner is at $pixel"
        ;;
    *) fail "no such way" ;;
esac
