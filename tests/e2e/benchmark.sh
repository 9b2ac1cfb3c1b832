#!/bin/bash
# Benchmarks with the practice game, by accessible names: two documents on two demos, a game that never comes to a
# result, pause and stop, and an end in mid-run. With PICTURES=FOLDER it leaves pictures there.
# shellcheck source-path=SCRIPTDIR disable=SC2119,SC2154
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

on_own_bus "$@"

begin 'a game with demos, and two documents'
new_world
write_options democount=3 benchwait=1 lastcfg="$(program_path "$app/one.ghc")" ghcdir="$(program_path "$documents/")"
start_display
offer_accessibility
mkdir "$game/baseq3/demos"
: >"$game/baseq3/demos/gone.dm3" # listed, and in the folder of another game by the time it is to be played
printf 'base cfgtype 3\r\n' >"$app/one.ghc"
printf 'seta r_picmip 0\r\n' >"$documents/fast.ghc"
printf 'seta r_picmip 3\r\nbase cfgtype 0\r\n' >"$documents/slow.ghc"
export PRACTICE_DEMO_MS=600
drive() { "$python" "$e2e_dir/benchmark.py" "$1" "$game" "$app" || fail "not driven: $1"; }

begin 'two documents, two demos, three iterations'
start_program
drive run
drive results
picture benchmark-results
drive again

begin 'a game that never comes to a result: Retry by the time-out, then Next; then a stop'
drive stale
drive stop
picture benchmark-stopped

begin 'an end in mid-run'
drive begin
kill -KILL "$program_pid"
wait "$program_pid" 2>/dev/null || true
drive kept

begin 'the window is closed while a run is on'
export PRACTICE_DEMO_MS=20000 # no other window comes up meanwhile
start_program
drive play
title=$(program_path "$documents/fast.ghc")
wait_for_window "^${title//\\/.}"
press alt+F4
expect_end 0
expect_silence
expect_no_file "$documents/gatehouse.cfg"

case_name=
printf 'all passed\n'
