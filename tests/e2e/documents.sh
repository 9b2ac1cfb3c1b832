#!/bin/bash
# Faults from outside, each with its message and nothing lost: documents that can't be read, a program folder that can't
# be written, options that make no sense, a full disk, hostile archives.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cases=$golden_dir/e2e-dedicated

new_case() {
    begin "$1"
    new_world
    document=$documents/My\ Document.ghc
    filled_in "$cases/document.ghc" >"$document"
}

run_document() { run_gatehouse "r $(program_path "$document")"; }

expect_server_started() {
    expect_started "$game" +set dedicated 2 +set com_hunkmegs 96 +set net_port "$port" \
        +set fs_game baseq3 +exec gatehouse.cfg
}

# The document and all other documents are as they were: $1 is a snapshot.
expect_documents_kept() {
    cmp -s <(snapshot | grep -a '\.ghc$') <(grep -a '\.ghc$' "$1") || fail 'a document was changed'
}

# One line on standard error that names the file, the number of the line and the line.
expect_document_failure() {
    expect_status 1
    expect_printed_lines 1
    grep -qaiF -- "$(program_path "$1")" "$scratch/stderr" || fail "the document's name is not in the message"
    expect_printed "$2"
    expect_printed "$3"
    expect_not_started
}

new_case 'a document that is missing, and the default document instead'
mv "$document" "$app/default.ghc"
run_document
expect_status 0
expect_server_started

new_case 'a document that is missing, and no default document either'
rm "$document"
snapshot >"$scratch/before"
run_document
expect_status 1
expect_printed "Cannot open $(program_path "$app/default.ghc"). Press OK to Exit."
expect_not_started
expect_documents_kept "$scratch/before"

new_case 'an empty document: the mode that the side bar begins with, connect'
: >"$document"
filled_in "$golden_dir/e2e-connect/default.ghs" >"$app/default.ghs"
snapshot >"$scratch/before"
run_document
expect_status 0
expect_silence
expect_started "$game" +set fs_game baseq3 +exec gatehouse.cfg +connect "127.0.0.1:$port"
expect_documents_kept "$scratch/before"

new_case 'a document cut off in the middle of a key'
printf '// cut\r\nseta com_blood "1"\r\nseta sv_hos' >"$document"
snapshot >"$scratch/before"
run_document
expect_document_failure "$document" 3 'seta sv_hos'
expect_documents_kept "$scratch/before"

new_case 'a document cut off in the middle of a value'
{ filled_in "$cases/document.ghc" && printf 'seta sv_hostname "The Scra'; } >"$document"
run_document
expect_status 0
grep -qaF 'sv_hostname              "The Scra"' "$game/baseq3/gatehouse.cfg" || fail 'the rest of the value is lost'

new_case 'a number that is none'
printf '// a comment\r\n\r\nseta sv_hostname "x"\r\nseta com_blood "yes %%s"\r\nseta rate "1"\r\n' >"$document"
snapshot >"$scratch/before"
run_document
expect_document_failure "$document" 4 'seta com_blood "yes %s"'
expect_documents_kept "$scratch/before"
[[ $(option lastcfg) == "$(program_path "$app/default.ghc")" ]] || fail 'the last document was changed for no reason'

new_case 'the last document is broken: the next start takes the default document'
printf 'seta com_blood "yes"\r\n' >"$document"
write_options lastcfg="$(program_path "$document")"
snapshot >"$scratch/before"
run_gatehouse
expect_document_failure "$document" 1 'seta com_blood "yes"'
expect_documents_kept "$scratch/before"
[[ $(option lastcfg) == "$(program_path "$app/default.ghc")" ]] || fail "the last document is still $(option lastcfg)"
[[ $(option basedir) == "$(program_path "$game/")" ]] || fail 'another option was lost'
start_until_ready
expect_file "$app/default.ghc"

new_case 'the default document is broken: it is set aside, and the next start writes another'
printf 'base cfgtype "0"\r\nseta ui_ffa_fraglimit "many"\r\n' | tee "$scratch/broken" >"$app/default.ghc"
run_gatehouse
expect_document_failure "$app/default.ghc" 2 'seta ui_ffa_fraglimit "many"'
expect_no_file "$app/default.ghc"
cmp -s "$scratch/broken" "$app/default.bad" || fail 'the broken document is lost'
start_until_ready
cmp -s "$golden_dir/default/default.ghc" "$app/default.ghc" || fail 'the new default document is another one'

