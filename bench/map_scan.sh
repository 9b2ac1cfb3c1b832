#!/bin/sh
# The scan for maps as a whole process beside `unzip` and `grep` over the same entries, then over ten times the archives.
# Usage: bench/map_scan.sh [BUILD FOLDER] [RUNS] [FOLDER OF ARCHIVES]
set -eu

build=${1:-build-bench}
runs=${2:-10}
archives=${3:-/usr/share/games/openarena/baseoa}
scratch=$(mktemp -d "${TMPDIR:-/tmp}/gatehouse-scan.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
one=$scratch/one
ten=$scratch/ten

# Links all archives into a game folder, a number of times. None may have the name of the game's own, which is left out.
link_archives() {
    mkdir -p "$1/game/baseq3"
    for copy in $(seq "$2"); do
        for archive in "$archives"/*.pk3; do
            ln -s "$archive" "$1/game/baseq3/oa$copy-${archive##*/}"
        done
    done
}
link_archives "$one" 1
link_archives "$ten" 10

# Nothing is known or unpacked before a run.
empty="cd $scratch && rm -rf one/home ten/home unpacked && mkdir one/home ten/home"
# In bytes, which is grep's fastest. To a file: for /dev/null, grep ends at the first line that it finds.
unpack="LC_ALL=C; export LC_ALL; cd $scratch
unzip -o -q 'one/game/baseq3/*.pk3' 'maps/*.bsp' 'levelshots/*.jpg' -d unpacked
grep -a -m1 '\"message\"' unpacked/maps/*.bsp > unpacked/messages"

du -shL "$one/game" | cut -f1 | sed 's/$/ of archives/'
sh -c "$empty"
"$build/gatehouse_bench" --scan "$one"
sh -c "$unpack" 2> /dev/null
printf 'unzip and grep: %s maps, %s of them with a message\n' "$(find "$scratch/unpacked/maps" -name '*.bsp' | wc -l)" \
    "$(wc -l < "$scratch/unpacked/messages")"

printf '\nfirst: the scan; second: unzip and grep\n'
"$build/bench/whole_process" --before "$empty" "$runs" "$build/gatehouse_bench" --scan "$one" -- sh -c "$unpack"
printf '\nfirst: the scan of ten times the archives; second: of one\n'
"$build/bench/whole_process" --before "$empty" "$runs" "$build/gatehouse_bench" --scan "$ten" -- \
    "$build/gatehouse_bench" --scan "$one"
