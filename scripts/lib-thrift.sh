# SPDX-License-Identifier: Apache-2.0
# Gets Apache Thrift's sources and builds from them; sourced by scripts/setup.
# shellcheck shell=bash

: "${root:?}"
thrift_prefix=$root/.deps/thrift
thrift_cache=$root/.deps/cache
thrift_system=$root/.deps/thrift-system

# What is built and how. A change here, or another system, means building again.
thrift_library_options=(
    -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_POSITION_INDEPENDENT_CODE=ON
    -DCMAKE_CXX_STANDARD=17
    -DBUILD_SHARED_LIBS=OFF
    -DBUILD_COMPILER=OFF
    -DBUILD_TESTING=OFF
    -DBUILD_TUTORIALS=OFF
    -DWITH_CPP=ON
    -DWITH_C_GLIB=OFF
    -DWITH_JAVA=OFF
    -DWITH_JAVASCRIPT=OFF
    -DWITH_KOTLIN=OFF
    -DWITH_NODEJS=OFF
    -DWITH_PYTHON=OFF
    -DWITH_LIBEVENT=OFF
    -DWITH_ZLIB=OFF
    -DWITH_OPENSSL=OFF
    -DWITH_QT5=OFF
    # A module that holds a symbol unique to the process can never be unloaded.
    -DCMAKE_CXX_FLAGS=-fno-gnu-unique
)
# The languages the tests speak; all generators would take three times as long.
thrift_generators=(cpp py js json)

system_name() {
    (
        # shellcheck source=/dev/null
        [[ -r /etc/os-release ]] && source /etc/os-release
        printf '%s-%s-%s' "${ID:-unknown}" "${VERSION_ID:-rolling}" "$(uname -m)"
    )
}

# The first line of a stamp: what was asked for. The second: the hash of the sources it was built from.
library_recipe() {
    printf '%s %s' "$(system_name)" "$(printf '%s\n' "${thrift_library_options[@]}" | sha256sum | cut -c 1-16)"
}
tools_recipe() { printf '%s %s' "$(system_name)" "${thrift_generators[*]}"; }

# stamp_matches FILE RECIPE: also the archive, where one was named.
stamp_matches() {
    local recipe source
    [[ -r $1 ]] || return 1
    { read -r recipe && read -r source; } <"$1" || return 1
    [[ $recipe == "$2" ]] || return 1
    [[ -z ${THRIFT_TARBALL:-} || $source == "$(tarball_hash "$THRIFT_TARBALL")" ]]
}

tarball_hash() {
    [[ -r $1 ]] || die "THRIFT_TARBALL names $1, which cannot be read"
    sha256sum <"$1" | cut -d' ' -f1
}

# ---------------------------------------------------------------------------------------------------------
# Is there anything to do?

thrift_library_ready() {
    stamp_matches "$thrift_prefix/.library" "$(library_recipe)" && return
    [[ -z ${THRIFT_TARBALL:-} ]] && system_thrift_serves
}

file_state() { stat -c '%n %s %Y' "$1" 2>/dev/null; }

# Asks the look-up that the build uses, and keeps a positive answer for as long as the library stays the
# same.
system_thrift_serves() {
    local state probe library
    if [[ -r $thrift_system ]]; then
        state=$(<"$thrift_system")
        [[ $state == "$(file_state "${state%% *}")" ]] && return
        rm -f "$thrift_system"
    fi
    probe=$(mktemp -d)
    if cmake -S "$root/cmake/thrift-probe" -B "$probe" -G Ninja -DCMAKE_CXX_COMPILER=g++ >/dev/null 2>&1; then
        library=$(<"$probe/location")
        file_state "$library" >"$thrift_system"
        say "this machine's own Thrift serves: $library"
    fi
    rm -rf "$probe"
    [[ -r $thrift_system ]]
}

