#!/bin/bash
# The scans of a first start with the archives of a whole real game: what they find is compared with what unzip, strings
# and ImageMagick find in the same files. Needs openarena-data.
# shellcheck source-path=SCRIPTDIR disable=SC2119
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"

data=/usr/share/games/openarena/baseoa
reference=$scratch/reference

start_display

begin 'what the archives hold, by other means'
new_world
rm "$app/usermaps.txt" "$app/usermdls.txt"
for archive in "$data"/*.pk3; do
    [[ -e $archive ]] || fail "no archives in $data (package openarena-data)"
    name=${archive##*/}
    # Under its own name the first one would be the game's own archive, out of which no maps and models are taken.
    if [[ $name == pak0.pk3 ]]; then name=oa-$name; fi
    ln -s "$archive" "$game/baseq3/$name"
done
count=$(find "$game/baseq3" -name '*.pk3' | wc -l)
((count == 9)) || fail "$count archives, expected 9"
mkdir "$reference"
python3 "$e2e_dir/archives.py" "$game/baseq3" "$reference" || fail 'no reference'
read -r maps untitled shots models skins icons <"$reference/counts"
((maps > 0 && untitled > 0 && shots > 0 && models > 0 && skins > 0 && icons > 0)) ||
    fail "nothing of a kind: $(cat "$reference/counts")"
archives_state() { find "$data" -type f -printf '%P %s %T@\n' | sort; }
snapshot >"$scratch/before"
archives_state >"$scratch/archives"

# Says No to every map without a title until the other scan is offered; not by Escape, which stops a scan if it comes late.
refuse_untitled() {
    local tries window
    for ((tries = 0; tries < time_limit * 10; tries++)); do
        xdotool search --onlyvisible --name '^User Model Search' >/dev/null 2>&1 && return
        is_running "$program_pid" || fail 'ended in the scan'
        window=$(xdotool search --onlyvisible --name '^Map Error' 2>/dev/null | tail -n 1) || true
        if [[ -n $window ]] && xdotool windowactivate --sync "$window" 2>/dev/null; then press alt+n; fi
        sleep 0.1
    done
    fail 'the scan for maps does not end'
}

expect_same() {
    cmp -s "$reference/$1" "$2" && return
    diff "$reference/$1" "$2" | head -n 20 | cat -v >&2 || true
    fail "$1 is another than wanted"
}

begin 'a first start scans them'
start_program
wait_for_window '^User Map Search'
press Return
refuse_untitled
wait_for_window '^User Model Search'
press Return
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
picture archives
expect_same usermaps.txt "$app/usermaps.txt"
expect_same usermdls.txt "$app/usermdls.txt"
press alt+F4
expect_end 0
expect_silence
expect_logged "finished extracting $maps new maps, $shots new map previews"
expect_logged "finished extracting $models new models, $skins new skins,$icons new previews"

begin 'maps, level shots and skins'
# On leaving, the program has read the maps back in and put its comment above them.
sed '/^\/\//d' "$app/usermaps.txt" >"$scratch/usermaps.txt"
expect_same usermaps.txt "$scratch/usermaps.txt"
expect_same usermdls.txt "$app/usermdls.txt"
diff -r "$reference/levelshots" "$app/levelshots" >&2 || fail 'other level shots'
refused=$(grep -ac '^user canceled' "$app"/*-errorlog.txt)
[[ $refused == "$untitled" ]] || fail "asked about $refused maps without a title, not $untitled"
! grep -aF 'left out: ' "$app"/*-errorlog.txt >&2 || fail 'something was left out'

begin 'icons, point by point'
# The packed pictures begin with the lowest line. The program writes no transparency, so theirs is taken off, not laid
# over anything.
while IFS= read -r -d '' icon; do
    bmp=$app/${icon%.*}.bmp
    expect_file "$bmp"
    [[ $(identify -format '%wx%h %A' "$bmp") == "$(identify -format '%wx%h' "$reference/$icon") False" ]] ||
        fail "of another size, or with transparency: $bmp"
    different=$(convert "$reference/$icon" -auto-orient -alpha off miff:- |
        compare -metric AE - "$bmp" null: 2>&1) || true
    [[ $different == 0 ]] || fail "$different points differ in $bmp"
done < <(cd "$reference" && find models -name '*.tga' -print0)

begin 'nothing else was written'
archives_state | cmp -s - "$scratch/archives" || fail 'the archives are others'
wanted=("${options#"$world/"}")
while IFS= read -r name; do
    wanted+=("${app#"$world/"}/${name/%.tga/.bmp}")
done < <(printf '%s\n' usermaps.txt usermdls.txt default.ghc STAMP-errorlog.txt
    cd "$reference" && find models levelshots/*)
expect_only_changed "$scratch/before" "${wanted[@]}"
expect_no_file "$app/maps"

case_name=
printf '%s maps (%s without a title), %s level shots, %s models, %s skins, %s icons\nall passed\n' \
    "$maps" "$untitled" "$shots" "$models" "$skins" "$icons"
