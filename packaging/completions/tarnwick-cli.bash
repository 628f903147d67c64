# bash completion for tarnwick-cli
# Made by tools/make_completions.py from the program's help.

_tarnwick_cli() {
    local cur prev words cword split
    _init_completion -s -n : || return
    local command="" options="" word
    for word in "${words[@]:1:cword-1}"; do
        if [[ $word != -* ]]; then
            command=$word
            break
        fi
    done
    case $command:$prev in
        solve:--fen | \
        solve:--mate | \
        solve:--id | \
        solve:--time | \
        solve:--nodes | \
        solve:--threads | \
        solve:--scheduler | \
        solve:--data | \
        solve:--data-memory | \
        solve:--checkpoint | \
        solve:--register-size | \
        analyze:--fen | \
        analyze:--mate | \
        analyze:--id | \
        show:--fen | \
        show:--id | \
        convert:--id | \
        diagram:--fen | \
        diagram:--id | \
        diagram:--size | \
        tables:--men | \
        tables:--threads | \
        tables:--fen | \
        tables:--count | \
        tables:--form | \
        perft:--fen)
            return
            ;;
        solve:--memory)
            COMPREPLY=($(compgen -W '20%' -- "$cur"))
            return
            ;;
        solve:--heuristics)
            COMPREPLY=($(compgen -W 'auto none' -- "$cur"))
            return
            ;;
        solve:--relax | \
        solve:--pass2)
            COMPREPLY=($(compgen -W 'on off' -- "$cur"))
            return
            ;;
        solve:--register)
            _filedir '@(tmpReg)'
            return
            ;;
        solve:--solved | \
        solve:--log-moves | \
        tables:--data)
            _filedir -d
            return
            ;;
        format:-o | \
        format:--output)
            _filedir
            return
            ;;
        convert:--to)
            COMPREPLY=($(compgen -W 'cp epd pgn' -- "$cur"))
            return
            ;;
        diagram:-o | \
        diagram:--output)
            _filedir '@(svg|png)'
            return
            ;;
        diagram:--style)
            COMPREPLY=($(compgen -W 'print window hatched plain' -- "$cur"))
            return
            ;;
    esac
    case $command in
        "") options='-h --help --version solve analyze show lint format convert diagram tables perft bench help' ;;
        solve) options='-h --help --fen --mate --id --all --time --nodes --threads --memory --quick --safe --no-scout --scheduler --custom-scheduler --heuristics --relax --pass2 --no-forced --data --data-memory --register --checkpoint --register-size --compress --solved --log-moves --brief --json' ;;
        analyze) options='-h --help --fen --mate --id --no-trials --json' ;;
        show) options='-h --help --fen --id --unicode --ascii' ;;
        lint) options='-h --help --json' ;;
        format) options='-h --help -o --output -i --in-place' ;;
        convert) options='-h --help --to --id' ;;
        diagram) options='-h --help --fen --id -o --output --size --style --black-below --coordinates --stipulation' ;;
        tables) options='-h --help --data --json --men --threads --with-dependencies --anew --partial --fix --board-rules --fen --count --form' ;;
        perft) options='-h --help --fen --divide' ;;
        bench) options='-h --help --json' ;;
        help) options='-h --help' ;;
    esac
    if [[ $cur == -* || -z $command ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi
    case $command in
        solve) _filedir '@(cp|epd)' ;;
        analyze) _filedir '@(cp|epd)' ;;
        show) _filedir '@(cp|epd)' ;;
        lint) _filedir '@(cp|epd)' ;;
        format) _filedir '@(cp|epd)' ;;
        convert) _filedir ;;
        diagram) _filedir '@(cp|epd)' ;;
        tables) COMPREPLY=($(compgen -W 'list info generate verify probe longest stats pack unpack' -- "$cur")) ;;
        help) COMPREPLY=($(compgen -W 'solve analyze show lint format convert diagram tables perft bench help' -- "$cur")) ;;
    esac
}

complete -F _tarnwick_cli tarnwick-cli
