# The reference fits the terminal, and is 80 columns wide elsewhere. Without colours, so that a line's length is its width.
set -eu
longest() { tr -d '\r' | awk '{ if (length($0) > n) n = length($0) } END { print n }'; }
on_terminal() { NO_COLOR=1 script -qec "stty cols $2; $1 keys" /dev/null </dev/null | longest; }

test "$(on_terminal "$1" 60)" -le 60
wide=$(on_terminal "$1" 150)
test "$wide" -gt 100
test "$wide" -le 150
piped=$("$1" keys | longest)
test "$piped" -gt 70
test "$piped" -le 80
