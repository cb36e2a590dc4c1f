# Asks an interactive shell what it would offer, through a terminal of its own.
zmodload zsh/zpty || exit 1
file=$1
integer failed=0

# Instead of offering words, the shell prints them between two marks.
setup=$(mktemp -d)
trap 'rm -rf $setup' EXIT
cat >$setup/.zshrc <<'END'
PS1= RPS1=
unsetopt prompt_sp prompt_cr
fpath=($COMPLETIONS $fpath)
autoload -Uz compinit
compinit -D -u
compadd() {
    if [[ ${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]]; then
        builtin compadd "$@"
        return $?
    fi
    local -a hits
    builtin compadd -A hits "$@"
    print -rl -- $hits
}
offer() {
    print -l '' BEGIN
    _main_complete
    print END
    compstate[insert]= compstate[list]=
}
zle -C offer complete-word offer
bindkey '^I' offer
bindkey '^U' kill-whole-line
print READY
END
export COMPLETIONS=${file:A:h} ZDOTDIR=$setup
zpty shell zsh -d -i

# The next line that the shell prints; fails when none comes for long.
next_line() {
    local i
    for i in {1..100}; do
        if zpty -r -t shell line; then
            line=${line//[$'\r\n']/}
            return 0
        fi
        sleep 0.1
    done
    return 1
}
await() {
    while next_line; do
        [[ $line == *$1 ]] && return 0
    done
    print "the shell never says $1"
    exit 1
}

# expect LINE WORDS...: in alphabetical order
expect() {
    local line
    local -a words
    zpty -w -n shell "$1"$'\t'
    await BEGIN
    while next_line && [[ $line != END ]]; do
        words+=($line)
    done
    zpty -w -n shell $'\x15'
    local found=${(j: :)${(o)words}}
    if [[ $found != "${*[2,-1]}" ]]; then
        print -r -- "'$1': $found and not ${*[2,-1]}"
        failed=1
    fi
}

await READY
expect 'eboconf d' defaults diff dump
expect 'eboconf ex' explain export
expect 'eboconf check --part ' aec agc ao auto beamform full
expect 'eboconf check --part=be' --part=beamform
expect 'eboconf check --format ' github gitlab json junit sarif text
expect 'eboconf diff --format ' json markdown text
expect 'eboconf export --d' --defaults
expect 'eboconf keys agc.fRk' agc.fRk0 agc.fRk1 agc.fRk2
expect 'eboconf keys fRk' fRk0 fRk1 fRk2
expect 'eboconf keys -- a'
expect 'eboconf dump docs/ma' man
expect 'eboconf dump -- docs/ma' man
expect 'eboconf schema docs/ma'
zpty -d shell
exit $failed
