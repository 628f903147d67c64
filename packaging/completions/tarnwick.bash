# bash completion for tarnwick

_tarnwick() {
    local cur prev words cword split
    _init_completion -s || return
    if [[ $prev == --home ]]; then
        _filedir -d
    elif [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W '-h --help --home --version' -- "$cur"))
    else
        _filedir '@(cp|epd)'
    fi
}

complete -F _tarnwick tarnwick
