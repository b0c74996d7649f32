#!/bin/sh
# Every file that a document links to or shows is there, and every committed picture of docs/ is shown somewhere.
set -eu

bad=0
for document in README.md CHANGELOG.md docs/*.md; do
    folder=$(dirname "$document")
    for target in $(grep -o ']([^)#: ]*[)#]' "$document" | sed 's/^](//; s/[)#]$//'); do
        [ -e "$folder/$target" ] && continue
        echo "$document: $target is not there"
        bad=1
    done
done
for picture in docs/pictures/*.png docs/pictures/*/*.*; do
    grep -qF "pictures/${picture#docs/pictures/})" README.md docs/*.md && continue
    echo "$picture: no document shows it"
    bad=1
done
exit $bad
