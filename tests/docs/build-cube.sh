#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds and starts the cube as the guide tells it, with an installed prefix.
#
#   build-cube.sh PREFIX WORK      WORK is emptied first

set -euo pipefail

PREFIX=$(realpath "$1")
work=$2
examples=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../examples" && pwd -P)

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

rm -rf "$work"
mkdir -p "$work"
cp "$examples/cube.cpp" "$examples/own-folder/CMakeLists.txt" "$work"
cd "$work"

cmake -S . -B build -DCMAKE_PREFIX_PATH="$PREFIX"
cmake --build build

if ! command -v Xvfb >/dev/null; then
    printf 'built; not started, because there is no display for tests (Xvfb) here\n'
    exit 0
fi
exec 3<>"$work/display"
Xvfb -displayfd 3 -screen 0 1024x768x24 2>"$work/Xvfb.log" &
server=$!
trap 'kill "$server"' EXIT
for ((i = 0; i < 100; ++i)); do
    [[ -s $work/display ]] && break
    sleep 0.1
done
[[ -s $work/display ]] || fail "no display: $(<"$work/Xvfb.log")"
DISPLAY=:$(<"$work/display")
export DISPLAY

# It stays until somebody closes its window, so being stopped is how it succeeds.
status=0
timeout 3 \
    build/cube "$PREFIX/lib/camera-component/CameraLibrary.so" || status=$?
((status == 124)) || fail "the cube ended by itself, with $status"
