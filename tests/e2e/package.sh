#!/bin/bash
# The package in a fresh minimal system: installed, a first start to a running game, a document opened by its file, and
# removed again, with nothing left but what is the user's own. Needs root.
# Usage: package.sh PACKAGE.deb
# shellcheck source-path=SCRIPTDIR disable=SC2154
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

package=$1
root=$scratch/root

in_root() { chroot "$root" env DEBIAN_FRONTEND=noninteractive LANG=C.UTF-8 "$@"; }

# Every file of the system, but for what the package tools note of themselves.
files_of_root() {
    (cd "$root" && find . -mindepth 1 \( -path ./proc -o -path ./dev -o -path ./tmp -o -path ./var/lib/dpkg -o -path ./var/lib/apt \
        -o -path ./var/log -o -path ./var/cache \) -prune -o -print | sort)
}

begin 'a fresh minimal system'
# shellcheck source=/dev/null
release=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
mmdebstrap --quiet --mode=root --variant=minbase --skip=cleanup/apt/lists "$release" "$root" || fail 'no minimal system'
cp -L /etc/resolv.conf "$root/etc/"
mount --bind /proc "$root/proc"
mounted+=("$root/proc")

begin 'the package is installed'
cp "$package" "$root/tmp/gatehouse.deb"
in_root apt-get install -q -y --no-install-recommends /tmp/gatehouse.deb >"$scratch/stdout" 2>"$scratch/stderr" ||
    fail 'it can not be installed'
rm "$root/tmp/gatehouse.deb"
[[ $(in_root gatehouse --version) == "gatehouse $version" ]] || fail 'another version, or none'
files_of_root >"$scratch/installed"

begin 'a first start in it'
: >"$scratch/stdout"; : >"$scratch/stderr"
"$e2e_dir/newcomer.sh" "$root" || fail 'the first start'

begin 'the package is removed'
in_root apt-get purge -q -y gatehouse >"$scratch/stdout" 2>"$scratch/stderr" || fail 'it can not be removed'
files_of_root >"$scratch/left"
comm -13 "$scratch/installed" "$scratch/left" >"$scratch/new"
[[ ! -s $scratch/new ]] || fail "left behind: $(cat "$scratch/new")"
! grep -i gatehouse "$scratch/left" || fail 'files of the package are left'

case_name=
printf 'all passed\n'