# The compiler and the Python library, from the prefix or from the machine, if they know the uuid type.
thrift_tools_ready() {
    stamp_matches "$thrift_prefix/.tools" "$(tools_recipe)" && return
    [[ -z ${THRIFT_TARBALL:-} && ! -e $thrift_prefix/.library ]] && have thrift || return 1
    local probe serves=1
    probe=$(mktemp -d)
    printf 'struct Probe { 1: uuid id }\n' >"$probe/probe.thrift"
    thrift --gen py --gen cpp --gen js:node -out "$probe" "$probe/probe.thrift" >/dev/null 2>&1 &&
        python3 -c 'from thrift.Thrift import TType; TType.UUID' 2>/dev/null && serves=0
    rm -rf "$probe"
    return $serves
}

# ---------------------------------------------------------------------------------------------------------
# The sources

# Prints the apt sources of this machine, one a line: uri, suite, components, Signed-By (or -).
apt_sources() {
    local list='' parts=''
    eval "$(apt-config shell list Dir::Etc::sourcelist/f parts Dir::Etc::sourceparts/d)"
    local file
    for file in "$list" "${parts%/}"/*.list; do
        if [[ -f $file ]]; then cat -- "$file" && echo; fi
    done | awk '
        { sub(/#.*/, "") }
        $1 == "deb" || $1 == "deb-src" {
            key = "-"
            if (match($0, /\[[^]]*\]/)) {
                count = split(substr($0, RSTART + 1, RLENGTH - 2), options, " ")
                $0 = substr($0, 1, RSTART - 1) " " substr($0, RSTART + RLENGTH)
                for (i = 1; i <= count; i++)
                    if (tolower(options[i]) ~ /^signed-by=/) key = substr(options[i], 11)
            }
            components = ""
            for (i = 4; i <= NF; i++) components = components (i > 4 ? "," : "") $i
            if (components != "") print $2, $3, components, key
        }'
    for file in "${parts%/}"/*.sources; do
        if [[ -f $file ]]; then cat -- "$file" && echo; fi
    done | awk '
        function flush(    u, s, i, j, uris, suites, components, key) {
            components = field["components"]
            gsub(/[ \t]+/, ",", components)
            key = field["signed-by"]
            gsub(/^[ \t]+|[ \t]+$/, "", key)
            gsub(/[ \t]+/, ",", key)
            if (key == "" || key ~ /BEGIN/) key = "-"
            if (components != "" && tolower(field["enabled"]) !~ /^(no|false|without|off|disable|0)$/) {
                u = split(field["uris"], uris, " ")
                s = split(field["suites"], suites, " ")
                for (i = 1; i <= u; i++)
                    for (j = 1; j <= s; j++) print uris[i], suites[j], components, key
            }
            for (i in field) delete field[i]
        }
        /^#/ { next }
        /^[ \t]*$/ { flush(); name = ""; next }
        /^[ \t]/ { if (name != "") field[name] = field[name] " " $0; next }
        {
            colon = index($0, ":")
            name = tolower(substr($0, 1, colon - 1))
            value = substr($0, colon + 1)
            gsub(/^[ \t]+|[ \t\r]+$/, "", value)
            field[name] = value
        }
        END { flush() }'
}

# Prints the sources that may be the Debian archive, the likeliest first: the entry of this very release,
# and before others one whose mirror also carries the release's updates, or is named after Debian.
debian_archives() {
    local codename
    codename=$(
        # shellcheck source=/dev/null
        source /etc/os-release && printf '%s' "${VERSION_CODENAME:-}"
    )
    apt_sources | awk -v codename="$codename" '
        { uri[NR] = $1; suite[NR] = $2; components[NR] = "," $3 ","; key[NR] = $4; all[$1 " " $2] = 1 }
        END {
            for (i = 1; i <= NR; i++) {
                if (components[i] !~ /,main,/ || seen[uri[i] " " key[i]]) continue
                if (suite[i] != codename && suite[i] !~ /^(stable|testing|unstable|sid)$/) continue
                seen[uri[i] " " key[i]] = 1
                rank = 2
                if (uri[i] ~ /debian/) rank--
                if (all[uri[i] " " suite[i] "-updates"]) rank--
                print rank, uri[i], key[i]
            }
        }' | sort -s -n -k 1,1 | cut -d' ' -f2-
}

# Fetches Thrift's source archive from the suites in development of the Debian archive this machine uses,
# and prints where it is; to be called in a subshell. The machine's own apt sources, lists and packages are left alone: apt works with
# a configuration, lists and a cache of its own in a temporary folder.
fetch_thrift_tarball() {
    have apt-get || die "no apt-get to fetch Thrift's sources with; name an archive of them with THRIFT_TARBALL=<file>"
    local work archives uri key suite signed tarball
    work=$(mktemp -d)
    # shellcheck disable=SC2064
    trap "rm -rf '$work'" EXIT
    chmod 755 "$work"
    mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/download"
    # apt fetches as a user of its own where it can.
    if ((EUID == 0)) && id _apt >/dev/null 2>&1; then chown _apt "$work/download" "$work/lists/partial"; fi
    # An index that is past its date serves as well: what counts here is the archive's signature, not how
    # fresh the sources are.
    printf '%s\n' 'Acquire::Check-Valid-Until "false";' 'Acquire::Check-Date "false";' \
        '#clear APT::Update::Pre-Invoke;' '#clear APT::Update::Post-Invoke;' \
        '#clear APT::Update::Post-Invoke-Success;' '#clear DPkg::Post-Invoke;' '#clear APT::Default-Release;' \
        "Dir::Etc::sourcelist \"$work/sources.list\";" 'Dir::Etc::sourceparts "/dev/null";' \
        'Dir::Etc::preferences "/dev/null";' 'Dir::Etc::preferencesparts "/dev/null";' \
        "Dir::State::lists \"$work/lists/\";" "Dir::Cache \"$work/cache/\";" \
        'Acquire::Languages "none";' 'Acquire::Retries "3";' >"$work/apt.conf"

    archives=$(debian_archives)
    [[ -n $archives ]] ||
        die "the apt sources of this machine name no Debian archive to fetch Thrift's sources from; name an archive of them with THRIFT_TARBALL=<file>"
    while read -r uri key; do
        signed=
        [[ $key == - ]] || signed="[signed-by=$key] "
        for suite in forky sid; do
            printf 'deb-src %s%s %s main\n' "$signed" "$uri" "$suite"
        done >"$work/sources.list"
        say "looking for Thrift's sources in $uri"
        apt-get -q -c "$work/apt.conf" update </dev/null >"$work/log" 2>&1 || true
        if grep -qx 'Origin: Debian' "$work"/lists/*Release 2>/dev/null &&
            (cd "$work/download" && apt-get -q -c "$work/apt.conf" source --tar-only --download-only thrift) \
                </dev/null >>"$work/log" 2>&1; then
            break
        fi
        sed 's/^/   /' "$work/log" >&2
        rm -rf "$work"/lists/*_* "$work"/download/*
    done <<<"$archives"

    tarball=$(compgen -G "$work/download/thrift_*.orig.tar.*" | grep -v '\.asc$' | head -n 1) ||
        die "could not fetch Thrift's sources, see above; name an archive of them with THRIFT_TARBALL=<file>"
    mkdir -p "$thrift_cache"
    cp "$tarball" "$thrift_cache/.part" && mv "$thrift_cache/.part" "$thrift_cache/${tarball##*/}"
    printf '%s\n' "$thrift_cache/${tarball##*/}"
}

