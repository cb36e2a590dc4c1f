# The differences are coloured on a terminal, and not with NO_COLOR, on a dumb terminal or in a pipe; or as --color says.
set -eu
diff="$1 diff two.json two-changed.json"
escape=$(printf '\033')
count() { grep -c "$escape" || true; }

test "$(TERM=xterm NO_COLOR='' script -qec "$diff" /dev/null </dev/null | count)" -gt 10
test "$(TERM=xterm NO_COLOR=1 script -qec "$diff" /dev/null </dev/null | count)" -eq 0
test "$(TERM=dumb NO_COLOR='' script -qec "$diff" /dev/null </dev/null | count)" -eq 0
test "$(TERM=xterm NO_COLOR='' $diff | count)" -eq 0
test "$(TERM=xterm NO_COLOR='' $diff --color auto | count)" -eq 0
test "$(TERM=dumb NO_COLOR=1 $diff --color always | count)" -gt 10
test "$(TERM=xterm NO_COLOR='' script -qec "$diff --color=never" /dev/null </dev/null | count)" -eq 0
