#!/bin/bash
# The road of the server browser, by accessible names: choose a server of the list, query it, see who plays, connect.
#
#   browser.sh             to a practice game that serves on loopback
#   browser.sh HOST:PORT [options of browser.py]   to a server that runs there, compared with what quakestat sees
#
# With PICTURES=FOLDER it leaves pictures there.
# shellcheck source-path=SCRIPTDIR disable=SC2119
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

on_own_bus "$@"
server=${1:-127.0.0.1:$port}
nobody=127.0.0.1:$((port - 10000)) # as nothing listens there

# Starts a server of bots in a folder of its own, so that its journal tells of nothing else, until it answers.
start_practice_server() {
    local tries folder=$scratch/server
    served=$folder/practice.log
    mkdir -p "$folder/baseq3"
    (cd "$folder" && exec env -u DISPLAY PRACTICE_LIFETIME=600 "$practice_game" +set dedicated 1 +set net_ip 127.0.0.1 \
        +set net_port "${server##*:}" +set sv_hostname 'Over the ^1Wire' +set g_gametype 3 +set sv_maxclients 12 \
        +set sv_privateclients 1 +map q3tourney2 +addbot Anarki 3 red +addbot '^3Doom' 2 blue +addbot Keel 1 red) \
        >/dev/null 2>&1 </dev/null &
    started_pids+=($!)
    for ((tries = 0; tries < 200; tries++)); do
        answer=$("$practice_game" --ask "$server" 2>/dev/null) && [[ $answer == *Keel* ]] && return 0
        sleep 0.1
    done
    fail "no server on $server"
}

queries() { grep -c '^status query from' "$served"; }

begin 'a server, and a list that holds it'
new_world
start_display
offer_accessibility
if (($# == 0)); then
    start_practice_server
    expected=(--name 'Over the ^1Wire' --players ' 3/12' --map Q3TOURNEY2 --locked Anarki Doom Keel)
    host='Over the ^1Wire'
else
    seen=$(quakestat -P -raw '|' -q3s "$server")
    IFS='|' read -r _ _ host map slots count _ <<<"${seen%%$'\n'*}"
    mapfile -t players < <(tail -n +2 <<<"$seen" | cut -d '|' -f 1)
    ((${#players[@]} > 0)) || fail "nobody plays there: $seen"
    expected=(--quakestat "${@:2}" --name "$host" --players "$(printf '%5s' "$count/$slots")" --map "${map^^}" "${players[@]}")
fi
printf '%s\r\n' '//' "Nobody Home|P|7|3/16|Free For All|Q3DM1|$nobody|" "Not Asked Yet|P|35|?|?|?|$server|" \
    >"$app/default.ghs"
printf '%s\r\n' 'mods currmod "Quake 3: Arena"' 'seta name "Passer-by"' 'base cfgtype "0"' >"$app/default.ghc"

begin 'query and players by names alone'
start_program
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
"$python" "$e2e_dir/browser.py" query "$nobody" "$server" "${expected[@]}" || fail 'the servers could not be asked'
picture browser

begin 'run connects the game to the server'
if (($# == 0)); then before=$(queries); fi
"$python" "$e2e_dir/browser.py" run || fail 'the game could not be run'
for ((tries = 0; tries < 200; tries++)); do
    grep -qaF "reply from $server: " "$journal" 2>/dev/null && break
    sleep 0.1
done
grep -qa "^run pid .* \[+connect\] \[$server\]" "$journal" || fail 'the game was not told to connect'
grep -aF "reply from $server: " "$journal" | grep -qaF "\\sv_hostname\\$host\\" || fail "$host did not reply to the game"
if (($# == 0)); then (($(queries) == before + 1)) || fail 'the server was not asked once by the game'; fi

begin 'a deletion that was undone is asked about at the end'
wait_for_window "^${title//\\/.}"
press alt+F4
if (($# == 0)) || [[ $* != *--endless* ]]; then
    wait_for_window '^Exit Gatehouse'
    press alt+n
fi
expect_end 0

case_name=
printf 'all passed\n'
