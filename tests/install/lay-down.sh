#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs a build, looks at what was laid down, and moves it to another place.
#
#   lay-down.sh BUILD PREFIX MOVED CONFIGURATION

set -euo pipefail

build=$1
prefix=$2
moved=$3
configuration=$4
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source=$(cd "$here/../.." && pwd -P)

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

rm -rf "$prefix" "$moved"
cmake --install "$build" --prefix "$prefix" >/dev/null

"$here/expect-files.sh" "$prefix"

# Thrift's library keeps the names of its own sources, for its messages. What is built for a debugger keeps all of them,
# so only its texts are looked at.
options=(-rlF --exclude=libthrift.a)
[[ $configuration == Release ]] || options+=(-I)
! grep "${options[@]}" -e "$source" -e "$build" -e "$prefix" "$prefix" ||
    fail "these files name a folder of the machine they were built on"

# The pages and what they lead to were laid down together.
while IFS=: read -r page link; do
    [[ -e $(dirname "$page")/$link ]] || fail "$page leads to $link, which is not there"
done < <(grep -oE '\]\([^):# ]+\.(md|h|cpp|png|svg|txt|thrift)[)#]' -r --include='*.md' "$prefix/share/doc" |
    sed -E 's/:\]\(/:/; s/[)#]$//')

mkdir -p "$(dirname "$moved")"
mv "$prefix" "$moved"
