#!/usr/bin/env bash
# Shows the whole program with the practice game, in a scratch folder of its own.
#
#   practice/play.sh <build folder> [arguments of Gatehouse]
#
# With a display it starts the window. Without one it runs a sample document for each mode and shows what came of it; the
# exit status tells whether all was as it should be.

set -euo pipefail

build=$(cd "$1" && pwd)
shift
sources=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
scratch=${TMPDIR:-/tmp}
scratch=${scratch%/}/gatehouse-practice-$UID
program_folder=$scratch/program
game=$scratch/game
journal=$game/practice.log

export XDG_CONFIG_HOME=$scratch/config XDG_CACHE_HOME=$scratch/cache GATEHOUSE_HOME=$program_folder
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$scratch/runtime}

fail() {
    printf 'FAILED: %s\n' "$*" >&2
    exit 1
}

# A path as Gatehouse writes it.
drive_path() { printf 'C:%s' "${1//\//\\}"; }

# The process ids of the games that were started here and still run.
running_games() {
    local pid
    [[ -r $journal ]] || return 0
    while read -r pid; do
        [[ $(readlink "/proc/$pid/exe" 2>/dev/null) == "$game/quake3.exe" ]] && printf '%s\n' "$pid"
    done < <(sed -n 's/^run pid \([0-9]*\) .*/\1/p' "$journal")
    return 0
}

end_games() {
    local pid tries
    for pid in $(running_games); do
        kill "$pid" 2>/dev/null || true
        for ((tries = 0; tries < 30; tries++)); do
            kill -0 "$pid" 2>/dev/null || break
            sleep 0.1
        done
    done
}

write_options() {
    local pair value
    printf '[config]\n'
    for pair in "exepath=$(drive_path "$game/quake3.exe")" "basedir=$(drive_path "$game/")" \
        "ghcdir=$(drive_path "$program_folder/")" "lastcfg=$(drive_path "$program_folder/dedicated.ghc")" \
        lastsvr=practice.ghs startwith=0 runoptions=0 overwrite=0 pingwait=3 benchwait=5 staleaction=0 showconsole=0 \
        loglevel=2 buffsize=4096 keeplogs=5 democount=3 extracmdline= ghversion=00.03.03; do
        value=${pair#*=}
        value=${value//\\/\\\\}
        printf '%s="%s"\n' "${pair%%=*}" "${value//\"/\\\"}"
    done
}

make_scratch() {
    end_games
    rm -rf "$scratch"
    mkdir -m 700 "$scratch"
    scratch=$(cd "$scratch" && pwd -P)
    mkdir -p "$program_folder" "$game" "$XDG_CONFIG_HOME/gatehouse" "$XDG_CACHE_HOME"
    [[ -d $XDG_RUNTIME_DIR ]] || mkdir -m 700 "$XDG_RUNTIME_DIR"
    cp -r "$sources/data/." "$sources/practice/profile/home/." "$program_folder"
    cp -r "$sources/practice/profile/game/." "$build/practice/quake3.exe" "$build/practice/baseq3" "$game"
    write_options >"$XDG_CONFIG_HOME/gatehouse/gatehouse.ini"
    printf 'The practice folder is %s\n' "$scratch"
}

# Waits up to ten seconds until a command succeeds.
wait_for() {
    local tries
    for ((tries = 0; tries < 100; tries++)); do
        "$@" && return 0
        sleep 0.1
    done
    return 1
}

# The journal from a line number on.
journal_from() { [[ -r $journal ]] && tail -n "+$1" "$journal"; }
journal_holds() { journal_from "$1" | grep -qF -- "$2"; }

show_file() { printf '  written   %s (%s bytes)\n' "${1#"$scratch"/}" "$(stat -c %s "$1")"; }

ask() { answer=$("$game/quake3.exe" --ask "$1" 2>/dev/null) && [[ $answer == *"\\sv_hostname\\$2\\"* ]]; }

show_answer() { printf '%s\n' "$1" | sed 's/^/  answered  /'; }

# Runs a sample document and leaves.
#   play_document <document> <mod folder> <files> <server> <its host name>
play_document() {
    local document=$1 mod=$2 files=$3 server=$4 host=$5 file from answer
    printf '%s\n' "-- $document"
    for file in $files; do rm -f "${game:?}/$file"; done
    from=1
    [[ -r $journal ]] && from=$(($(wc -l <"$journal") + 1))

    env -u DISPLAY -u WAYLAND_DISPLAY PRACTICE_LIFETIME=120 timeout 120 "$build/gatehouse" "r $(drive_path "$program_folder/$document.ghc")" \
        </dev/null || fail "gatehouse left with exit status $? for $document"
    for file in $files; do
        [[ -s $game/$file ]] || fail "not written: $file"
        show_file "$game/$file"
    done

    wait_for journal_holds "$from" "[fs_game] [$mod]" || fail "the game was not started for $document"
    journal_from "$from" | sed -n 's/^run pid \([0-9]*\) in \[\(.*\)\] with /  started   process \1 in \2: /p'
    if [[ $document == connect ]]; then
        wait_for journal_holds "$from" "reply from $server: " || fail "the client got no reply from $server"
        journal_from "$from" | grep -F "reply from $server: " | grep -qF "\\sv_hostname\\$host\\" || fail "another server than $host replied"
        show_answer "$(journal_from "$from" | sed -n 's/^reply from //p')"
    else
        if ! wait_for ask "$server" "$host"; then
            journal_from "$from" | grep -F 'no server on' >&2 || true
            fail "$host does not answer on $server"
        fi
        show_answer "$answer"
    fi
}

play_all_documents() {
    trap end_games EXIT
    play_document dedicated practicemod 'practicemod/gatehouse.cfg practicemod/gatehouse.bat' 127.0.0.1:27970 'Practice Dedicated'
    play_document listen baseq3 'baseq3/gatehouse.cfg baseq3/gatehouse.bat baseq3/ghaliases.cfg' 127.0.0.1:27971 'Practice Listen'
    # The dedicated server still runs, and stands first in the list of servers.
    play_document connect baseq3 'baseq3/gatehouse.cfg baseq3/gatehouse.bat baseq3/ghaliases.cfg' 127.0.0.1:27970 'Practice Dedicated'
    end_games
    [[ -z $(running_games) ]] || fail 'a game still runs'
    printf 'All three documents ran; the games have ended, the files are kept.\n'
}

make_scratch
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    # A player at the window closes the games himself.
    PRACTICE_LIFETIME=86400 exec "$build/gatehouse" "$@"
fi
play_all_documents
