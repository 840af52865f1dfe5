# Completion for mygame. To be sourced by bash.
# shellcheck shell=bash

_mygame()
{
    # shellcheck disable=SC2034 # what _init_completion sets
    local cur prev words cword
    _init_completion || return
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--help --version" -- "$cur")
    else
        _filedir mygame
    fi
} && complete -F _mygame mygame
