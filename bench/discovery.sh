#!/bin/sh
# The search for mods as a whole process beside `unzip -Z1` over the same archives.
# Usage: bench/discovery.sh [PATH OF gatehouse_bench] [RUNS]
set -eu

bench=${1:-build-bench/gatehouse_bench}
runs=${2:-20}
sample=${TMPDIR:-/tmp}/gatehouse-bench

"$bench" --make "$sample"

# Prints the median milliseconds of a command.
median() {
    i=0
    while [ "$i" -lt "$runs" ]; do
        start=$(date +%s%N)
        "$@" > /dev/null
        echo $((($(date +%s%N) - start) / 1000))
        i=$((i + 1))
    done | sort -n | awk '{ t[NR] = $1 } END { printf "%.1f", t[int((NR + 1) / 2)] / 1000 }'
}

# One process for all archives: the pattern is unzip's own.
list_with_unzip() {
    unzip -Z1 "$sample/game/mod/*.pk3" 2> /dev/null
}

"$bench" --discover "$sample" > /dev/null  # both find the archives in the page cache
list_with_unzip > /dev/null
ours=$(median "$bench" --discover "$sample")
theirs=$(median list_with_unzip)

du -shL "$sample/game" | cut -f1 | sed 's/$/ of archives/'
echo "search for mods: $ours ms"
echo "unzip -Z1:       $theirs ms"
awk -v a="$ours" -v b="$theirs" 'BEGIN { printf "ratio:           %.2f\n", a / b }'
