#!/bin/bash
# Writes an archive with names that nobody should follow: out of the folder, absolute ones, and very many of them.
# Usage: hostile_archive.sh FILE COUNT
set -euo pipefail
unset LC_ALL
LC_ALL=C # lengths are bytes

file=$1
count=$2
names=('maps/../../../escaped.bsp' 'levelshots/../../../escaped.jpg' '../../../../../../../../../../tmp/gatehouse-escaped'
    '/tmp/gatehouse-escaped.bsp' 'C:\gatehouse-escaped.bsp' '..\..\escaped.exe' 'models/players/../../../../escaped/icon_x.tga'
    'vm/qagame.qvm')

# Little-endian numbers of two and of four bytes, as text for printf's %b.
u16() { printf -v "$1" '\\x%02x\\x%02x' $(($2 & 255)) $(($2 >> 8 & 255)); }
u32() { printf -v "$1" '\\x%02x\\x%02x\\x%02x\\x%02x' $(($2 & 255)) $(($2 >> 8 & 255)) $(($2 >> 16 & 255)) $(($2 >> 24 & 255)); }

entry_name() {
    if (($1 < ${#names[@]})); then
        name=${names[$1]}
    else
        printf -v name '../filling/%d/of-the-archive' "$1"
    fi
}

zeros() { printf '\\0%.0s' $(seq "$1"); }

# One stored byte, "x", in every entry: the local headers, the directory, its 64-bit end with the true count, the end.
stored='\x14\0\0\0\0\0\0\0\x21\x28\x83\x16\xdc\x8c\x01\0\0\0\x01\0\0\0'
{
    for ((i = 0; i < count; i++)); do
        entry_name "$i"
        u16 length ${#name}
        printf '%b%s%s' "PK\3\4$stored$length\0\0" "$name" x
    done
} >"$file"
start=$(stat -c %s "$file")
gap=$(zeros 12)
offset=0
{
    for ((i = 0; i < count; i++)); do
        entry_name "$i"
        u16 length ${#name}
        u32 place $offset
        printf '%b%s' "PK\1\2\x14\0$stored$length$gap$place" "$name"
        offset=$((offset + 30 + ${#name} + 1))
    done
} >>"$file"
end=$(stat -c %s "$file")
u32 count32 "$count"
u32 size $((end - start))
u32 start32 "$start"
u32 end32 "$end"
none='\0\0\0\0'
printf '%b' "PK\6\6\x2c$(zeros 7)\x2d\0\x2d\0$none$none$count32$none$count32$none$size$none$start32$none" \
    "PK\6\7$none$end32$none\1\0\0\0" "PK\5\6$none\xff\xff\xff\xff$size$start32\0\0" >>"$file"
