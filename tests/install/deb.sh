#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Makes the .deb of a build and looks at what it holds and says. Exits with 77, to be skipped, where there is nothing to
# make it with.
#
#   deb.sh BUILD WORK VERSION

set -euo pipefail

build=$1
work=$2
version=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

for command in dpkg-deb dpkg-shlibdeps file; do
    command -v "$command" >/dev/null || { echo "skipped: there is no $command here" && exit 77; }
done

rm -rf "$work"
mkdir -p "$work"
cpack --config "$build/CPackConfig.cmake" -B "$work" >"$work/log" 2>&1 || { cat "$work/log" && fail "cpack failed"; }
deb=$work/camera-component_${version}_$(dpkg --print-architecture).deb
[[ -r $deb ]] || { ls "$work" && fail "there is no $deb"; }

dpkg-deb -x "$deb" "$work/root"
[[ $(ls "$work/root") == usr ]] || fail "it reaches beyond /usr: $(ls "$work/root")"
"$here/expect-files.sh" "$work/root/usr" share/doc/camera-component/{copyright,changelog.gz}

expect_field() {
    local value
    value=$(dpkg-deb -f "$deb" "$1")
    # shellcheck disable=SC2053 # a pattern is meant
    [[ $value == $2 ]] || fail "$1 is '$value'"
}
expect_field Package camera-component
expect_field Version "$version"
expect_field Section graphics
expect_field Maintainer '?* <?*@?*>'
expect_field Depends '*libstdc++6*'
expect_field Recommends 'libboost-dev*'
if [[ -e $work/root/usr/bin/camera ]]; then expect_field Depends '*libepoxy0*'; fi

# All belongs to root, and only root may write.
! dpkg-deb -c "$deb" | grep -vE '^[-d]rw[-x]r-[-x]r-[-x] root/root ' || fail "these have other owners or rights"
gzip -dc "$work/root/usr/share/doc/camera-component/changelog.gz" | grep -q "^camera-component ($version)" ||
    fail "the changelog is of another version"
[[ -s $work/root/usr/share/doc/camera-component/copyright ]] || fail "there is no copyright"
