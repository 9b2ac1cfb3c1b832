#!/bin/bash
# Writes an archive with names that nobody should follow: out of the folder, absolute ones, and very many of them.
# Usage: hostile_archive.sh FILE COUNT
# shellcheck disable=SC2154 # the fields are named where they are packed
set -euo pipefail
unset LC_ALL
LC_ALL=C # lengths are bytes

file=$1
count=$2
names=('maps/../../../escaped.bsp' 'levelshots/../../../escaped.jpg' 'models/players/../../../../escaped/icon_x.tga'
    '../../../../../../../../../../tmp/gatehouse-escaped' '/tmp/gatehouse-escaped.bsp' 'C:\gatehouse-escaped.bsp'
    '..\..\escaped.exe' 'vm/qagame.qvm')

# Pack a number into a variable, as text for printf's %b: two or four bytes, the lowest first.
pack2() { printf -v "$1" '\\x%02x\\x%02x' $(($2 & 255)) $(($2 >> 8 & 255)); }
pack4() {
    local low high
    pack2 low $(($2 & 65535))
    pack2 high $(($2 >> 16))
    printf -v "$1" '%s' "$low$high"
}

zeros() { printf '\\0%.0s' $(seq "$1"); }

take_name() {
    if (($1 < ${#names[@]})); then
        name=${names[$1]}
    else
        printf -v name '../filling/%d/of-the-archive' "$1"
    fi
    pack2 length ${#name}
}

# Each entry is one stored byte, "x". Its fields from the version needed to the size, the same in both of its headers:
entry="\x14\0$(zeros 6)\x21\x28\x83\x16\xdc\x8c\x01\0\0\0\x01\0\0\0"

for ((i = 0; i < count; i++)); do
    take_name "$i"
    printf '%b%s%s' "PK\3\4$entry$length\0\0" "$name" x
done >"$file"
start=$(stat -c %s "$file")

position=0
zeros12=$(zeros 12)
for ((i = 0; i < count; i++)); do
    take_name "$i"
    pack4 place "$position"
    printf '%b%s' "PK\1\2\x14\0$entry$length$zeros12$place" "$name"
    position=$((position + 30 + ${#name} + 1))
done >>"$file"
end=$(stat -c %s "$file")

# The 64-bit end of the directory, which holds the true count, its locator, and the common end, which refers to them.
pack4 entries "$count"
pack4 size $((end - start))
pack4 first "$start"
pack4 end64 "$end"
none=$(zeros 4)
printf '%b' "PK\6\6\x2c$(zeros 7)\x2d\0\x2d\0$none$none$entries$none$entries$none$size$none$first$none" \
    "PK\6\7$none$end64$none\1\0\0\0" "PK\5\6$none\xff\xff\xff\xff$size$first\0\0" >>"$file"
