#!/bin/bash
# Drives the example host through a day of its life: host_test.sh PROGRAM TUNINGS GOLDEN [HOW TO RUN PROGRAM...]
set -euo pipefail

program=$1 tunings=$2 golden=$3
run=("${@:4}")
work=$(mktemp -d)
pid=
trap '[[ -z $pid ]] || kill "$pid" 2>/dev/null; rm -rf "$work"' EXIT
file=$work/tuning.json

fail() {
    echo "host_test: $1" >&2
    cat "$work/output" "$work/log" >&2
    exit 1
}

# Waits until the component has said TEXT for the COUNTth time.
await() {
    local text=$1 count=$2 i
    for ((i = 0; i < 200; ++i)); do
        (($(grep -c -x "$text" "$work/output") < count)) || return 0
        kill -0 "$pid" 2>/dev/null || fail "it ended while '$text' was awaited"
        sleep 0.05
    done
    fail "it never said '$text' ($count)"
}

# In one step, as a product's updater would do it.
replace() {
    cp "$1" "$work/new.json"
    mv "$work/new.json" "$file"
}

start() {
    : >"$work/output"
    "${run[@]}" "$program" "$file" >"$work/output" 2>>"$work/log" &
    pid=$!
}

dumps=0
# What it dumps now is NAME's golden dump, and the engine has gone on meanwhile.
expect_tuning() {
    local before
    before=$(sed -n 's/component: dumped at frame //p' "$work/output" | tail -n 1)
    sleep 0.05
    : >"$work/log"
    kill -USR1 "$pid"
    await 'component: dumped at frame [0-9]*' $((++dumps))
    sed 's/^I KAAEboConfig [A-Za-z]*:[0-9]*: //' "$work/log" | diff -u "$work/expected.$1" - || fail "it does not run with $1"
    (($(sed -n 's/component: dumped at frame //p' "$work/output" | tail -n 1) > ${before:-0})) || fail "the engine stands"
}

stop() {
    kill -TERM "$pid"
    wait "$pid" || fail "it ended with status $?"
    pid=
    grep -q -x 'component: stopped' "$work/output" || fail "it did not stop in order"
}

for name in two-mic-speaker six-mic-conference; do
    cat "$golden/$name.aec.golden" "$golden/$name.beamform.golden" >"$work/expected.$name"
done
cp "$golden/defaults.golden" "$work/expected.defaults"
head -c 1000 "$tunings/two-mic-speaker.json" >"$work/cut-off.json"
sed '0,/"ksiThd_low"/s//"ksiThd_lower"/' "$tunings/two-mic-speaker.json" >"$work/key-missing.json"
sed '0,/"mic_chn_map": *"[0-9]*/s//"mic_chn_map": "17/' "$tunings/six-mic-conference.json" >"$work/aborts.json"

cp "$tunings/two-mic-speaker.json" "$file"
start
await 'component: capture path taken from the file' 1
expect_tuning two-mic-speaker

replace "$tunings/six-mic-conference.json"
await 'component: capture path taken from the file' 2
expect_tuning six-mic-conference

bad=0
for name in cut-off key-missing aborts; do
    replace "$work/$name.json"
    await 'component: capture path not taken: .*' $((++bad))
    expect_tuning six-mic-conference
done

# Written in place, as an editor may do it.
cat "$tunings/two-mic-speaker.json" >"$file"
await 'component: capture path taken from the file' 3
expect_tuning two-mic-speaker
stop

# A bad file from the beginning: the last good one, or without that defaults, until there is a good one.
dumps=0
cp "$work/aborts.json" "$file"
start
await 'component: capture path taken from the kept file' 1
expect_tuning two-mic-speaker
stop
rm "$file".*
dumps=0
start
await 'component: capture path taken from the defaults' 1
expect_tuning defaults
replace "$tunings/six-mic-conference.json"
await 'component: capture path taken from the file' 1
expect_tuning six-mic-conference
stop

# Nobody reads what it prints: its engine goes on, and so do the loads.
mkfifo "$work/unread"
"${run[@]}" "$program" "$file" >"$work/unread" 2>&1 &
pid=$!
exec 3<"$work/unread"
frames() { awk '/^voluntary/ { sum += $2 } END { print sum }' /proc/"$pid"/task/*/status; }
while (($(find /proc/"$pid"/task -mindepth 1 -maxdepth 1 | wc -l) < 3)); do sleep 0.05; done
for ((i = 0; i < 400; ++i)); do kill -USR1 "$pid"; sleep 0.005; done
before=$(frames)
sleep 1
after=$(frames)
((after - before > 30)) || fail "the engine stands while nobody reads: $((after - before)) frames in a second"
replace "$tunings/two-mic-speaker.json"
for ((i = 0; i < 200; ++i)); do
    ! cmp -s "$file" "$file.good-capture" || break
    sleep 0.05
done
cmp "$file" "$file.good-capture" || fail "it loads nothing while nobody reads"
kill -TERM "$pid"
cat <&3 >/dev/null &
wait "$pid" || fail "it ended with status $?"
pid=