new_case 'a document of 50 MB'
{
    filled_in "$cases/document.ghc"
    for ((i = 0; i < 8192; i++)); do
        printf 'seta sv_hostname "Line %05d"\r\nseta g_motd "      %05d      "\r\nseta com_blood "%d"\r\n// %05d\r\n' \
            "$i" "$i" $((i % 2)) "$i"
    done >"$scratch/block"
    for ((i = 0; i < 50 * 1048576 / $(stat -c %s "$scratch/block"); i++)); do cat "$scratch/block"; done
    printf 'seta sv_hostname "After 50 MB"\r\n'
} >"$document"
(($(stat -c %s "$document") > 49 * 1048576)) || fail 'the document is too short'
time_limit=240
SECONDS=0
run_document
expect_status 0
printf '   %d seconds\n' "$SECONDS"
grep -qaF 'sv_hostname              "After 50 MB"' "$game/baseq3/gatehouse.cfg" || fail 'the last line was not read'
time_limit=60

new_case 'options that are no numbers'
write_options startwith=abc
run_document
expect_printed 'There is a problem with the registry settings'
[[ -z $(option startwith) && -z $(option exepath) ]] || fail 'the broken options were kept'
cmp -s "$document" <(filled_in "$cases/document.ghc") || fail 'the document was changed'

new_case 'options that cannot be read'
rm "$options"
mkdir "$options"
run_document
expect_printed 'There is a problem with the registry settings'
cmp -s "$document" <(filled_in "$cases/document.ghc") || fail 'the document was changed'

# From here on rights count: the super-user has no use for them.
as_ordinary_user() {
    [[ $(id -u) == 0 ]] || return 0
    chmod 755 "$scratch"
    [[ $program == "$scratch"/* ]] || cp -r "$program" "$build_dir/data" "$scratch"
    program=$scratch/gatehouse
    chown -R 65534:65534 "$scratch/world" "$scratch/runtime"
    run_as=(setpriv --reuid=65534 --regid=65534 --clear-groups)
}

new_case 'a program folder that cannot be written'
as_ordinary_user
chmod -R a-w "$app"
snapshot >"$scratch/before"
run_document
expect_status 0 # the message is all: the run goes on
expect_printed 'Cannot create the Gatehouse error log.'
expect_server_started
expect_documents_kept "$scratch/before"
written=$(find "$app" -newer "$scratch/before")
[[ -z $written ]] || fail "written in the program folder: $written"
chmod -R u+w "$app"

new_case 'a game folder that cannot be written'
as_ordinary_user
chmod 555 "$game/baseq3"
run_document
expect_status 1
expect_printed 'An error occurred when trying to run the game. Check the error log.'
expect_not_started
chmod 755 "$game/baseq3"

if [[ $(id -u) == 0 ]]; then chown 0:0 "$scratch/runtime"; fi
run_as=()

new_case 'a full disk'
mkdir "$scratch/small"
if [[ $(id -u) == 0 ]] && mount -t tmpfs -o size=16k tmpfs "$scratch/small" 2>/dev/null; then
    mounted+=("$scratch/small")
    rmdir "$game/baseq3"
    ln -s "$scratch/small" "$game/baseq3"
    head -c 16k /dev/zero >"$scratch/small/filling" 2>/dev/null || true
    run_document
    expect_status 1
    expect_printed 'An error occurred when trying to run the game. Check the error log.'
    expect_not_started
    cmp -s "$document" <(filled_in "$cases/document.ghc") || fail 'the document was changed'
else
    skip 'no small disk can be mounted here'
fi

new_case 'hostile archives in a mod folder and in the game folder'
mkdir "$game/hostile"
"$BASH" "$e2e_dir/hostile_archive.sh" "$game/hostile/Hostile.PK3" 200000
"$BASH" "$e2e_dir/hostile_archive.sh" "$game/baseq3/short.pk3" 10
printf 'PK\3\4 and nothing more' >"$game/hostile/broken.pk3"
rm "$app/usermaps.txt" "$app/usermdls.txt"
SECONDS=0
run_document
expect_status 0
printf '   %d seconds\n' "$SECONDS"
expect_logged 'scanning Hostile.PK3'
expect_logged 'found 2 mods.'
escaped=$(find "$scratch" / /tmp /usr -maxdepth 1 -name '*escaped*'; find "$scratch/world" -name '*escaped*')
[[ -z $escaped ]] || fail "written outside of the target folder: $escaped"

case_name=
printf 'all passed\n'
