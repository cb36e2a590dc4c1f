# Completion of eboconf for bash: source this file, or put it where bash-completion looks for the command's name.

# The tool itself says what fits. Bash takes "--part=be" for three words: they are one again here, and what it inserts
# stands after the "=".
_eboconf() {
    local words=() word before='' after_equals=''
    for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        if [[ ${#words[@]} -gt 0 && ($word == = || $before == =) && ${words[-1]} == --* ]]; then
            words[-1]+=$word
            after_equals=yes
        else
            words+=("$word")
            after_equals=''
        fi
        before=$word
    done

    local lines
    lines=$("${COMP_WORDS[0]}" complete -- "${words[@]}" 2>/dev/null) && compopt +o default 2>/dev/null
    mapfile -t COMPREPLY < <(cut -f 1 <<<"$lines" | grep .)
    [[ $after_equals ]] && COMPREPLY=("${COMPREPLY[@]#*=}")
}

complete -o default -F _eboconf eboconf
