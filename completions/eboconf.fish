# Completion of eboconf for fish: put this file into ~/.config/fish/completions.

# The tool itself says what fits.
function __eboconf_complete
    set -l words (commandline -opc) (commandline -ct)
    $words[1] complete -- $words[2..] 2>/dev/null
    or __fish_complete_path (commandline -ct)
end

complete -c eboconf -f -a '(__eboconf_complete)'
