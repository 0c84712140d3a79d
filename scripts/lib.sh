# Shared by the scripts; sourced, not run.
# shellcheck shell=bash

set -euo pipefail

# The tree this script belongs to, wherever it was called from.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

say() { printf '%s\n' "== $*" >&2; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

have() { command -v "$1" >/dev/null 2>&1; }

# How many things to do at once.
jobs_count() { nproc 2>/dev/null || echo 2; }
