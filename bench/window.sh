#!/bin/bash
# From the start to the main window, beside a bare Qt window: time to the window, processor and memory of the whole run.
# Without a window manager, on a display of its own.
# Usage: bench/window.sh [BUILD FOLDER] [RUNS]
set -euo pipefail

build=$(cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../build-bench}" && pwd)
runs=${2:-20}
export GATEHOUSE_BUILD=$build
# shellcheck source=tests/e2e/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/../tests/e2e/lib.sh"

new_world
write_options
world_environment
xvfb-run -a env "${environment[@]}" "$build/bench/whole_process" --window "$runs" "$program" -- "$build/bench/bare_qt" --show
