# The man page knows every command and every option of the tool, and names no option that the tool does not have.
set -uo pipefail
file=$1
failed=0

# Long options in a text; the page writes them "Fl -part", and "Fl -to-part" too.
options_in() { grep -o -E -e '(^|[^-[:alnum:]])--[a-z][a-z-]*' -e 'Fl -[a-z][a-z-]*' | sed 's/^.*[^a-z-]//; s/^-*//' | sort -u; }

commands=$(eboconf --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p')
[[ $(wc -w <<<"$commands") -ge 8 ]] || { echo "no commands in --help"; exit 1; }
for command in $commands; do
    grep -q -w -- "$command" "$file" || { echo "$file does not name the command $command"; failed=1; }
done

has=$({ eboconf --help; for command in $commands; do eboconf "$command" --help; done; } | options_in)
names=$(grep -v -e '^\.Dl' "$file" | options_in)
difference=$(diff <(echo "$has") <(echo "$names")) || { echo "options of the tool and of $file:"; echo "$difference"; failed=1; }
exit $failed