# Sets thrift_tarball, and thrift_source to a folder with the sources; both builds share them.
thrift_sources() {
    [[ -z ${thrift_source:-} ]] || return 0
    if [[ -n ${THRIFT_TARBALL:-} ]]; then
        thrift_tarball=$THRIFT_TARBALL
        [[ -r $thrift_tarball ]] || die "THRIFT_TARBALL names $thrift_tarball, which cannot be read"
    else
        thrift_tarball=$(compgen -G "$thrift_cache/thrift_*.orig.tar.*" | sort -V | tail -n 1) ||
            thrift_tarball=$(fetch_thrift_tarball)
    fi
    thrift_work=$(mktemp -d "$root/.deps/work.XXXXXX")
    # shellcheck disable=SC2064
    trap "rm -rf '$thrift_work'" EXIT
    mkdir "$thrift_work/source"
    tar -xf "$thrift_tarball" -C "$thrift_work/source" --strip-components=1 ||
        die "$thrift_tarball does not unpack"
    thrift_source=$thrift_work/source
    [[ -r $thrift_source/lib/cpp/CMakeLists.txt ]] || die "$thrift_tarball holds no Thrift library for C++"
    thrift_hash=$(tarball_hash "$thrift_tarball")
}

# run_logged NAME COMMAND...: quiet when it works, the end of the output when it fails.
run_logged() {
    local log=$thrift_work/$1.log
    shift
    if ! "$@" >"$log" 2>&1 </dev/null; then
        tail -n 60 "$log" >&2
        die "failed: $*"
    fi
}

