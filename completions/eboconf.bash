# Completion of eboconf for bash: source this file, or put it where bash-completion looks for the command's name.

_eboconf() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' i options=''
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            command=${COMP_WORDS[i]}
            break
        fi
    done
    COMPREPLY=()

    case $before in
        --part)
            mapfile -t COMPREPLY < <(compgen -W 'full aec beamform ao agc' -- "$word")
            return
            ;;
        --format)
            local forms='text json'
            [[ $command == check ]] && forms+=' sarif'
            mapfile -t COMPREPLY < <(compgen -W "$forms" -- "$word")
            return
            ;;
    esac

    case $command in
        '')
            mapfile -t COMPREPLY < <(compgen -W \
                'check dump defaults explain diff export schema keys --help --version' -- "$word")
            return
            ;;
        check) options='--part --strict --format' ;;
        dump) options='--part --verbose' ;;
        explain) options='--part' ;;
        diff) options='--part --format' ;;
        export) options='--part --defaults' ;;
        keys) options='--markdown --dictionary --names' ;;
    esac

    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
    elif [[ $command == keys ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$("${COMP_WORDS[0]}" keys --names 2>/dev/null)" -- "$word")
    fi
    # Without a word of ours, the shell offers files.
}

complete -o default -F _eboconf eboconf
