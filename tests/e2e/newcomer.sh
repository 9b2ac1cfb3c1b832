#!/bin/bash
# What a newcomer meets, by the keyboard alone: the questions of a first start, a wrong answer among them, the overview,
# a running game. Then the help: F1, the way back, the search. Then a document and a list that are opened by their files.
# With PICTURES=FOLDER it leaves pictures there.
# Usage: newcomer.sh [ROOT]; with ROOT, it is the program that is installed in that system.
# shellcheck source-path=SCRIPTDIR disable=SC2119,SC2154
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

on_own_bus "$@"

begin 'a game, and nothing else'
new_world
rm -r "$options" "$app"
# The game goes by another name here.
mv "$game/quake3.exe" "$game/ioquake3"
printf 'seta name "Old Hand"\r\n' >"$game/baseq3/q3config.cfg"
through=()
if [[ -n ${1:-} ]]; then
    # The world, and what leads to the message buses, is to be seen in there as well.
    bus=$(sed -n 's/.*unix:path=\([^,;]*\).*/\1/p' <<<"$DBUS_SESSION_BUS_ADDRESS")
    for shared in "$scratch" "$XDG_RUNTIME_DIR" "$bus"; do
        if [[ -d $shared ]]; then mkdir -p "$1$shared"; elif [[ -e $shared ]]; then : >"$1$shared"; else continue; fi
        mount --bind "$shared" "$1$shared"
        mounted+=("$1$shared")
    done
    program=/usr/bin/gatehouse
    through=(chroot "$1" env)
fi
start_display
offer_accessibility

begin 'a first start, by the keyboard alone'
started=$SECONDS
start_program "${through[@]}"
wait_for_window '^Inital Setup'
press alt+y
wait_for_window '^Where is quake3.exe'
picture where
press ctrl+a
xdotool type --delay 5 "$game/no such game"
press Return
wait_for_window '^Where is quake3.exe' # the box that refuses bears the dialog's title
picture refused
press Return
wait_for_window '^Where is quake3.exe'
press ctrl+a
xdotool type --delay 5 "$game/ioquake3"
press Return
wait_for_window '^First Time Setup'
press Return
wait_for_window '^User Map Search'
press Return
wait_for_window '^User Model Search'
press Return
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
"$python" "$e2e_dir/newcomer.py" overview || fail 'no overview'
window_picture help
press ctrl+2
press ctrl+r
for ((tries = 0; tries < 100; tries++)); do
    grep -qs '^run pid' "$journal" && break
    sleep 0.1
done
grep -qs '^run pid' "$journal" || fail 'the game does not run'
printf '   %s seconds to a running game\n' "$((SECONDS - started))"
((SECONDS - started < 120)) || fail 'more than two minutes'
[[ $(option basedir) == "$(program_path "$game/")" ]] || fail "basedir is $(option basedir)"
grep -qa '^ioquake3 ' "$game/baseq3/gatehouse.bat" || fail 'another program would be started'
end_games

begin 'the help, and back'
wait_for_window "^${title//\\/.}"
PICTURES=${PICTURES:-} "$python" "$e2e_dir/newcomer.py" help || fail 'the help'
wait_for_window "^${title//\\/.}"
press alt+F4
expect_end 0
expect_silence

begin 'a document and a list, opened by their files'
cp "$app/default.ghc" "$documents/Red War.ghc"
cp "$app/default.ghc" "$documents/red war.ghc"
printf 'seta sv_hostname "Told Apart"\r\n' >>"$documents/Red War.ghc"
program_arguments=("$documents/Red War.ghc")
start_program "${through[@]}"
title=$(program_path "$documents/red war.ghc")
wait_for_window "^${title//\\/.}"
"$python" "$e2e_dir/newcomer.py" opened || fail 'another document'
wait_for_window "^${title//\\/.}"
window_picture main-window
press alt+F4
expect_end 0
expect_silence
printf 'Bridge|P|   0|0/8|FFA|q3dm17|127.0.0.1:27960|\r\n' >"$documents/list.ghs"
program_arguments=("$documents/list.ghs")
start_program "${through[@]}"
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
"$python" "$e2e_dir/newcomer.py" listed || fail 'another list'
wait_for_window "^${title//\\/.}"
press alt+F4
expect_end 0
expect_silence

case_name=
printf 'all passed\n'
