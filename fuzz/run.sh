#!/usr/bin/env bash
# Builds the fuzzers with clang and runs them one after the other.
#
#   fuzz/run.sh [minutes for each] [target...]    1 minute and all targets, if not told
#
# What a run learns and finds is kept in $GATEHOUSE_FINDINGS or ~/.cache/gatehouse-fuzz, where the next run goes on.
# The build goes to $GATEHOUSE_BUILD or build-fuzz. Ends with 1 if there is a finding.

set -euo pipefail
# shellcheck source=cmake/setup.sh
source "$(dirname "${BASH_SOURCE[0]}")/../cmake/setup.sh"

fuzz=$repository/fuzz
build=${GATEHOUSE_BUILD:-$repository/build-fuzz}
kept=${GATEHOUSE_FINDINGS:-${XDG_CACHE_HOME:-$HOME/.cache}/gatehouse-fuzz}
minutes=${1:-1}
shift || true
if [[ ! $minutes =~ ^[1-9][0-9]*$ ]]; then
    printf 'usage: fuzz/run.sh [minutes for each] [target...]\n' >&2
    exit 2
fi

targets=("$@")
((${#targets[@]})) || mapfile -t targets < <(sed -n 's/^add_fuzz_target(\([a-z_]*\))$/\1/p' "$fuzz/CMakeLists.txt")
for target in "${targets[@]}"; do
    [[ -d $fuzz/corpus/$target ]] && continue
    printf 'no such target: %s\n' "$target" >&2
    exit 2
done

install_packages "${build_packages[@]}" "${fuzz_packages[@]}"
say "building (fuzz)"
(cd "$repository" && cmake --preset fuzz -B "$build" >/dev/null)
cmake --build "$build" --parallel "$(nproc)" --target "${targets[@]/#/fuzz_}"

# Runs one target; fails if it ends on a finding.
fuzz_target() {
    local target=$1 learned=$kept/$1/learned findings=$kept/$1/findings
    mkdir -p "$learned" "$findings"
    say "$target, $minutes min"
    # What it learned comes first: that is where new files go.
    nice "$build/fuzz/fuzz_$target" -max_total_time=$((minutes * 60)) -max_len=65536 -timeout=60 -print_final_stats=1 \
        -artifact_prefix="$findings/" "$learned" "$fuzz/corpus/$target" >"$kept/$target/log" 2>&1 || return 1
    grep -E '^stat::(number_of_executed_units|average_exec_per_sec)' "$kept/$target/log" || true
}

found=()
for target in "${targets[@]}"; do
    fuzz_target "$target" || found+=("$target")
done
for target in "${found[@]}"; do
    grep -hE '^(broken:|SUMMARY:|Test unit written)|ERROR:|runtime error:|what\(\):' "$kept/$target/log" || true
    say "FINDING in $target: see $kept/$target/log and $kept/$target/findings"
done
((${#found[@]} == 0)) || exit 1
say "no findings"
