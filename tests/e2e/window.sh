#!/bin/bash
# The window as a screen reader and a keyboard meet it: everything is found by its accessible name. A person chooses to
# host a game, names the server, picks maps and a bot, binds a key and runs the game. With PICTURES=FOLDER it leaves
# pictures there.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"

# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

on_own_bus "$@"
start_display
offer_accessibility

begin 'host a game by names alone'
new_world
start_program
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
"$python" "$e2e_dir/window.py" || fail 'the window could not be driven'
picture window

config=$game/baseq3/gatehouse.cfg
for ((tries = 0; tries < 100; tries++)); do
    [[ -s $journal ]] && break
    sleep 0.1
done
[[ -s $journal ]] || fail 'the game was not started'
while IFS= read -r line; do
    tr -d '\r' <"$config" | tr -s ' ' | grep -qaFx -- "$line" || fail "not in the game's config: $line"
done <<'LINES'
sv_hostname "Over the Bus"
seta map5 "map Q3TOURNEY1; set nextmap vstr map6"
seta map6 "map Q3TOURNEY3; set nextmap vstr map1"
addbot Anarki 1 Red
bind f7 "+button3"
LINES

begin 'the end asks about the changes'
wait_for_window "^${title//\\/.}"
press alt+F4
wait_for_window '^Exit Gatehouse'
press alt+n
expect_end 0
grep -qaF 'Over the Bus' "$app/default.ghc" && fail 'changes were saved that nobody wanted'

case_name=
printf 'all passed\n'
