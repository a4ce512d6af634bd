# SPDX-License-Identifier: GPL-3.0-or-later
# Completion for tovik(1).
_tovik() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local IFS=$'\n' # names of devices hold blanks
    case $before in
        --data) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
        --device)
            mapfile -t COMPREPLY < <(compgen -W "silent
list
$(tovik --device list 2>/dev/null)" -- "$word")
            ;;
        --comfort) mapfile -t COMPREPLY < <(compgen -W $'on\noff' -- "$word") ;;
        --seconds) COMPREPLY=() ;;
        *)
            if [[ $word == --* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$(tovik --help |
                    sed -n 's/^  \(--[a-z-]*\).*/\1/p')" -- "$word")
            else
                mapfile -t COMPREPLY < <(compgen -f -- "$word")
            fi
            ;;
    esac
}
complete -o filenames -F _tovik tovik
