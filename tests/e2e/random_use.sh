#!/bin/bash
# Random use of the window, killed at random moments: what was saved is whole afterwards, and the next start needs no
# hand. Not one of the ordinary tests, as it takes as long as one lets it.
#
#   random_use.sh [MINUTES [SEED]]
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

minutes=${1:-1}
RANDOM=${2:-$$}
seed=${2:-$$}
on_own_bus "$minutes" "$seed"
start_display
offer_accessibility
begin "random use, seed $seed"
new_world
write_options runoptions=2
cp "$golden_dir/default/resaved.ghc" "$app/default.ghc"

# Nothing but the main window is there: no box asks for a hand.
expect_no_box() {
    local one
    for one in $(xdotool search --onlyvisible --name .); do
        case $(xdotool getwindowname "$one") in
            *.ghc | Openbox* | openbox* | '') ;;
            *) fail "a box at the start: $(xdotool getwindowname "$one")" ;;
        esac
    done
}

kills=0
time_limit=10
while ((SECONDS < minutes * 60)); do
    start_program
    wait_for_window '\.ghc$'
    expect_no_box
    "$python" "$e2e_dir/random_use.py" use "$RANDOM" >"$scratch/use.log" 2>&1 &
    user=$!
    sleep "$((RANDOM % 8)).$((RANDOM % 10))"
    kill -KILL "$program_pid" 2>/dev/null || fail "it ended by itself: $(tail -n 5 "$scratch/stderr")"
    wait "$program_pid" 2>/dev/null || true
    kill -KILL "$user" 2>/dev/null || true
    wait "$user" 2>/dev/null || true
    kills=$((kills + 1))
    "$python" "$e2e_dir/random_use.py" check "$options" "$app" "$game" "$golden_dir/default/resaved.ghc" ||
        fail "after kill $kills, seed $seed"
done

case_name=
printf 'random use: %s minutes, %s kills, all kept\n' "$minutes" "$kills"
