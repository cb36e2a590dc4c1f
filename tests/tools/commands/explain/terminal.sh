# Colours on a terminal only, and sentences as wide as the terminal. No escape of a file's own reaches the terminal.
set -eu
escape=$(printf '\033')
explain="$1 explain quirks.json"
on_terminal() { TERM=xterm script -qec "stty cols $1; $explain" /dev/null </dev/null | tr -d '\r'; }
longest() { awk '{ if (length($0) > n) n = length($0) } END { print n }'; }

test "$(NO_COLOR='' on_terminal 100 | grep -c "$escape")" -gt 15
test "$(NO_COLOR=1 on_terminal 100 | grep -c "$escape" || true)" -eq 0
test "$($explain | grep -c "$escape" || true)" -eq 0
test "$($explain --color always | grep -c "$escape")" -gt 15
test "$(NO_COLOR=1 on_terminal 200 | longest)" -gt 80
test "$($explain | longest)" -le 80
