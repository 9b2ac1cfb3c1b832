#!/bin/bash
# Ends from outside: signals while the window, a box or a file dialog is on show and at the first start, and the loss of
# the display. Nobody is asked, what was not saved is kept, and the next start offers it.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

on_own_bus "$@"
start_display
offer_accessibility

wait_for_document() {
    local title
    title=$(program_path "$1")
    wait_for_window "^${title//\\/.}"
}

# Starts in a new world and names the game's host, which makes the document one with changes.
start_and_work() {
    new_world
    start_program
    wait_for_document "$app/default.ghc"
    "$python" - "$e2e_dir" "$1" <<'PYTHON' || fail 'the window could not be driven'
import sys

sys.path.insert(0, sys.argv[1])
from accessible import act, find, main_window, open_tab, type_into

window = main_window()[1]
act(find(window, "check box", "Listen"), "Toggle")
open_tab(window, "Listen", "Server")
type_into(window, "Hostname", sys.argv[2])
PYTHON
}

# What was typed is kept, and the record tells why.
expect_kept() {
    grep -qaF "\"$1\"" "$app/rescue.ghc" || fail "not kept: $1"
    grep -qaF "reason $2" "$app/rescue.txt" || fail "the record does not tell: $2"
    if grep -qaF "\"$1\"" "$app/default.ghc"; then fail 'saved what nobody has asked to save'; fi
}

expect_quiet_end() {
    expect_end 0
    expect_silence
    expect_kept "$@"
}

for name in HUP INT TERM; do
    begin "SIG$name, twice in a row"
    start_and_work "Kept at $name"
    kill "-$name" "$program_pid"
    kill "-$name" "$program_pid" 2>/dev/null || true
    expect_quiet_end "Kept at $name" "stopped by SIG$name"
done

begin 'the next start tells it: in a line where nobody sees the window ...'
start_program env QT_QPA_PLATFORM=offscreen
for ((tries = 0; tries < 100; tries++)); do
    [[ -s $scratch/stderr ]] && break
    sleep 0.1
done
kill "$program_pid"
expect_end 0
expect_printed "What was not saved is in $(program_path "$app/rescue.ghc") ("

begin '... and in a box, which opens it as unsaved'
start_program
wait_for_window '^Gatehouse$'
picture offer
press alt+y
wait_for_document "$app/rescue.ghc"
press alt+F4
wait_for_window '^Exit Gatehouse'
press alt+n
expect_end 0
expect_file "$app/rescue.ghc"
expect_no_file "$app/rescue.txt"

for keys in 'ctrl+o Load' 'alt+F4 Exit'; do
    begin "SIGTERM while a dialog is on show: ${keys#* }"
    start_and_work 'Kept in a dialog'
    wait_for_document "$app/default.ghc"
    press "${keys% *}"
    wait_for_window "^${keys#* }"
    kill "$program_pid"
    expect_quiet_end 'Kept in a dialog' 'stopped by SIGTERM'
done

begin 'SIGTERM while the first start asks'
new_world
rm "$options"
start_program
wait_for_window '^Inital Setup'
kill "$program_pid"
expect_end 0
expect_silence
expect_no_file "$app/rescue.txt"
if grep -qs exepath "$options"; then fail 'options were stored'; fi

begin 'the display goes away'
start_and_work 'Kept without a display'
end_process "${started_pids[0]}"
expect_end 1
expect_kept 'Kept without a display' 'the display was lost'

case_name=
printf 'all passed\n'
