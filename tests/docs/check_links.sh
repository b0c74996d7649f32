#!/bin/sh
# Every link of a document leads to a file and a chapter that exist, and some document shows every picture of docs/.
set -eu

# The names by which links address a document's headings.
anchors() {
    sed -n 's/^##* //p' "$1" | tr 'A-Z ' 'a-z-' | sed 's/[^a-z0-9_-]//g'
}

bad=0
for document in *.md docs/*.md; do
    for link in $(grep -o ']([^): ]*)' "$document" | sed 's/^](//; s/)$//'); do
        file=${link%%#*}
        target=${file:+$(dirname "$document")/$file}
        target=${target:-$document}
        [ -e "$target" ] || {
            echo "$document: $link leads to no file"
            bad=1
            continue
        }
        case $link in *'#'*) anchors "$target" | grep -qx -- "${link##*#}" || {
            echo "$document: $link leads to no chapter"
            bad=1
        } ;; esac
    done
done
for picture in docs/pictures/*.png docs/pictures/*/*.*; do
    grep -qF "pictures/${picture#docs/pictures/})" *.md docs/*.md && continue
    echo "$picture: no document shows it"
    bad=1
done
exit $bad
