#!/bin/bash
# Run and leave without a display: a document in each mode becomes exactly the files, the start and the silence that it
# should; and the runs that can't succeed say so.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"


# Puts the case's document into the documents folder, and its other files where the program looks for them.
use_case() {
    new_world
    cases=$golden_dir/e2e-$1
    document=$documents/My\ Document.ghc
    filled_in "$cases/document.ghc" >"$document"
    if [[ -e $cases/aliases.txt ]]; then cp "$cases/aliases.txt" "$app/aliases.txt"; fi
    if [[ -e $cases/default.ghs ]]; then filled_in "$cases/default.ghs" >"$app/default.ghs"; fi
    if [[ -e $cases/usermdls.txt ]]; then cp "$cases/usermdls.txt" "$app/usermdls.txt"; fi
    snapshot >"$scratch/before"
}

# Runs the document, and checks the end, the files written and that nothing else changed.
run_document() {
    local mod=$1 file
    local -a changed=("config/gatehouse/gatehouse.ini" "Program Folder/usermaps.txt" "Program Folder/STAMP-errorlog.txt"
        "Games/Quake III Arena/practice.log")
    shift
    snapshot >"$scratch/before"
    run_gatehouse "$@"
    expect_status 0
    expect_silence
    for file in "$mod/gatehouse.cfg" "$mod/gatehouse.bat" baseq3/ghaliases.cfg; do
        if [[ ! -e $cases/${file##*/} ]]; then expect_no_file "$game/$file" && continue; fi
        expect_same_bytes "$cases/${file##*/}" "$game/$file"
        changed+=("Games/Quake III Arena/$file")
    done
    wait_for_journal
    expect_only_changed "$scratch/before" "${changed[@]}"
}

wait_for_journal() {
    local tries
    for ((tries = 0; tries < 100; tries++)); do
        [[ -s $journal ]] && return
        sleep 0.1
    done
    fail 'the game was not started'
}

document_argument() { printf 'r %s' "$(program_path "$document")"; }

begin 'a client'
use_case connect
run_document baseq3 "$(document_argument)"
expect_started "$game" +set fs_game baseq3 +exec gatehouse.cfg +connect "127.0.0.1:$port"

begin 'a dedicated server that answers'
use_case dedicated
run_document baseq3 r "$(program_path "$document")" # two arguments are joined by a blank
expect_started "$game" +set dedicated 2 +set com_hunkmegs 96 +set net_port "$port" \
    +set fs_game baseq3 +exec gatehouse.cfg
answer=
for ((tries = 0; tries < 50; tries++)); do
    answer=$("$practice_game" --ask "127.0.0.1:$port" 2>&1) && [[ $answer == *Lucy* ]] && break
    sleep 0.1
done
for wanted in '\sv_hostname\The Scratch Yard' '\g_gametype\3' '\mapname\Q3DM6' '"Anarki"' '"Xaero"' '"Lucy"'; do
    grep -qiF -- "$wanted" <<<"$answer" || fail "not in the server's answer: $wanted in $answer"
done

begin 'a listen server with every text full of blanks, quotes, percent signs and high bytes'
use_case listen
mkdir "$game/listenmod"
cp "$cases/listenmod.ghm" "$app/mods/"
write_options 'extracmdline=+set e2e_note "a  b"'
run_document listenmod "$(document_argument)"
printf -v high '%b' "$(printf '\\x%x' {128..255})"
expect_started "$game" +set e2e_note 'a  b' +set com_hunkmegs 64 'a  b%PATH%' %x% "$high" \
    +set net_ip 127.0.0.1 100% "$high" +set net_port "$port" 'c  d%' "$high" \
    +set fs_game listenmod +exec gatehouse.cfg +set fs_game listenmod +exec gatehouse.cfg

begin 'files only, by the option'
use_case connect
write_options runoptions=2
run_gatehouse "$(document_argument)"
expect_status 0
expect_printed 'CFG & BAT files have been created to run the current configuration.'
expect_printed 'Quake 3: Arena will not be launched.'
expect_same_bytes "$cases/gatehouse.bat" "$game/baseq3/gatehouse.bat"
expect_not_started

begin 'asked, and the safe answer is No'
write_options runoptions=1
run_gatehouse "$(document_argument)"
expect_status 0
expect_printed 'Do you want to launch Quake 3: Arena with these settings?'
expect_not_started

expect_failed_run() {
    expect_status 1
    expect_printed 'An error occurred when trying to run the game. Check the error log.'
    expect_not_started
    cmp -s "$document" <(filled_in "$cases/document.ghc") || fail 'the document was changed'
}

begin 'the game is gone'
use_case dedicated
rm "$game/quake3.exe"
run_gatehouse "$(document_argument)"
expect_failed_run
expect_same_bytes "$cases/gatehouse.cfg" "$game/baseq3/gatehouse.cfg"
expect_logged "->Could not shell to c:\\winnt\\system32\\cmd.exe /c \"$(program_path "$game/baseq3/gatehouse.bat")\""

begin 'a file that is no program'
use_case dedicated
printf 'not a program\n' >"$game/quake3.exe"
chmod 644 "$game/quake3.exe"
run_gatehouse "$(document_argument)"
expect_failed_run

begin 'a Windows program without Wine'
use_case dedicated
printf 'MZ\220\0\3\0\0\0\4\0\0\0\377\377\0\0' >"$game/quake3.exe"
chmod 755 "$game/quake3.exe"
mkdir "$scratch/no-programs"
ln -s "$(command -v timeout)" "$(command -v env)" "$scratch/no-programs/"
PATH=$scratch/no-programs run_gatehouse "$(document_argument)"
expect_failed_run
grep -qaw Wine "$app"/*-errorlog.txt || fail 'the log does not tell that Wine is missing'

begin 'the config file cannot be made'
use_case dedicated
mkdir "$game/baseq3/gatehouse.cfg"
run_gatehouse "$(document_argument)"
expect_failed_run
expect_printed "$(program_path "$game/baseq3/gatehouse.cfg")" # the box names what it was
expect_logged "->Could not create $(program_path "$game/baseq3/gatehouse.cfg")"

begin 'the batch file cannot be made'
use_case dedicated
mkdir "$game/baseq3/gatehouse.bat"
run_gatehouse "$(document_argument)"
expect_failed_run
expect_logged "->Could not create $(program_path "$game/baseq3/gatehouse.bat")"
expect_same_bytes "$cases/gatehouse.cfg" "$game/baseq3/gatehouse.cfg"

begin 'a client without a server to connect to'
use_case connect
printf '//\r\n' >"$app/default.ghs"
run_gatehouse "$(document_argument)"
expect_failed_run

case_name=
printf 'all passed\n'
