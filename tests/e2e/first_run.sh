#!/bin/bash
# The first run with an empty home, on a display with a window manager: the questions, the game shown or searched for,
# and what is stored. With PICTURES=FOLDER it leaves a picture of each step there.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

begin 'a display with a window manager'
for needed in Xvfb openbox xdotool; do
    if ! command -v "$needed" >/dev/null; then
        skip "$needed is not installed"
        case_name=
        exit 77
    fi
done
new_world
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/display" 2>/dev/null &
started_pids+=($!)
for ((tries = 0; tries < 100; tries++)); do
    [[ -s $scratch/display ]] && break
    sleep 0.1
done
[[ -s $scratch/display ]] || fail 'no display'
DISPLAY=:$(cat "$scratch/display")
export DISPLAY

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
start_manager || start_manager || start_manager || fail 'no window manager'

picture() {
    if [[ -n ${PICTURES:-} ]]; then import -window root "$PICTURES/$1.png"; fi
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

# A home without options, a program folder that is not there yet, and a game with a config of its user.
forget_everything() {
    new_world
    rm -r "$options" "$app"
    printf 'seta name "Old Hand"\r\n' >"$game/baseq3/q3config.cfg"
}

# Starts the program on the display, through the given command. What a library of the toolkit leaks where there is no
# message bus is none of ours, when the program was built to look for leaks.
start_program() {
    local environment
    world_environment
    printf 'leak:libdbus-1\n' >"$scratch/leaks"
    environment+=(QT_QPA_PLATFORM=xcb LSAN_OPTIONS="suppressions=$scratch/leaks:print_suppressions=0")
    (cd "$world" && exec env -u WAYLAND_DISPLAY "${environment[@]}" "$@" "$program") \
        >"$scratch/stdout" 2>"$scratch/stderr" </dev/null &
    program_pid=$!
    started_pids+=("$program_pid")
}

# The rest of every first run: the backup's box, the window and its end, and what is on the disk then.
finish_first_run() {
    local title
    wait_for_window '^First Time Setup'
    picture "$1-backup"
    press Return
    title=$(program_path "$app/default.ghc")
    wait_for_window "^${title//\\/.}"
    picture "$1-window"
    [[ $(xdotool getwindowname "$window") == "${title,,}"* ]] || fail "the title is $(xdotool getwindowname "$window")"
    xdotool windowactivate --sync "$window"
    press alt+F4
    expect_end 0
    expect_silence
    cmp -s "$golden_dir/default/default.ghc" "$app/default.ghc" || fail 'no default document, or another one'
    cmp -s "$game/baseq3/q3config.cfg" "$game/baseq3/q3backup.cfg" || fail 'no backup of the game config'
    expect_options
    expect_file "$app/aliases.txt"
    expect_file "$app/default.ghs"
    expect_file "$app/mods/00-baseq3.ghm"
    [[ -d $app/levelshots ]] || fail 'no folder for level shots'
}

# Every option of a first run, with its value.
expect_options() {
    local wanted key
    for wanted in "exepath=$(program_path "$game/quake3.exe")" "basedir=$(program_path "$game/")" \
        "ghcdir=$(program_path "$app/")" "lastcfg=$(program_path "$app/default.ghc")" lastsvr=default.ghs \
        startwith=0 runoptions=0 overwrite=0 pingwait=3 benchwait=5 staleaction=0 showconsole=False loglevel=0 \
        buffsize=4096 keeplogs=5 democount=3 extracmdline= "ghversion=$version"; do
        key=${wanted%%=*}
        grep -qa "^$key=" "$options" || fail "not stored: $key"
        [[ $(option "$key") == "${wanted#*=}" ]] || fail "stored $key=$(option "$key"), not ${wanted#*=}"
    done
}

begin 'the user shows where the game is'
forget_everything
start_program
wait_for_window '^Inital Setup'
picture shown-question
press alt+y
wait_for_window '^Open'
picture shown-dialog
press ctrl+a
xdotool type --delay 5 "$game/quake3.exe"
press Return
finish_first_run shown

begin 'the second start asks nothing'
start_program
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
press alt+F4
expect_end 0

begin 'the user cancels: nothing is stored, and the next start is a first run again'
forget_everything
start_program
wait_for_window '^Inital Setup'
press alt+y
wait_for_window '^Open'
press Escape
wait_for_window '^Gatehouse$' # without a game there is nothing to go on with
picture cancelled-box
press Return
expect_end 1
[[ ! -s $options ]] || ! grep -qa '^exepath=' "$options" || fail 'options were stored'
expect_no_file "$game/baseq3/q3backup.cfg"

begin 'the search finds the game'
# A disk with nothing on it but the system and this game: nobody's own game may be found and written to.
forget_everything
disk=$scratch/disk
on_small_disk() {
    printf '%s\n' 'set -e' "disk='$disk'" "scratch='$scratch'" "data='${e2e_dir%/tests/e2e}/data'"
    # shellcheck disable=SC2016
    printf '%s\n' 'mkdir -p "$disk"' 'mount -t tmpfs tmpfs "$disk"' \
        'for folder in /usr /etc /dev /proc "$data" "$scratch"; do' \
        '    mkdir -p "$disk$folder"' '    mount --bind "$folder" "$disk$folder"' 'done' \
        'for link in /bin /lib /lib64; do [ ! -L "$link" ] || cp -P "$link" "$disk/"; done' \
        'exec chroot "$disk" "$@"'
}
on_small_disk >"$scratch/on-small-disk"
isolate=(unshare --mount --propagation private sh "$scratch/on-small-disk")
if [[ $(id -u) != 0 ]] || ! "${isolate[@]}" true 2>/dev/null; then
    skip 'no disk of its own can be made here'
else
    cp "$program" "$scratch/gatehouse"
    program=$scratch/gatehouse
    start_program "${isolate[@]}" env
    wait_for_window '^Inital Setup'
    press alt+n
    wait_for_window '^Initial Setup'
    picture found-question
    press alt+y
    finish_first_run found
fi

case_name=
printf 'all passed\n'
