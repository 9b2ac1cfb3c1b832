#!/bin/bash
# A first start with archives in the game's folder, by accessible names: the scans, then a map out of another archive,
# the rotation, the picture at three sizes, a map deleted; and the same by the keyboard alone.
# With PICTURES=FOLDER it leaves pictures there.
# shellcheck source-path=SCRIPTDIR disable=SC2119,SC2154
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

on_own_bus "$@"

begin 'a game with archives'
new_world
start_display
offer_accessibility
rm "$app/usermaps.txt" "$app/usermdls.txt"
cp "$e2e_dir/../../data/ghnoshot.jpg" "$app/"
convert -size 640x480 gradient:orange-navy "$scratch/shot.jpg"
convert -size 64x64 gradient:white-red -type TrueColorMatte -compress RLE "$scratch/icon.tga"
"$python" "$e2e_dir/content.py" make "$game/baseq3" "$documents" "$scratch" || fail 'no archives'

begin 'a first start, driven by names'
start_program
"$python" "$e2e_dir/content.py" drive "$documents/more.pk3" || fail 'the window could not be driven'
picture content

begin 'the same by the keyboard alone'
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
PICTURES=${PICTURES:-} "$python" "$e2e_dir/content.py" type "$documents/more.pk3" || fail 'not by the keyboard'

begin 'what is left is what was wanted'
wait_for_window "^${title//\\/.}"
press alt+F4
wait_for_window '^Exit Gatehouse'
press alt+n
expect_end 0
expect_silence
[[ $(grep -cva '^//' "$app/usermaps.txt") == 33 ]] || fail "user maps: $(cat "$app/usermaps.txt")"
for line in 'BIG00 Big One 0' 'YARD Old Yard' 'UNTOLD ' 'ADDED The added one' 'BIG29 Big One 29'; do
    grep -qaFx "$line"$'\r' "$app/usermaps.txt" || fail "no user map $line"
done
grep -qa '^OTHER' "$app/usermaps.txt" && fail 'a map that was deleted and is in no archive of the game came back'
[[ $(cat "$app/usermdls.txt") == $'Robot/Red\r' ]] || fail "models: $(cat "$app/usermdls.txt")"
for file in levelshots/yard.jpg levelshots/added.jpg; do cmp "$scratch/shot.jpg" "$app/$file" || fail "$file"; done
convert "$scratch/icon.tga" -auto-orient "$scratch/icon.png"
[[ $(compare -metric AE "$scratch/icon.png" "$app/models/players/robot/icon_red.bmp" null: 2>&1) == 0 ]] || fail 'the icon differs'
expect_no_file "$app/maps"
expect_logged 'finished extracting 32 new maps, 1 new map previews'

case_name=
printf 'all passed\n'
