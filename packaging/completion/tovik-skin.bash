# SPDX-License-Identifier: GPL-3.0-or-later
# Completion for tovik-skin(1).
_tovik_skin() {
    local word=${COMP_WORDS[COMP_CWORD]}
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "build list --help" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -o filenames -F _tovik_skin tovik-skin
