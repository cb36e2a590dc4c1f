# Runs the completion function as the shell does.
set -uo pipefail
source "$1"
failed=0

# expect "LINE" WORDS...: what completes the last word of the line, which may be empty.
expect() {
    local line=$1
    shift
    read -r -a COMP_WORDS <<<"$line"
    [[ $line == *' ' ]] && COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    _eboconf
    if [[ "${COMPREPLY[*]}" != "$*" ]]; then
        echo "'$line': ${COMPREPLY[*]:-nothing} and not ${*:-nothing}"
        failed=1
    fi
}

expect 'eboconf ' check dump defaults explain diff export schema keys --help --version
expect 'eboconf d' dump defaults diff
expect 'eboconf --v' --version
expect 'eboconf ex' explain export
expect 'eboconf dump --' --part --verbose --help
expect 'eboconf check --part ' full aec beamform ao agc
expect 'eboconf check --format ' text json sarif
expect 'eboconf diff --format ' text json
expect 'eboconf diff --part a' aec ao agc
expect 'eboconf export --d' --defaults
expect 'eboconf schema -' --help
expect 'eboconf keys --' --markdown --dictionary --names --help
expect 'eboconf keys agc.fRk' agc.fRk0 agc.fRk1 agc.fRk2
expect 'eboconf keys fast' fast_aec fast_aec.status
# Files are the shell's own business.
expect 'eboconf dump tun'
expect 'eboconf diff a.json '
[[ $(complete -p eboconf) == 'complete -o default -F _eboconf eboconf' ]] || failed=1
exit $failed
