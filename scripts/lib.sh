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

# configure_preset PRESET OPTION...: a service that checks the tree lets no warning through, and ccache helps where
# there is one; it remembers little that was compiled with precompiled headers.
configure_preset() {
    local options=()
    if [[ -n ${CI:-} ]]; then options+=(-DCAMERA_WARNINGS_AS_ERRORS=ON); fi
    if have ccache && [[ -z ${CCACHE_DISABLE:-} ]]; then
        options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON)
    fi
    cmake --preset "$@" "${options[@]}"
}

# attempt NAME COMMAND...: shows what the command says, goes on when it fails, and keeps its closing words.
failed=()
closing_words=()
attempt() {
    local name=$1 log began=$SECONDS outcome=passed
    shift
    log=$(mktemp)
    "$@" </dev/null 2>&1 | tee "$log" || { outcome=FAILED && failed+=("$name"); }
    # What follows the last heading of summaries; or what ctest says in the end, or else the last lines.
    closing_words+=("== $name: $outcome after $((SECONDS - began)) s" "$(awk '
        /^== summaries$/ { text = ""; found = 1; next }
        /tests passed, / && !found { text = ""; found = 1 }
        NF { last = before "\n" $0; before = $0; text = text $0 "\n" }
        END { printf "%s", found ? text : last "\n" }' "$log")")
    rm -f "$log"
}

# The closing words of all attempts, last; fails where one has failed.
conclude() {
    printf '\n== summaries\n'
    printf '%s\n' "${closing_words[@]}"
    ((${#failed[@]} == 0)) || die "failed: $(printf '%s; ' "${failed[@]}")"
}
