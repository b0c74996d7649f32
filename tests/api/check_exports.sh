#!/bin/sh
# Compares three lists of public names: the exports of the built library, the declarations of the header, and
# the names in the version script. Exits with status 1 if they differ.
# usage: check_exports.sh LIBRARY HEADER LIST [NM]
set -eu
export LC_ALL=C

library=$1 header=$2 list=$3 nm=${4:-nm}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$nm" -D --defined-only "$library" > "$work/symbols"
# Symbol versions (type A) and the version suffix of a name (@@FOVIX_1) are not part of the interface.
awk '$(NF - 1) != "A" { sub(/@.*/, "", $NF); print $NF }' "$work/symbols" | sort > "$work/exported"
sed -n 's/^FOVIX_API [^(]*[ *]\([A-Za-z0-9_]*\)(.*/\1/p' "$header" | sort > "$work/declared"

# Declarations that the pattern above cannot read must be noticed.
marked=$(grep -c '^ *FOVIX_API ' "$header" || true)
read_back=$(wc -l < "$work/declared")
status=0
if [ "$marked" -ne "$read_back" ] || [ "$marked" -eq 0 ]; then
    echo "header: $marked declarations marked FOVIX_API, $read_back names read"
    status=1
fi
if ! sort -c -u "$list"; then
    echo "$list: not sorted, or a name stands twice"
    status=1
fi
for other in exported declared; do
    if ! diff -u --label "version script" --label "$other" "$list" "$work/$other"; then
        echo "names $other (+) differ from those promised (-)"
        status=1
    fi
done
exit "$status"
