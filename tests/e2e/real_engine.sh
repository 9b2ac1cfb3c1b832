#!/bin/bash
# The road to a real engine: a dedicated server's document, run and left, becomes a server of OpenArena's on loopback
# that answers with the document's host name, game type, first map and bots, to the server browser as well. Needs
# openarena-server and qstat.
# shellcheck disable=SC1003
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

engine=/usr/lib/ioquake3/ioq3ded
engine_data=/usr/lib/openarena-server/baseoa
host='Gatehouse e2e yard 100%'

begin 'a dedicated server of the real engine'
for needed in "$engine" "$engine_data/pak0.pk3" "$(command -v quakestat || echo quakestat)"; do
    [[ -e $needed ]] || fail "missing: $needed (packages openarena-server and qstat)"
done
new_world

# The game folder: the base game's data, linked, in a folder that can be written, and a start script as the game.
# Nothing describes that folder to the program: it has to find the game code in the archives.
mkdir "$game/baseoa" "$scratch/engine-home"
ln -s "$engine_data"/*.pk3 "$engine_data"/*.so "$game/baseoa/"
pid_file=$scratch/engine.pid
cat >"$game/quake3.exe" <<SCRIPT
#!/bin/sh
echo \$\$ >'$pid_file'
exec >'$scratch/engine.log' 2>&1 </dev/null
exec '$engine' +set ttycon 0 +set fs_basepath '$game' +set fs_homepath '$scratch/engine-home' +set com_basegame baseoa \
    +set com_legacyprotocol 71 +set com_protocol 71 +set net_enabled 1 +set net_ip 127.0.0.1 +set cl_motd 0 "\$@"
SCRIPT
chmod 755 "$game/quake3.exe"

# A mod that is found in archives alone offers no game types, so no game type reaches the config: as a user would, it is
# given on the command line that the options hold.
write_options 'extracmdline=+set g_gametype 3'
document=$documents/real.ghc
{
    printf '%s\r\n' 'mods currmod "baseoa"' 'seta g_gametype "3"' "seta sv_hostname \"$host\"" \
        'seta sv_maxrate "8000"' \
        'seta sv_maxclients "8"' 'seta sv_privatepassword ""' 'seta rconpassword ""' 'seta sv_pure "0"' \
        'seta sv_allowdownload "0"' 'seta sv_maxping "0"' 'seta sv_minping "0"' 'seta bot_nochat "1"' \
        'seta bot_minplayers "0"' 'seta g_warmup "0"' 'seta g_quadfactor "3"' 'seta g_allowvote "0"' \
        'base cfgtype "2"' \
        'maps oa_dm1 "First"' 'maps oa_dm2 "Second"' 'srvr langame "1"' 'srvr hunksize "128"' \
        'srvr nic "127.0.0.1"' \
        "srvr port \"$port\"" 'srvr cheats "0"' 'bots Angelyss "3Red"' 'bots Dark "4Blue"' 'bots random "0"'
} >"$document"

# Ends the engine by its process id, whatever the end of this script is: the clean-up calls it as well.
end_engine() {
    local pid
    pid=$(cat "$pid_file" 2>/dev/null) || return 0
    if [[ $(readlink "/proc/$pid/exe") == "$engine" ]]; then end_process "$pid"; fi
    ! is_running "$pid"
}

# Waits until the server answers with both bots.
wait_for_bots() {
    local tries
    answer=
    for ((tries = 0; tries < 120; tries++)); do
        answer=$("$practice_game" --ask "127.0.0.1:$port" 2>/dev/null || true)
        [[ $answer == *Angelyss* && $answer == *Dark* ]] && return
        sleep 0.5
    done
}

run_gatehouse "r $(program_path "$document")"
expect_status 0
expect_silence
expect_file "$game/baseoa/gatehouse.cfg"
grep -qa g_gametype "$game/baseoa/gatehouse.cfg" && fail 'a game type for a mod that offers none'
expect_logged 'found 2 mods.'

wait_for_bots
engine_failed() {
    tail -n 30 "$scratch/engine.log" >&2
    fail "$1 in: $answer"
}
info=$(tr '\n' '\\' <<<"$answer")
for wanted in "\\sv_hostname\\$host\\" '\g_gametype\3\' '\mapname\oa_dm1\' '\sv_maxclients\8\' '"Angelyss"' '"Dark"'; do
    grep -qiF -- "$wanted" <<<"$info" || engine_failed "not answered: $wanted"
done
printf '%s\n' "$answer"

begin 'another tool sees the same server'
seen=$(quakestat -P -R -raw '|' -q3s "127.0.0.1:$port")
printf '%s\n' "$seen"
for wanted in "|$host|" '|oa_dm1|' 'g_gametype=3' Angelyss Dark; do
    grep -qiF -- "$wanted" <<<"$seen" || fail "not seen by quakestat: $wanted"
done

begin 'the server browser sees it, and connects a game to it'
"$e2e_dir/browser.sh" "127.0.0.1:$port" || fail 'the road of the server browser'

begin 'it listens on loopback alone, and ends by its process id'
pid=$(cat "$pid_file")
[[ $(readlink "/proc/$pid/exe") == "$engine" ]] || fail 'another process than the engine was started'
sockets=$(find "/proc/$pid/fd" -lname 'socket:*' -printf '%l\n' | tr -dc '0-9\n')
while read -r _ local_address _ _ _ _ _ _ _ inode _; do
    grep -qx "$inode" <<<"$sockets" || continue
    [[ $local_address == 0100007F:* ]] || fail "a socket on $local_address"
done </proc/net/udp
end_engine || fail 'the engine is still there'

begin 'a server of game type 0 answers as often as it is asked, and stays alive'
write_options 'extracmdline=+set g_gametype 0'
run_gatehouse "r $(program_path "$document")"
expect_status 0
wait_for_bots
"$e2e_dir/browser.sh" "127.0.0.1:$port" --endless --game 'Free For All' || fail 'the road of the server browser'
end_engine || fail 'the engine is still there'

case_name=
printf 'all passed\n'
