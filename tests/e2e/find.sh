#!/bin/bash
# The road to new servers, by accessible names and keys: a master server and the local network are asked, what they tell
# of is refreshed, goes to the list, and is joined. All of it in a network of its own that leads nowhere.
#
# With PICTURES=FOLDER it leaves pictures there.
# shellcheck source-path=SCRIPTDIR disable=SC2119
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
# shellcheck source=tests/e2e/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/display.sh"
# shellcheck source=tests/e2e/accessible.sh
. "$(dirname "${BASH_SOURCE[0]}")/accessible.sh"

here=203.0.113.5 # kept for documents (RFC 5737): nobody is there
net_dir=$e2e_dir/../support/net

own_network() {
    [[ -n ${GATEHOUSE_OWN_NETWORK:-} ]] && return 0
    local status=0
    begin 'a network of its own'
    need_programs unshare ip python3
    unshare --user --map-root-user --net ip link add there type veth peer name beyond 2>/dev/null || {
        skip 'no network can be made here'
        case_name=
        exit 77
    }
    GATEHOUSE_OWN_NETWORK=yes unshare --user --map-root-user --net "$0" "$@" || status=$?
    case_name=
    exit "$status"
}

# Starts a helper of that name, which serves until its input ends, and waits until it is ready.
start_helper() {
    local tries name=$1
    shift
    mkfifo "$scratch/$name.input"
    python3 "$net_dir/$name.py" "$@" <"$scratch/$name.input" >"$scratch/$name.output" &
    started_pids+=($!)
    exec {held}>"$scratch/$name.input"
    for ((tries = 0; tries < 100; tries++)); do
        grep -q '^ready' "$scratch/$name.output" && return 0
        sleep 0.1
    done
    fail "$name does not start"
}

own_network "$@"
on_own_bus "$@"
begin 'two servers, a master that tells of one of them and of one that is gone'
ip link set lo up
ip link add there type veth peer name beyond
ip address add "$here/24" broadcast + dev there
ip link set there up
ip link set beyond up
start_helper fake_servers 2 0.0.0.0 27960
start_helper master_server "$here" 27950 71 "$here:27960" "$here:27999"
new_world
start_display
offer_accessibility
: >"$app/default.ghs"
printf '%s\r\n' 'mods currmod "Quake 3: Arena"' 'seta name "Passer-by"' 'base cfgtype "0"' >"$app/default.ghc"

begin 'find, refresh, add and join'
start_program
title=$(program_path "$app/default.ghc")
wait_for_window "^${title//\\/.}"
"$python" "$e2e_dir/find.py" "$here" || fail 'no servers were found'
grep -qx 'asked getservers 71 full empty' "$scratch/master_server.output" || fail 'the master was not asked for 71'
for ((tries = 0; tries < 100; tries++)); do
    grep -qa "^run pid .* \[+connect\] \[$here:2796" "$journal" 2>/dev/null && break
    sleep 0.1
done
grep -qa "^run pid .* \[+connect\] \[$here:2796" "$journal" || fail 'the game was not told to connect'

begin 'what was added is asked about at the end'
wait_for_window "^${title//\\/.}"
press alt+F4
wait_for_window '^Exit Gatehouse'
press alt+y
expect_end 0
grep -qa "|$here:27961|" "$app/default.ghs" || fail 'the list holds no new server'

case_name=
printf 'all passed\n'
