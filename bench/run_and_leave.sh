#!/bin/bash
# A run-and-leave that makes its files and starts nothing, beside a bare Qt program that starts and quits.
# Usage: bench/run_and_leave.sh [BUILD FOLDER] [RUNS]
set -euo pipefail

build=$(cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../build-bench}" && pwd)
runs=${2:-20}
export GATEHOUSE_BUILD=$build
# shellcheck source=tests/e2e/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/../tests/e2e/lib.sh"

new_world
write_options runoptions=2
filled_in "$golden_dir/e2e-dedicated/document.ghc" >"$documents/bench.ghc"
world_environment
env "${without_display[@]}" "${environment[@]}" QT_QPA_PLATFORM=offscreen \
    "$build/bench/whole_process" "$runs" "$program" "r $(program_path "$documents/bench.ghc")" -- "$build/bench/bare_qt"
