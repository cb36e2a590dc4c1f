# Asks the shell itself what it would offer.
source $argv[1]

# expect LINE WORDS...
function expect
    set -l found (complete -C "$argv[1]" | string split -f1 \t)
    if test "$found" != "$argv[2..]"
        echo "'$argv[1]': $found and not $argv[2..]"
        set -g failed 1
    end
end

set -g failed 0
expect 'eboconf d' defaults diff dump
expect 'eboconf ex' explain export
expect 'eboconf --v' --version
expect 'eboconf dump --v' --verbose
expect 'eboconf check --part ' aec agc ao auto beamform full
expect 'eboconf check --part=be' --part=beamform
expect 'eboconf check --format ' github gitlab json junit sarif text
expect 'eboconf diff --format ' json markdown text
expect 'eboconf export --d' --defaults
expect 'eboconf keys agc.fRk' agc.fRk0 agc.fRk1 agc.fRk2
expect 'eboconf keys fRk' fRk0 fRk1 fRk2
expect 'eboconf keys -- a'
expect 'eboconf dump docs/ma' docs/man/
expect 'eboconf dump -- docs/ma' docs/man/
expect 'eboconf schema docs/ma'
exit $failed
