#!/bin/bash
# The first run with an empty home, on a display with a window manager: the questions, the game shown or searched for,
# and what is stored. With PICTURES=FOLDER it leaves a picture of each step there.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"

start_display

# A home without options, a program folder that is not there yet, and a game with a config of its user.
forget_everything() {
    new_world
    rm -r "$options" "$app"
    printf 'seta name "Old Hand"\r\n' >"$game/baseq3/q3config.cfg"
}

# The rest of every first run: the backup's box, the window and its end, and what is on the disk then.
finish_first_run() {
    local title
    wait_for_window '^First Time Setup'
    picture "$1-backup"
    press Return
    wait_for_window '^User Map Search'
    picture "$1-maps"
    press Return
    wait_for_window '^User Model Search'
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
    expect_file "$app/usermaps.txt"
    expect_file "$app/usermdls.txt"
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
wait_for_window '^Where is quake3.exe'
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

begin 'a program folder filled half way is completed, and what the user deleted stays away'
new_world
rm -r "$app"/.brought "$app/mods" "$app/aliases.txt"
mkdir -p "$app/mods"
start_program
wait_for_window "^${title//\\/.}"
press alt+F4
expect_end 0
expect_file "$app/aliases.txt"
expect_file "$app/mods/00-baseq3.ghm"
rm "$app/ghnoshot.jpg"
start_program
wait_for_window "^${title//\\/.}"
press alt+F4
expect_end 0
expect_no_file "$app/ghnoshot.jpg"

begin 'the game has moved: it is asked for again'
new_world
mv "$game" "$world/Games/Moved"
start_program
wait_for_window '^Initial Setup'
press Return
wait_for_window '^Inital Setup'
press alt+y
wait_for_window '^Where is quake3.exe'
press ctrl+a
xdotool type --delay 5 "$world/Games/Moved/quake3.exe"
press Return
wait_for_window "^${title//\\/.}"
press alt+F4
expect_end 0
[[ $(option basedir) == "$(program_path "$world/Games/Moved/")" ]] || fail "basedir is $(option basedir)"

begin 'the user cancels: nothing is stored, and the next start is a first run again'
forget_everything
start_program
wait_for_window '^Inital Setup'
press alt+y
wait_for_window '^Where is quake3.exe'
press Escape
wait_for_window '^Initial Setup' # what to do the next time
picture cancelled-box
press Return
expect_end 0
expect_silence
[[ ! -s $options ]] || ! grep -qa '^exepath=' "$options" || fail 'options were stored'
expect_no_file "$game/baseq3/q3backup.cfg"

begin 'the search finds the game'
# A disk with nothing on it but the system and this game: nobody's own game may be found and written to.
forget_everything
disk=$scratch/disk
on_small_disk() {
    printf '%s\n' 'set -e' "disk='$disk'" "scratch='$scratch'"
    # shellcheck disable=SC2016
    printf '%s\n' 'mkdir -p "$disk"' 'mount -t tmpfs tmpfs "$disk"' \
        'for folder in /usr /etc /dev /proc "$scratch"; do' \
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
    cp -r "${e2e_dir%/tests/e2e}/data" "$scratch/data"
    program=$scratch/gatehouse
    start_program "${isolate[@]}" env
    wait_for_window '^Inital Setup'
    press alt+n
    wait_for_window '^Initial Setup'
    picture found-question
    press alt+y
    finish_first_run found

    begin 'the search is stopped: what is left is the dialog'
    forget_everything
    start_program "${isolate[@]}" env
    wait_for_window '^Inital Setup'
    press alt+n
    wait_for_window '^Initial Setup' # the one copy that there is: the rest takes its time
    press alt+n
    wait_for_window '^Looking for Quake 3'
    picture searching
    press Escape
    wait_for_window '^Where is quake3.exe'
    press Escape
    wait_for_window '^Initial Setup' # what to do the next time
    picture stopped
    press Return
    expect_end 0
    expect_silence
fi

case_name=
printf 'all passed\n'
