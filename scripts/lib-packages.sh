# SPDX-License-Identifier: Apache-2.0
# Finds out which of the system's packages are missing and installs those; sourced by scripts/setup.
# shellcheck shell=bash

needed_packages=()
needed_reasons=()

need() {
    local package
    for package in "${needed_packages[@]:-}"; do [[ $package == "$1" ]] && return; done
    needed_packages+=("$1")
    needed_reasons+=("$2")
}

# need_command COMMAND PACKAGE REASON: the package only where nothing provides the command yet.
need_command() { have "$1" || need "$2" "$3"; }

package_installed() {
    [[ $(dpkg-query -W -f '${db:Status-Abbrev}' "$1" 2>/dev/null) == ?i* ]]
}

# need_package PACKAGE REASON
need_package() { package_installed "$1" || need "$1" "$2"; }

clang_sanitizers_ready() {
    have clang++ && compgen -G "$(clang++ -print-runtime-dir)/libclang_rt.asan*.a" >/dev/null
}

# Clang's sanitizers come in a package of their own, named after the version of the compiler.
need_clang_sanitizers() {
    clang_sanitizers_ready && return
    have clang++ || need clang "$1"
    clang_sanitizers_wanted=$1
}

clang_major() {
    if have clang++; then
        clang++ -dumpversion | cut -d. -f1
    else
        apt-cache depends clang 2>/dev/null | sed -n 's/^ *Depends: clang-\([0-9][0-9]*\)$/\1/p' | head -n 1
    fi
}

apt_lists_refreshed=
refresh_apt_lists() {
    [[ -z $apt_lists_refreshed ]] || return 0
    apt_lists_refreshed=yes
    say "$1: refreshing the package lists with apt-get update"
    as_root apt-get update -q >&2 || die "apt-get update failed; its messages stand above"
}

# Who may install: root; on a machine of a CI service also whoever has sudo without a password.
as_root() {
    if ((EUID == 0)); then
        "$@"
    else
        sudo -n "$@"
    fi
}
may_install() {
    ((EUID == 0)) || { [[ -n ${CI:-} ]] && have sudo && sudo -n true 2>/dev/null; }
}

has_candidate() {
    local candidate
    candidate=$(apt-cache policy "$1" 2>/dev/null | sed -n 's/^ *Candidate: //p')
    [[ -n $candidate && $candidate != "(none)" ]]
}

install_needed() {
    ((${#needed_packages[@]})) || [[ -n ${clang_sanitizers_wanted:-} ]] || return 0
    { have apt-get && have dpkg-query; } ||
        die "this machine has no apt-get; please install what these Debian packages hold: ${needed_packages[*]:-clang with its sanitizers}"

    local package major index
    if may_install; then
        for package in "${needed_packages[@]:-clang}"; do
            has_candidate "$package" || refresh_apt_lists "no package $package is known"
        done
    fi
    if [[ -n ${clang_sanitizers_wanted:-} ]]; then
        major=$(clang_major)
        [[ -n $major ]] || major=VERSION
        need "libclang-rt-$major-dev" "the sanitizers of that compiler"
    fi

    say "missing packages:"
    for index in "${!needed_packages[@]}"; do
        printf '   %-20s %s\n' "${needed_packages[index]}" "${needed_reasons[index]}" >&2
    done

    local install=(apt-get install -y --no-install-recommends "${needed_packages[@]}")
    if ! may_install; then
        printf '%s\n' "Installing them needs root; please run" "" "    sudo ${install[*]}" "" \
            "(after 'sudo apt-get update' where the package lists are old), then this script again." >&2
        exit 1
    fi
    local environment=(env DEBIAN_FRONTEND=noninteractive)
    local options=(-q -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3)
    if ! as_root "${environment[@]}" "${install[@]}" "${options[@]}" </dev/null >&2; then
        # The lists may name versions that the mirror has replaced since.
        [[ -z $apt_lists_refreshed ]] || die "apt-get install failed; its messages stand above"
        refresh_apt_lists "apt-get install failed, perhaps on old package lists"
        as_root "${environment[@]}" "${install[@]}" "${options[@]}" </dev/null >&2 ||
            die "apt-get install failed; its messages stand above"
    fi

    [[ -z ${clang_sanitizers_wanted:-} ]] || clang_sanitizers_ready ||
        die "clang++ ($(clang++ -print-runtime-dir)) has no address sanitizer even after installing"
}
