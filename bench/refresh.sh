#!/usr/bin/env bash
# A refresh of a thousand servers on the loopback, beside quakestat's on the same list with as many at a time, as fast and
# as patient: refresh.sh [COUNT] [RUNS]. Needs the package qstat.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
count=${1:-1000}
runs=${2:-3}
folder=$(mktemp -d)
trap 'exec {input}>&-; rm -rf "$folder"' EXIT

mkfifo "$folder/input"
python3 tests/support/net/fake_servers.py "$count" <"$folder/input" >"$folder/output" &
exec {input}>"$folder/input"
until [[ $(wc -l <"$folder/output") -gt $count ]]; do sleep 0.05; done
tail -n +2 "$folder/output" >"$folder/list"
sed 's/^/q3s /' "$folder/list" >"$folder/qlist"

for ((run = 0; run < runs; ++run)); do
    build-bench/bench/refresh "$folder/list"
    # Retries and their interval as ours: two tries of a second each, a datagram every 5 ms.
    /usr/bin/time -f '%e s wall, quakestat' quakestat -f "$folder/qlist" -maxsim 32 -retry 2 -interval 1 \
        -sendinterval 5 >"$folder/answers"
    awk '$2 == "no" || $3 == "no" {++silent} END {print NR - 1 " lines, " silent + 0 " without an answer"}' "$folder/answers"
done
