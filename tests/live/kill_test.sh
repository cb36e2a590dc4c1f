#!/bin/bash
# Kills a product at each call of the system that it makes while it keeps a file; at the next start, with a file that
# is broken, it runs with one of the two that it had: kill_test.sh KEEP NUMBER
set -uo pipefail

keep=$1 number=$2
work=$(mktemp -d)
pid=
trap '[[ -z $pid ]] || kill -KILL "$pid" 2>/dev/null; rm -rf "$work"' EXIT
file=$work/tuning.json
for n in 1 2 3; do "$number" "$n" >"$work/$n"; done
mkfifo "$work/go"
export ASAN_OPTIONS=detect_leaks=0 # which cannot look into a process that is traced

fail() {
    echo "kill_test: $1" >&2
    ls -l "$work" >&2
    exit 1
}

# Waits until the command succeeds.
await() {
    local i
    for ((i = 0; i < 2000; ++i)); do
        ! "$@" || return 0
        sleep 0.005
    done
    fail "in vain: $*"
}

is_ready() { grep -q ready "$work/said"; }
is_traced() { grep -q attached "$work/strace"; }

# With 1 kept, and then 2: reads 3 (WHAT is reload) or rejects 2, with strace and these options at its loading thread.
# False when it was killed. A loaded machine may keep strace from the thread: then all starts again.
misses=0
run_traced() {
    local what=$1 tracer status=0
    rm -f "$file"*
    cp "$work/1" "$file" && "$keep" "$file" start >/dev/null && cp "$work/2" "$file" || fail "no start"
    "$keep" "$file" "$what" <"$work/go" >"$work/said" &
    pid=$!
    exec 9>"$work/go"
    await is_ready
    [[ $what == reject ]] || cp "$work/3" "$file"
    thread=$(find "/proc/$pid/task" -mindepth 1 -maxdepth 1 ! -name "$pid" -printf '%f\n')
    : >"$work/strace"
    strace -p "$thread" "${@:2}" 2>"$work/strace" &
    tracer=$!
    while ! is_traced && kill -0 "$tracer" 2>/dev/null; do sleep 0.005; done
    if ! is_traced; then
        ((++misses < 20)) || fail "strace does not come to the thread: $(<"$work/strace")"
        exec 9>&-
        { kill -KILL "$pid"; wait "$pid" "$tracer"; } 2>/dev/null
        run_traced "$@"
        return
    fi
    echo >&9
    exec 9>&-
    { wait "$pid" || status=1; } 2>/dev/null
    pid=
    wait "$tracer"
    return $status
}

# With a file that is broken: what is kept?
next_start() {
    : >"$file"
    "$keep" "$file" start
}

kills=0
# Kills WHAT at every call that has to do with files; each next start must say one of EXPECTED, and each of them must come up.
kill_everywhere() {
    local what=$1 expected=$2 call count n said tries seen=
    run_traced "$what" -o "$work/calls" -e trace=%file,%desc || fail "strace does not work: $(<"$work/strace")"
    while read -r count call; do
        for ((n = 1; n <= count; ++n)); do
            # A thread that is just being seized may slip through strace's fingers.
            tries=0
            while run_traced "$what" -o /dev/null -e "trace=$call" -e "inject=$call:signal=KILL:when=$n"; do
                ((++tries < 5)) || fail "not killed at $call $n"
            done
            ((++kills))
            said=$(next_start) || fail "no start after $call $n of $what"
            [[ " $expected " == *" $said "* ]] || fail "$what killed at $call $n: the next start runs with $said"
            [[ $(next_start) == "$said" ]] || fail "$what killed at $call $n: the second start runs with another one"
            [[ " $seen " == *" $said "* ]] || seen+=" $said"
        done
    done < <(sed -n 's/^\([a-z_0-9]*\)(.*/\1/p' "$work/calls" | grep -v '^poll' | sort | uniq -c)
    for n in $expected; do
        [[ " $seen " == *" $n "* ]] || fail "no kill of $what was such that $n was left"
    done
}

kill_everywhere reload "2 3"
kill_everywhere reject "1 2"
echo "killed $kills times"
