# What lets an end-to-end test drive the window by the names that a screen reader reads out. To be sourced after
# display.sh, with `on_own_bus "$@"` as the first call of the test.
# shellcheck shell=bash disable=SC2034,SC2154

python=/usr/bin/python3 # the one that the system's packages are for

# Runs the test anew on a message bus of its own, which carries the accessibility bus, and ends as that ends. The latter
# has its socket in the runtime folder: with one folder for all, tests that run at once would take it from each other.
on_own_bus() {
    [[ -n ${GATEHOUSE_OWN_BUS:-} ]] && return 0
    local status=0
    begin 'a bus for accessibility'
    need_programs dbus-run-session dbus-send
    "$python" -c 'import pyatspi' 2>/dev/null || need_programs python3-pyatspi
    GATEHOUSE_OWN_BUS=yes XDG_RUNTIME_DIR=$scratch/runtime dbus-run-session -- "$0" "$@" || status=$?
    case_name=
    exit "$status"
}

# Says that somebody listens: a program asks for that when it starts.
offer_accessibility() {
    dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.freedesktop.DBus.Properties.Set \
        string:org.a11y.Status string:IsEnabled variant:boolean:true >/dev/null || fail 'no accessibility bus'
}
