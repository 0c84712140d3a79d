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

# Clang's sanitizers come in a package of their own, which must fit the version of the compiler.
need_clang_sanitizers() {
    if ! have clang++; then
        need clang "$1"
        need libclang-rt-dev "the sanitizers of clang"
    elif ! clang_sanitizers_ready; then
        need "libclang-rt-$(clang++ -dumpversion | cut -d. -f1)-dev" "the sanitizers of clang"
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
    ((${#needed_packages[@]})) || return 0
    { have apt-get && have dpkg-query; } ||
        die "this machine has no apt-get; please install what these Debian packages hold: ${needed_packages[*]}"

    local package index
    say "missing packages:"
    for index in "${!needed_packages[@]}"; do
        printf '   %-20s %s\n' "${needed_packages[index]}" "${needed_reasons[index]}" >&2
    done

    if may_install; then
        for package in "${needed_packages[@]}"; do
            has_candidate "$package" || refresh_apt_lists "$package is not in the package lists"
        done
    fi
    local install=(apt-get install -y --no-install-recommends "${needed_packages[@]}")
    if ! may_install; then
        printf '%s\n' "Installing them needs root; please run" "" "    sudo ${install[*]}" "" \
            "(after 'sudo apt-get update', where it does not know them), then this script again." >&2
        exit 1
    fi
    local environment=(env DEBIAN_FRONTEND=noninteractive)
    local options=(-qq -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3)
    if ! as_root "${environment[@]}" "${install[@]}" "${options[@]}" </dev/null >&2; then
        # The lists may name versions that the mirror has replaced since.
        [[ -z $apt_lists_refreshed ]] || die "apt-get install failed; its messages stand above"
        refresh_apt_lists "apt-get install failed, perhaps on old package lists"
        as_root "${environment[@]}" "${install[@]}" "${options[@]}" </dev/null >&2 ||
            die "apt-get install failed; its messages stand above"
    fi
}
