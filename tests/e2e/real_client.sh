#!/bin/bash
# Benchmarks with a real engine's client, drawn by the processor on a display of its own: two documents on two demos that
# are recorded here, compared with what the engine itself has told; then a client that hangs. Needs openarena, ioquake3
# and a software renderer.
# shellcheck source-path=SCRIPTDIR disable=SC2119,SC2154
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

engine=/usr/lib/ioquake3/ioquake3
data=/usr/lib/openarena/baseoa

on_own_bus "$@"

end_engine() { pkill -KILL -f "fs_basepath $scratch" || true; }

begin 'a real client in a game folder of its own'
[[ -x $engine && -d $data ]] || fail 'packages openarena and ioquake3 are needed'
new_world
write_options democount=3 benchwait=1 lastcfg="$(program_path "$app/one.ghc")" ghcdir="$(program_path "$documents/")"
printf 'base cfgtype 3\r\n' >"$app/one.ghc"
printf 'seta r_picmip 3\r\nseta r_mode 3\r\n' >"$documents/fast.ghc"
printf 'seta r_picmip 0\r\nseta r_mode 4\r\n' >"$documents/slow.ghc"
# Unlike the folder of the program, that of an engine has no blanks: it is an argument of its own on a line of commands.
mkdir -p "$game/baseq3/demos"
for file in "$data"/*.pk3 "$data"/*.so; do ln -s "$(readlink -f "$file")" "$game/baseq3/${file##*/}"; done
ln -s baseq3 "$game/baseoa"
cat >"$game/quake3.exe" <<SCRIPT
#!/bin/sh
# A small silent window without a network. A client that was killed leaves a mark, and would ask about safe settings.
game=\$(cd "\$(dirname "\$0")" && pwd)
rm -f "\$game/baseoa/ioq3.pid"
export LIBGL_ALWAYS_SOFTWARE=1 LP_NUM_THREADS=1 SDL_VIDEODRIVER=x11 SDL_AUDIODRIVER=dummy
exec >>"\$game/engine.log" 2>&1 </dev/null
exec $engine +set ttycon 0 +set com_basegame baseoa +set fs_basepath "\$game" +set fs_homepath "\$game" \\
    +set com_legacyprotocol 71 +set com_protocol 71 +set net_enabled 0 +set cl_motd 0 +set sv_master1 '' \\
    +set cl_renderer opengl1 +set r_fullscreen 0 +set s_initsound 0 +set in_nograb 1 +set com_introplayed 1 \\
    +set com_ansiColor 0 "\$@"
SCRIPT
chmod 755 "$game/quake3.exe"

start_display
offer_accessibility

begin 'two demos of a bot that fights another one'
{
    printf 'set %s\n' 'bot_enable 1' 'sv_pure 0' 'g_gametype 0' 'fraglimit 0' 'timelimit 0' 'com_maxfps 20' \
        'g_synchronousClients 1' 'r_mode 3'
    for demo in 1 2; do
        printf '%s\n' "devmap oa_dm$demo" 'addbot angelyss 4' 'addbot dark 4' 'wait 40' 'team spectator' 'wait 10' \
            'follow angelyss' 'wait 6' "record demo00$demo" 'wait 400' stoprecord 'wait 5'
    done
    echo quit
} >"$game/baseq3/record.cfg"
HOME=$home timeout 180 "$game/quake3.exe" +exec record.cfg || fail "not recorded: $(tail -n 20 "$game/engine.log")"
for demo in 1 2; do [[ -s $game/baseq3/demos/demo00$demo.dm_71 ]] || fail "no demo $demo: $(tail -n 20 "$game/engine.log")"; done
rm -f "$game/engine.log" "$game/baseq3/"{q3config.cfg,record.cfg}

begin 'two documents, two demos, three iterations; the figures are the engine'"'"'s own'
start_program
export JOURNAL=$game/engine.log
"$python" "$e2e_dir/benchmark.py" run "$game" "$app" || fail "not measured: $(tail -n 20 "$game/engine.log")"
picture real-client
"$python" "$e2e_dir/benchmark.py" again "$game" "$app" || fail 'no results'
tr -d '\r' <"$game/baseq3/bresults.txt"

begin 'a client that hangs is ended, and the next iteration runs'
"$python" "$e2e_dir/benchmark.py" play "$game" "$app" || fail 'not begun'
for ((tries = 0; tries < 100; tries++)); do
    pid=$(pgrep -f "fs_basepath $game" | head -n 1) && xdotool search --pid "$pid" >/dev/null 2>&1 && break
    sleep 0.1
done
kill -STOP "$pid" || fail 'there is no client to be held'
"$python" "$e2e_dir/benchmark.py" hung "$game" "$app" || fail 'the run does not go on'
expect_logged 'KILL: Process not responding to WM_CLOSE. Will force termination...'
expect_logged 'KILL: Process terminated successfully.'
expect_logged '->Process was killed ok.'
! is_running "$pid" || fail 'the client still runs'

case_name=
printf 'all passed\n'
