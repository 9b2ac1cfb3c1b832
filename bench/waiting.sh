#!/bin/bash
# What the program takes from the game while a benchmark waits: processor time and wake-ups of twenty seconds within one
# long iteration, on a display of its own with a window manager.
# Usage: bench/waiting.sh [BUILD FOLDER] [SECONDS]
# shellcheck disable=SC2154
set -euo pipefail

build=$(cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../build-bench}" && pwd)
seconds=${2:-20}
if [[ ${1:-} ]]; then shift; fi
export GATEHOUSE_BUILD=$build
tests=$(cd "$(dirname "${BASH_SOURCE[0]}")/../tests/e2e" && pwd)
# shellcheck source=tests/e2e/lib.sh
. "$tests/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$tests/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$tests/accessible.sh"

on_own_bus "$build" "$seconds"
new_world
write_options democount=3 lastcfg="$(program_path "$app/one.ghc")" ghcdir="$(program_path "$documents/")"
printf 'base cfgtype 3\r\n' >"$app/one.ghc"
printf 'seta r_picmip 0\r\n' >"$documents/fast.ghc"
start_display
offer_accessibility
export PRACTICE_DEMO_MS=$((seconds * 1000 + 10000))
start_program
"$python" "$tests/benchmark.py" play "$game" "$app"
sleep 2

# Ticks of the processor (100 a second) and wake-ups so far.
spent() {
    awk '{ print $14 + $15 }' "/proc/$program_pid/stat"
    awk '/^voluntary_ctxt_switches/ { print $2 }' "/proc/$program_pid/status"
}
mapfile -t before < <(spent)
sleep "$seconds"
mapfile -t after < <(spent)
awk -v ticks=$((after[0] - before[0])) -v wakes=$((after[1] - before[1])) -v s="$seconds" \
    'BEGIN { printf "%.2f %% of a core, %.1f wake-ups a second\n", ticks / s, wakes / s }'
case_name=
