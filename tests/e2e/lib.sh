# Helpers of the end-to-end tests, to be sourced. A test starts the built program in a world of its own: a scratch
# folder with a home, options, a program folder, documents and a game folder, all gone when the script ends.
# shellcheck shell=bash disable=SC2034,SC1003,SC2119,SC2120

set -euo pipefail
unset "${!LC_@}"
LC_ALL=C # texts are bytes for the shell ...
export LANG=C # ... and for its tools, while the program gets a locale of its own

e2e_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
golden_dir=$(cd "$e2e_dir/../golden" && pwd)
build_dir=$(cd "${GATEHOUSE_BUILD:-$e2e_dir/../../build}" && pwd)
program=$build_dir/gatehouse
practice_game=$build_dir/practice/quake3.exe
version=00.03.03
port=$((20000 + $$ % 10000)) # of five digits, below those that the system gives out itself

[[ -x $program ]] || { printf 'no program in %s: build it first\n' "$build_dir" >&2; exit 1; }

scratch=$(mktemp -d "${TMPDIR:-/tmp}/gatehouse-e2e.XXXXXX")
mkdir -m 700 "$scratch/runtime"
mounted=()
started_pids=()
case_name=
trap 'clean_up; exit 130' INT TERM
trap clean_up EXIT

# True for a process that belongs to this test: one whose folder or program lies in the scratch folder.
is_ours() {
    local link
    for link in cwd exe; do
        [[ $(readlink "/proc/$1/$link" 2>/dev/null) == "$scratch"/* ]] && return 0
    done
    return 1
}

# An ended process that nobody has waited for has no program any more.
is_running() { readlink "/proc/$1/exe" >/dev/null 2>&1; }

end_process() {
    local pid=$1 tries
    kill "$pid" 2>/dev/null || return 0
    for ((tries = 0; tries < 50; tries++)); do
        is_running "$pid" || return 0
        sleep 0.1
    done
    kill -KILL "$pid" 2>/dev/null || true
}

# Ends the games that were started, by the process ids in their logs.
end_games() {
    local log pid
    while IFS= read -r -d '' log; do
        while read -r pid; do
            if is_ours "$pid"; then end_process "$pid"; fi
        done < <(sed -n 's/^run pid \([0-9][0-9]*\) .*/\1/p' "$log")
    done < <(find "$scratch" -name practice.log -print0 2>/dev/null)
}

clean_up() {
    local status=$? pid folder
    trap - EXIT
    set +e
    if ((status != 0)) && [[ -n $case_name ]]; then printf 'FAILED in: %s\n' "$case_name" >&2; fi
    for pid in "${started_pids[@]}"; do end_process "$pid"; done
    if declare -F end_engine >/dev/null; then end_engine; fi
    end_games
    for folder in "${mounted[@]}"; do umount "$folder"; done
    if [[ -n ${KEEP_SCRATCH:-} ]]; then
        printf 'kept: %s\n' "$scratch" >&2
    else
        chmod -R u+rwX "$scratch" 2>/dev/null
        rm -rf "$scratch"
    fi
    exit "$status"
}

# Says what failed and ends the test, with what the program printed.
fail() {
    printf 'FAILED: %s: %s\n' "$case_name" "$1" >&2
    local file
    for file in "$scratch/stdout" "$scratch/stderr"; do
        [[ -s $file ]] && { printf -- '--- %s:\n' "${file##*/}"; head -c 4000 "$file" | cat -v; } >&2
    done
    case_name=
    exit 1
}

skip() { printf 'skipped: %s: %s\n' "$case_name" "$1"; }

begin() {
    case_name=$1
    printf '%s\n' "-- $1"
}

# A path as the program writes it.
program_path() { printf 'C:%s' "${1//\//\\}"; }

# Makes the world anew: home, options, a program folder with one mod and no maps or models of the user, a game folder
# with the practice game, a document folder. Names hold blanks and capitals on purpose.
new_world() {
    end_games
    chmod -R u+rwX "$scratch"
    rm -rf "$scratch/world"
    world=$scratch/world
    home=$world/user
    app=$world/Program\ Folder
    documents=$world/Documents
    game=$world/Games/Quake\ III\ Arena
    options=$world/config/gatehouse/gatehouse.ini
    journal=$game/practice.log
    mkdir -p "$home" "$world/config/gatehouse" "$world/cache" "$app/mods" "$app/levelshots" "$documents" "$game/baseq3"
    # Used before: nothing is brought into it any more.
    (cd "$(dirname "${BASH_SOURCE[0]}")/../../data" && find . -type f -printf '%P\n') >"$app/.brought"
    cp "$practice_game" "$game/quake3.exe"
    printf 'name\tQuake 3: Arena\r\ndir\tbaseq3\r\ngtype\t0 Free For All\r\ngtype\t1 Tournament\r\n%s' \
        $'gtype\t3 Teamplay\r\ngtype\t4 CTF!\r\n' >"$app/mods/00-baseq3.ghm"
    : >"$app/aliases.txt"
    : >"$app/usermaps.txt"
    : >"$app/usermdls.txt"
    printf '//\r\n' >"$app/default.ghs"
    write_options
}

# Writes the stored options: the full set of a used installation, with the values given as key=value.
write_options() {
    local -A values=(
        [exepath]=$(program_path "$game/quake3.exe") [basedir]=$(program_path "$game/")
        [ghcdir]=$(program_path "$app/") [lastcfg]=$(program_path "$app/default.ghc") [lastsvr]=default.ghs
        [startwith]=0 [runoptions]=0 [overwrite]=0 [pingwait]=3 [benchwait]=5 [staleaction]=0 [showconsole]=0
        [loglevel]=2 [buffsize]=4096 [keeplogs]=5 [democount]=3 [extracmdline]='' [ghversion]=$version
    )
    local pair key text
    for pair in "$@"; do values[${pair%%=*}]=${pair#*=}; done
    {
        printf '[config]\n'
        while read -r key; do
            text=${values[$key]//'\'/'\\'}
            printf '%s="%s"\n' "$key" "${text//'"'/'\"'}"
        done < <(printf '%s\n' "${!values[@]}" | sort)
    } >"$options"
}

# The stored value of an option, without its quotes and with single backslashes.
option() {
    local text
    text=$(sed -n "s/^$1=//p" "$options")
    text=${text#\"}
    text=${text%\"}
    printf '%s' "${text//'\\'/'\'}"
}

world_environment() {
    environment=(LANG=C.UTF-8 HOME="$home" XDG_CONFIG_HOME="$world/config" XDG_CACHE_HOME="$world/cache"
        XDG_DATA_HOME="$home/data" XDG_RUNTIME_DIR="$scratch/runtime" GATEHOUSE_HOME="$app" PRACTICE_LIFETIME=60)
    without_display=(-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u COMSPEC)
}

# Runs the program without a display, with a time limit in seconds, and sets `status`.
time_limit=60
run_as=()
run_gatehouse() {
    local environment without_display
    world_environment
    status=0
    (cd "$world" && exec env "${without_display[@]}" "${environment[@]}" "${run_as[@]}" \
        timeout --kill-after=5 "$time_limit" "$program" "$@") \
        >"$scratch/stdout" 2>"$scratch/stderr" </dev/null || status=$?
    ((status != 124 && status != 137)) || fail "not ended within $time_limit seconds"
}

# Starts the program without a display until its window is ready, then ends it.
start_until_ready() {
    local environment without_display pid tries
    world_environment
    (cd "$world" && exec env "${without_display[@]}" "${environment[@]}" "$program") \
        >"$scratch/stdout" 2>"$scratch/stderr" </dev/null &
    pid=$!
    started_pids+=("$pid")
    for ((tries = 0; tries < time_limit * 10; tries++)); do
        if log_holds 'Gatehouse is ready.'; then
            end_process "$pid"
            wait "$pid" 2>/dev/null || true
            return 0
        fi
        kill -0 "$pid" 2>/dev/null || break
        sleep 0.1
    done
    fail 'no ready window'
}

expect_status() { [[ $status == "$1" ]] || fail "exit status $status, expected $1"; }

expect_silence() { [[ ! -s $scratch/stderr ]] || fail 'something was printed to standard error'; }

expect_printed() { grep -qaF -- "$1" "$scratch/stderr" || fail "not printed: $1"; }

expect_printed_lines() {
    local count
    count=$(wc -l <"$scratch/stderr")
    [[ $count == "$1" ]] || fail "$count lines printed to standard error, expected $1"
}

# True if the newest event log holds a line of this text.
log_holds() {
    local newest
    newest=$(find "$app" -maxdepth 1 -name '*-errorlog.txt' | sort | tail -n 1)
    [[ -n $newest ]] && tr -d '\r' <"$newest" | grep -qaFx -- "$1"
}

expect_logged() { log_holds "$1" || fail "not logged: $1"; }

expect_file() { [[ -f $1 ]] || fail "missing: $1"; }

expect_no_file() { [[ ! -e $1 ]] || fail "there should be no: $1"; }

# Writes the text of a file with its placeholders replaced: @GAME@ (the game folder as the program writes it, without
# its drive and last backslash) and @PORT@.
filled_in() {
    local text path
    path=$(program_path "$game")
    text=$(cat "$1" && printf x)
    text=${text//@GAME@/"${path#C:}"}
    text=${text//@PORT@/"$port"}
    printf '%s' "${text%x}"
}

# Compares a file with a golden file of the case, byte for byte.
expect_same_bytes() {
    local golden=$1 actual=$2
    expect_file "$actual"
    filled_in "$golden" >"$scratch/expected"
    cmp -s "$scratch/expected" "$actual" && return
    diff <(cat -A "$scratch/expected") <(cat -A "$actual") | head -n 20 >&2 || true
    fail "$actual differs from ${golden#"$golden_dir"/}"
}

# Waits until the practice game has told how it was started, and compares: its folder, then its arguments.
expect_started() {
    local wanted tries got
    wanted="in [$1] with"
    shift
    wanted+=$(printf ' [%s]' "$@")
    for ((tries = 0; tries < 100; tries++)); do
        [[ -s $journal ]] && break
        sleep 0.1
    done
    [[ -s $journal ]] || fail 'the game was not started'
    got=$(sed -n 's/^run pid [0-9]* //p' "$journal")
    [[ $got == "$wanted" ]] || fail "the game was started $got, expected $wanted"
}

expect_not_started() { [[ ! -e $journal ]] || fail 'the game was started'; }

# Lists every file and folder of the world with a checksum, the stamps of event logs taken out of their names.
snapshot() {
    (cd "$world" && find . -mindepth 1 \( -type f -exec sha256sum {} + \) -o -printf '%y  %p\n') |
        sed -E 's/[0-9]{14}-errorlog/STAMP-errorlog/' | sort -k 2
}

# Compares the world with an earlier snapshot: exactly the paths given may be new or changed, and nothing gone.
expect_only_changed() {
    local before=$1
    shift
    snapshot >"$scratch/after"
    comm -13 <(sort "$before") <(sort "$scratch/after") | cut -d ' ' -f 3- | sort >"$scratch/changed"
    printf './%s\n' "$@" | sort >"$scratch/wanted"
    diff "$scratch/wanted" "$scratch/changed" >&2 || fail 'other files than told are new or changed'
    comm -23 <(cut -d ' ' -f 3- "$before" | sort) <(cut -d ' ' -f 3- "$scratch/after" | sort) >"$scratch/gone"
    [[ ! -s $scratch/gone ]] || fail "gone: $(cat "$scratch/gone")"
}
