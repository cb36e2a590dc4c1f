# Runs the completion function as the shell does.
set -uo pipefail
source "$1"
failed=0

# What the function takes back: that the shell offers files where there are no words.
compopt() { files=no; }

# expect "LINE" WORDS...: what completes the last word of the line, which may be empty.
expect() {
    local line=$1
    shift
    # The shell's own division of a line, in which "=" is a word.
    read -r -a COMP_WORDS <<<"${line//=/ = }"
    [[ $line == *[\ =] ]] && COMP_WORDS+=('')
    [[ $line == *= ]] && unset 'COMP_WORDS[-1]'
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    files=yes
    _eboconf
    if [[ "${COMPREPLY[*]}" != "$*" ]]; then
        echo "'$line': ${COMPREPLY[*]:-nothing} and not ${*:-nothing}"
        failed=1
    fi
}
# files "LINE": no words, so that the shell offers files; nothing "LINE": not even files.
files() { expect "$1" && [[ $files == yes ]] || { echo "'$1': no files"; failed=1; }; }
nothing() { expect "$1" && [[ $files == no ]] || { echo "'$1': files"; failed=1; }; }

expect 'eboconf ' dump defaults check diff explain export keys schema help
expect 'eboconf h' help
expect 'eboconf help c' check
expect 'eboconf check --color=' auto always never
expect 'eboconf d' dump defaults diff
expect 'eboconf --v' --version
expect 'eboconf dump --' --help --part --format --verbose
expect 'eboconf check --part ' auto full aec beamform ao agc
expect 'eboconf check --part=' auto full aec beamform ao agc
expect 'eboconf check --part=be' beamform
expect 'eboconf check --part=be --form' --format
expect 'eboconf check --part beam --format=s' sarif
expect 'eboconf check --explain EBO10' EBO100 EBO101 EBO102 EBO103 EBO104 EBO105 EBO106 EBO107 EBO108 EBO109
expect 'eboconf check --select=EBO20' EBO202 EBO203 EBO204 EBO205 EBO206 EBO208
expect 'eboconf check --ignore EBO104,EBO22,EBO21' EBO104,EBO22,EBO210 EBO104,EBO22,EBO211 EBO104,EBO22,EBO212 EBO104,EBO22,EBO213
expect 'eboconf check --strict --fail-on=w' warning
expect 'eboconf diff --format ' text json markdown
expect 'eboconf dump --part agc --' --help --format --verbose
expect 'eboconf dump --part=agc --' --help --format --verbose
expect 'eboconf dump --verbose --p' --part
expect 'eboconf dump keys --v' --verbose
expect 'eboconf schema -' --help
expect 'eboconf keys agc.fRk' agc.fRk0 agc.fRk1 agc.fRk2
expect 'eboconf keys fRk' fRk0 fRk1 fRk2
expect 'eboconf keys fast' fast_aec fast_aec.status
files 'eboconf dump tun'
files 'eboconf diff a.json '
files 'eboconf check -- --'
nothing 'eboconf schema '
nothing 'eboconf dump a.json '
nothing 'eboconf dump a.json -- '
nothing 'eboconf dump --part=x'
nothing 'eboconf keys -- a'
nothing 'eboconf help check '
nothing 'eboconf help -- '
# Short names only to who has begun one.
COMP_WORDS=(eboconf keys '') COMP_CWORD=2
_eboconf
[[ " ${COMPREPLY[*]} " == *' agc.fRk0 '* && " ${COMPREPLY[*]} " != *' fRk0 '* ]] || { echo "keys: ${COMPREPLY[*]}"; failed=1; }
[[ $(complete -p eboconf) == 'complete -o default -F _eboconf eboconf' ]] || failed=1
exit $failed
