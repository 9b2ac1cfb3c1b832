# A display of its own for the end-to-end tests that need one, with a window manager. To be sourced after lib.sh. With
# PICTURES=FOLDER a test leaves pictures there.
# shellcheck shell=bash disable=SC2154

# Ends the test, as one that was skipped, where a program that it needs is missing.
need_programs() {
    local needed
    for needed in "$@"; do
        command -v "$needed" >/dev/null && continue
        skip "$needed is not installed"
        case_name=
        exit 77
    done
}

# A manager that did not come up would leave every window without the keyboard: it gets a second and a third try.
start_manager() {
    local tries
    (cd "$scratch" && HOME=$scratch XDG_CONFIG_HOME=$scratch XDG_CACHE_HOME=$scratch/openbox exec openbox) >/dev/null 2>&1 &
    started_pids+=($!)
    for ((tries = 0; tries < 50; tries++)); do
        xdotool get_desktop >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    return 1
}

start_display() {
    local tries
    begin 'a display with a window manager'
    need_programs Xvfb openbox xdotool
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/display" 2>/dev/null &
    started_pids+=($!)
    for ((tries = 0; tries < 100; tries++)); do
        [[ -s $scratch/display ]] && break
        sleep 0.1
    done
    [[ -s $scratch/display ]] || fail 'no display'
    DISPLAY=:$(cat "$scratch/display")
    export DISPLAY
    start_manager || start_manager || start_manager || fail 'no window manager'
}

picture() {
    if [[ -n ${PICTURES:-} ]]; then import -window root "$PICTURES/$1.png"; fi
}

# A picture of the window alone that was waited for last.
window_picture() {
    if [[ -n ${PICTURES:-} ]]; then import -window "$window" "$PICTURES/$1.png"; fi
}

# Waits for a window whose title matches and gives it the keyboard.
wait_for_window() {
    local tries
    for ((tries = 0; tries < time_limit * 5; tries++)); do
        window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) || true
        if [[ -n $window ]] && xdotool windowactivate --sync "$window" 2>/dev/null; then
            sleep 0.3
            return 0
        fi
        is_running "$program_pid" || fail "ended while waiting for the window $1"
        sleep 0.2
    done
    fail "no window $1"
}

# Waits for the program's own end and checks its exit status.
expect_end() {
    local tries
    for ((tries = 0; tries < time_limit * 10; tries++)); do
        is_running "$program_pid" || break
        sleep 0.1
    done
    ! is_running "$program_pid" || fail 'the program does not end'
    status=0
    wait "$program_pid" || status=$?
    expect_status "$1"
}

press() { xdotool key --clearmodifiers "$1"; }

program_arguments=()

# Starts the program on the display, through the given command. What a library of the toolkit leaks where there is no
# message bus is none of ours, when the program was built to look for leaks.
start_program() {
    local environment
    world_environment
    printf 'leak:libdbus-1\n' >"$scratch/leaks"
    environment+=(QT_QPA_PLATFORM=xcb LSAN_OPTIONS="suppressions=$scratch/leaks:print_suppressions=0")
    (cd "$world" && exec env -u WAYLAND_DISPLAY "${environment[@]}" "$@" "$program" "${program_arguments[@]}") \
        >"$scratch/stdout" 2>"$scratch/stderr" </dev/null &
    program_pid=$!
    started_pids+=("$program_pid")
}
