#!/bin/bash
# Makes the pictures that the package's metainfo and the README show first, by driving the built program.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
pictures=$(mktemp -d)
trap 'rm -rf "$pictures"' EXIT
PICTURES=$pictures "$here/../../tests/e2e/newcomer.sh"
cp "$pictures/help.png" "$pictures/main-window.png" "$here"
