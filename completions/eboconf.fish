# Completion of eboconf for fish: put this file into ~/.config/fish/completions.

complete -c eboconf -s h -l help -d 'Print help'
complete -c eboconf -n __fish_use_subcommand -l version -d 'Print the version'

complete -c eboconf -f -n __fish_use_subcommand -a check -d 'Find everything wrong with tuning files'
complete -c eboconf -f -n __fish_use_subcommand -a dump -d 'Print the records that a file loads'
complete -c eboconf -f -n __fish_use_subcommand -a defaults -d 'Print the built-in defaults'
complete -c eboconf -f -n __fish_use_subcommand -a explain -d 'Show what becomes of each module'
complete -c eboconf -f -n __fish_use_subcommand -a diff -d 'Compare what two files load'
complete -c eboconf -f -n __fish_use_subcommand -a export -d 'Write what a file loads back as a tuning file'
complete -c eboconf -f -n __fish_use_subcommand -a schema -d 'Print the JSON Schema of a tuning file'
complete -c eboconf -f -n __fish_use_subcommand -a keys -d 'Explain sections and keys'

complete -c eboconf -n '__fish_seen_subcommand_from check dump explain diff export' \
    -l part -x -a 'full aec beamform ao agc' -d 'Loader to use'
complete -c eboconf -n '__fish_seen_subcommand_from check' -l strict -d 'Take warnings for problems'
complete -c eboconf -n '__fish_seen_subcommand_from check' -l format -x -a 'text json sarif' -d 'Form of the report'
complete -c eboconf -n '__fish_seen_subcommand_from diff' -l format -x -a 'text json' -d 'Form of the report'
complete -c eboconf -n '__fish_seen_subcommand_from dump' -l verbose -d 'Tell what was loaded from where'
complete -c eboconf -n '__fish_seen_subcommand_from export' -l defaults -d 'The built-in defaults'
complete -c eboconf -n '__fish_seen_subcommand_from keys' -l markdown -d 'The whole reference'
complete -c eboconf -n '__fish_seen_subcommand_from keys' -l dictionary -d 'A dictionary for fuzzers'
complete -c eboconf -n '__fish_seen_subcommand_from keys' -l names -d 'The names alone'
complete -c eboconf -f -n '__fish_seen_subcommand_from keys' -a '(eboconf keys --names 2>/dev/null)'
complete -c eboconf -f -n '__fish_seen_subcommand_from defaults schema'
