# SPDX-License-Identifier: Apache-2.0
# Completes the commands of the program camera, their options, the names of operations and files. To be sourced by
# bash, or put as "camera" where bash-completion looks for it.
# shellcheck shell=bash

# Prints the options of a command, as its help lists them.
_camera_options() {
    "$1" ${2:+"$2"} --help 2>/dev/null | grep -oE '^ +(-[A-Za-z],)?--[a-z][a-z-]*' | grep -oE -- '--[a-z-]+'
}

# Prints the commands, as the program's help lists them.
_camera_commands() {
    "$1" --help 2>/dev/null | sed -n '/^Subcommands:/,$s/^  \([a-z][a-z-]*\)  *.*/\1/p'
}

# Fills COMPREPLY with those of the words that begin as the current one does; words hold no blanks.
_camera_offer() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

_camera_offer_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_camera() {
    local program=$1 current=$2 previous=$3 command='' operation='' index
    COMPREPLY=()
    for ((index = 1; index < COMP_CWORD; ++index)); do
        case ${COMP_WORDS[index]} in
            -?*) ;;
            *)
                if [[ -z $command ]]; then
                    command=${COMP_WORDS[index]}
                elif [[ $command == call && -z $operation && ${COMP_WORDS[index - 1]} != --* ]]; then
                    operation=${COMP_WORDS[index]}
                fi
                ;;
        esac
    done

    if [[ $previous == --out || $previous == --module ]]; then
        _camera_offer_files "$current"
    elif [[ $current == --* || ($current == -* && $command != call) ]]; then
        _camera_offer "$(_camera_options "$program" "$command")" "$current"
    elif [[ -z $command ]]; then
        _camera_offer "$(_camera_commands "$program")" "$current"
    elif [[ $command == ops || ($command == call && -z $operation) ]]; then
        _camera_offer "$("$program" ops --names 2>/dev/null)" "$current"
    elif [[ $current =~ ^[A-Z]+$ && $command == call ]]; then
        _camera_offer "PERSPECTIVE ORTHOGRAPHIC" "$current"
        ((${#COMPREPLY[@]})) || _camera_offer_files "$current"
    else
        _camera_offer_files "$current"
    fi
}

complete -F _camera camera