# ---------------------------------------------------------------------------------------------------------
# The builds

build_thrift_library() {
    thrift_sources
    say "building Thrift's C++ library from ${thrift_tarball##*/}"
    run_logged configure cmake -S "$thrift_source" -B "$thrift_work/library" -G Ninja -DCMAKE_CXX_COMPILER=g++ \
        -DCMAKE_INSTALL_PREFIX="$thrift_prefix" "${thrift_library_options[@]}"
    run_logged build cmake --build "$thrift_work/library" -j "$(jobs_count)"
    DESTDIR=$thrift_work/stage run_logged install cmake --install "$thrift_work/library"
    local staged=$thrift_work/stage$thrift_prefix
    cp "$thrift_source/LICENSE" "$thrift_source/NOTICE" "$staged/"
    printf '%s\n' "$(library_recipe)" "$thrift_hash" >"$staged/.library"
    # Moved into place as a whole: what is there is finished.
    if [[ -e $thrift_prefix ]]; then mv "$thrift_prefix" "$thrift_work/old"; fi
    mv "$staged" "$thrift_prefix"
    rm -f "$thrift_system"
    say "Thrift's C++ library is in ${thrift_prefix#"$root/"}"
}

# Thrift's compiler, and its Python library, for PYTHONPATH=<prefix>/share/thrift/python; for the tests alone.
build_thrift_tools() {
    thrift_sources
    say "building Thrift's compiler from ${thrift_tarball##*/}"
    local generators=() name
    while read -r name; do
        case " ${thrift_generators[*]} " in
            *" $name "*) generators+=("-DTHRIFT_COMPILER_${name^^}=ON") ;;
            *) generators+=("-DTHRIFT_COMPILER_${name^^}=OFF") ;;
        esac
    done < <(sed -n 's/^THRIFT_ADD_COMPILER(\([a-z_]*\).*/\1/p' "$thrift_source/compiler/cpp/CMakeLists.txt")
    ((${#generators[@]})) || die "${thrift_tarball##*/} lists no generators; its build has changed"

    run_logged configure-tools cmake -S "$thrift_source" -B "$thrift_work/tools" -G Ninja \
        -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=Release -DBUILD_COMPILER=ON -DBUILD_LIBRARIES=OFF \
        -DBUILD_TESTING=OFF -DBUILD_TUTORIALS=OFF -DWITH_CPP=OFF "${generators[@]}"
    run_logged build-tools cmake --build "$thrift_work/tools" -j "$(jobs_count)" --target thrift-compiler
    run_logged install-tools cmake --install "$thrift_work/tools" --prefix "$thrift_work/stage-tools"
    mkdir -p "$thrift_prefix/bin" "$thrift_prefix/share"
    rm -f "$thrift_prefix/.tools"
    rm -rf "$thrift_prefix/share/thrift"
    mkdir -p "$thrift_work/share/thrift/python"
    cp -R "$thrift_source/lib/py/src" "$thrift_work/share/thrift/python/thrift"
    mv "$thrift_work/share/thrift" "$thrift_prefix/share/thrift"
    mv "$thrift_work/stage-tools/bin/thrift" "$thrift_prefix/bin/thrift"
    printf '%s\n' "$(tools_recipe)" "$thrift_hash" >"$thrift_work/stamp"
    mv "$thrift_work/stamp" "$thrift_prefix/.tools"
    say "Thrift's compiler is in ${thrift_prefix#"$root/"}/bin"
}
