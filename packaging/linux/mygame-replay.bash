# Completion for mygame-replay. To be sourced by bash.
# shellcheck shell=bash

_mygame_replay()
{
    # shellcheck disable=SC2034 # what _init_completion sets
    local cur prev words cword
    _init_completion || return
    case $prev in
    --data | --snapshots) _filedir -d ;;
    --trace | --frames | --pin) _filedir ;;
    *)
        if [[ $cur == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W "--data --trace --snapshots --frames --pin --help --version" -- "$cur")
        else
            _filedir '@(mygame|txt)'
        fi
        ;;
    esac
} && complete -F _mygame_replay mygame-replay
