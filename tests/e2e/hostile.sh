#!/bin/bash
# A first start with archives that nobody should trust in the game's folder: the scans end, nothing lands outside the
# program folder, memory stays small, and each thing that was left out is named.
# shellcheck source-path=SCRIPTDIR disable=SC2119,SC2154
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

most_memory=$((150 << 10)) # KiB

begin 'archives that lie'
new_world
rm "$app/usermaps.txt" "$app/usermdls.txt"
python3 "$e2e_dir/hostile.py" "$game/baseq3"
"$BASH" "$e2e_dir/hostile_archive.sh" "$game/baseq3/many.pk3" 200000
snapshot | grep -v '  ./Program Folder' >"$scratch/before"

begin 'the scans of a start live with them'
# Where nobody can be asked, what was left out is printed. The window stays, unseen, until it is ended.
world_environment
(cd "$world" && exec env "${without_display[@]}" "${environment[@]}" "$program") >"$scratch/stdout" 2>"$scratch/stderr" \
    </dev/null &
pid=$!
started_pids+=("$pid")
for ((tries = 0; tries < 1200; tries++)); do
    if log_holds 'Gatehouse is ready.'; then break; fi
    is_running "$pid" || fail 'the program has ended'
    sleep 0.1
done
((tries < 1200)) || fail 'it hangs'
memory=$(sed -n 's/^VmHWM:[^0-9]*\([0-9]*\) kB$/\1/p' "/proc/$pid/status")
end_process "$pid"
printf 'ready after %d.%d s, peak memory %d MiB\n' $((tries / 10)) $((tries % 10)) $((memory >> 10))
# What a sanitizer takes for itself says nothing about the program.
grep -qa __asan_init "$program" || ((memory < most_memory)) ||
    fail "it takes $memory KiB of memory"

begin 'each is named, and nothing lies outside'
while read -r archive name; do
    grep -qaE "$archive.*$name" "$scratch/stderr" || fail "not told to be left out: $archive $name"
done <<'NAMES'
bombs.pk3 maps/giant.bsp: .*512 MiB
bombs.pk3 levelshots/giant.jpg: .*64 MiB
bombs.pk3 icon_giant.tga: .*64 MiB
bombs.pk3 maps/liar.bsp: .*claims
bombs.pk3 levelshots/liar.jpg: .*claims
bombs.pk3 icon_liar.tga: .*claims
bombs.pk3 levelshots/short.jpg:
bombs.pk3 levelshots/sum.jpg:
bombs.pk3 levelshots/method.jpg:
icons.pk3 icon_claims.tga:
icons.pk3 icon_huge.tga:
icons.pk3 icon_runs.tga:
icons.pk3 icon_none.tga:
names.pk3 usermdls.txt/levelshots/x.jpg:
names.pk3 maps/a/a/a/
names.pk3 levelshots/xxxxx
many.pk3 maps/../../../escaped.bsp:
many.pk3 levelshots/../../../escaped.jpg:
cut0.pk3
cut10.pk3
cut50.pk3
cut90.pk3
cut99.pk3
NAMES
snapshot | grep -v '  ./Program Folder' >"$scratch/after"
diff <(grep -v gatehouse.ini "$scratch/before") <(grep -v gatehouse.ini "$scratch/after") >&2 ||
    fail 'something lies outside the program folder'
compgen -G '/tmp/gatehouse-escaped*' >/dev/null && fail 'an absolute name was followed'
expect_file "$app/models/players/a/icon_good.bmp"
(($(find "$app/levelshots" -type f | wc -l) == 6)) || fail "level shots: $(ls "$app/levelshots")"
[[ -z $(find "$app" -type f \( -name '*.tmp' -o -name '*.bsp' -o -name '*.tga' \)) ]] || fail 'an extracted file was left'
(($(wc -l <"$app/usermaps.txt") == 6)) || fail "user maps: $(cat -v "$app/usermaps.txt")"

case_name=
printf 'all passed\n'
