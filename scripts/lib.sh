# Shared by the scripts; sourced, not run.
# shellcheck shell=bash

set -euo pipefail
shopt -s inherit_errexit

# The tree this script belongs to, wherever it was called from.
# shellcheck disable=SC2034
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

say() { printf '%s\n' "== $*" >&2; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

have() { command -v "$1" >/dev/null 2>&1; }

# Prints what stands at the top of the script, for --help.
usage() {
    sed -n '/^# SPDX/d;2,/^[^#]*$/s/^# \{0,1\}//p' "$0"
    exit 0
}

# How many things to do at once.
jobs_count() { nproc 2>/dev/null || echo 2; }

# configure_preset PRESET: a service that checks the tree lets no warning through, and ccache helps where
# there is one.
configure_preset() {
    local options=()
    if [[ -n ${CI:-} ]]; then options+=(-DCAMERA_WARNINGS_AS_ERRORS=ON); fi
    if have ccache; then options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
    cmake --preset "$1" "${options[@]}"
}
