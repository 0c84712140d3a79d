# SPDX-License-Identifier: Apache-2.0
# Gets Apache Thrift's source archive, and lets cmake/thrift build from it; sourced by scripts/setup.
# shellcheck shell=bash

: "${root:?}"
thrift_prefix=$root/.deps/thrift

archive_hash() {
    [[ -r $1 ]] || die "THRIFT_TARBALL names $1, which cannot be read"
    sha256sum <"$1" | cut -d' ' -f1
}

# What a stamp says first: the system, and how it was built. The archive's hash follows.
thrift_recipe() (
    # shellcheck source=/dev/null
    [[ -r /etc/os-release ]] && source /etc/os-release
    printf '%s-%s-%s-%s' "${ID:-unknown}" "${VERSION_ID:-rolling}" "$(uname -m)" \
        "$(sha256sum <"$root/cmake/thrift/CMakeLists.txt" | cut -c 1-16)"
)

# thrift_built PREFIX PART: as it would be built now, and from the archive that is named where one is.
thrift_built() {
    local recipe archive
    [[ -r $1/.$2 ]] && read -r recipe archive <"$1/.$2" && [[ $recipe == "$(thrift_recipe)" ]] || return 1
    [[ -z ${THRIFT_TARBALL:-} || $archive == "$(archive_hash "$THRIFT_TARBALL")" ]]
}

# The library, from the prefix or from the machine; the machine's is asked by the look-up that the build uses.
thrift_library_ready() {
    thrift_built "$thrift_prefix" library && return
    [[ -z ${THRIFT_TARBALL:-} ]] &&
        cmake -S "$root/cmake/thrift-probe" -B "$root/.deps/probe" -G Ninja -DCMAKE_CXX_COMPILER=g++ >/dev/null 2>&1
}

# The compiler and the Python library, from the prefix or from the machine, if they know the uuid type.
thrift_tools_ready() {
    thrift_built "$thrift_prefix" tools && return
    [[ -z ${THRIFT_TARBALL:-} && ! -e $thrift_prefix/.library ]] && have thrift || return 1
    local probe serves=1
    probe=$(mktemp -d)
    printf 'struct Probe { 1: uuid id }\n' >"$probe/probe.thrift"
    thrift --gen py --gen cpp --gen js:node -out "$probe" "$probe/probe.thrift" >/dev/null 2>&1 &&
        python3 -c 'from thrift.Thrift import TType; TType.UUID' 2>/dev/null && serves=0
    rm -rf "$probe"
    return $serves
}

# fetch_thrift FOLDER: the archive, from the suites in development of the Debian mirrors that apt knows here, which are
# asked in turn. apt checks it against the archive's signature. The machine's own lists and sources are left alone: apt
# works with lists and sources of its own, in a temporary folder.
fetch_thrift() {
    have apt-get || die "no apt-get to fetch Thrift's sources with; name an archive of them with THRIFT_TARBALL=<file>"
    local work keyring signed='' codename mirror
    work=$(mktemp -d)
    # shellcheck disable=SC2064
    trap "rm -rf '$work'" EXIT
    mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/download"
    # apt fetches as a user of its own where it can.
    chmod 755 "$work"
    if ((EUID == 0)) && id _apt >/dev/null 2>&1; then chown _apt "$work/download" "$work/lists/partial"; fi
    # An index past its date serves as well: what counts is the signature.
    printf '%s\n' 'Acquire::Check-Valid-Until "false";' 'Acquire::Check-Date "false";' 'Acquire::Retries "3";' \
        '#clear APT::Update::Post-Invoke;' '#clear APT::Update::Post-Invoke-Success;' '#clear APT::Default-Release;' \
        "Dir::Etc::sourcelist \"$work/sources.list\";" 'Dir::Etc::sourceparts "/dev/null";' \
        'Dir::Etc::preferences "/dev/null";' 'Dir::Etc::preferencesparts "/dev/null";' 'Acquire::Languages "none";' \
        "Dir::State::lists \"$work/lists/\";" "Dir::Cache \"$work/cache/\";" >"$work/apt.conf"
    for keyring in /usr/share/keyrings/debian-archive-keyring.{gpg,pgp}; do
        if [[ -r $keyring ]]; then signed="[signed-by=$keyring]"; fi
    done
    codename=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)

    while read -r mirror; do
        say "looking for Thrift's sources in $mirror"
        printf "deb-src $signed $mirror %s main\n" forky sid >"$work/sources.list"
        apt-get -q -c "$work/apt.conf" update </dev/null >"$work/log" 2>&1 || true
        if (cd "$work/download" && apt-get -q -c "$work/apt.conf" source --tar-only --download-only thrift) \
            </dev/null >>"$work/log" 2>&1; then
            mkdir -p "$1"
            cp "$work"/download/thrift_*.orig.tar.?z "$1/"
            return
        fi
        sed 's/^/   /' "$work/log" >&2
        rm -rf "$work"/lists/*_*
    done < <(apt-get update --print-uris |
        sed -nE "s,^'(.*)/dists/($codename|stable|testing|unstable|sid)/InRelease'.*,\1,p" | sort -u)
    die "could not fetch Thrift's sources from a Debian mirror; name an archive of them with THRIFT_TARBALL=<file>"
}

# build_thrift PREFIX PART OPTION...: the part is the stamp's name. It is written last: what has one is finished.
build_thrift() {
    local prefix=$1 part=$2 archive=${THRIFT_TARBALL:-} hash build
    shift 2
    if [[ -z $archive ]]; then
        compgen -G "$root/.deps/cache/thrift_*.orig.tar.?z" >/dev/null || (fetch_thrift "$root/.deps/cache")
        archive=$(compgen -G "$root/.deps/cache/thrift_*.orig.tar.?z" | sort -V | tail -n 1)
    fi
    hash=$(archive_hash "$archive")
    build=$root/.deps/build/${prefix##*/}
    say "building Thrift ($part) from ${archive##*/} into ${prefix#"$root/"}"
    rm -f "$prefix/.$part"
    cmake -S "$root/cmake/thrift" -B "$build" -G Ninja -DCMAKE_INSTALL_PREFIX="$prefix" \
        -DTHRIFT_ARCHIVE="$(realpath "$archive")" -DTHRIFT_ARCHIVE_SHA256="$hash" "$@" >/dev/null
    CMAKE_BUILD_PARALLEL_LEVEL=$(jobs_count) cmake --build "$build" >&2 || die "Thrift ($part) does not build"
    printf '%s %s\n' "$(thrift_recipe)" "$hash" >"$prefix/.$part"
}
