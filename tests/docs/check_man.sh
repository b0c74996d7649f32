#!/bin/sh
# check_man.sh PROGRAM PAGE [MANDOC]: the page documents exactly the options of --help, and MANDOC reports no warnings.
set -eu
program=$1
page=$2
mandoc=${3:-}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# In the help an option starts its line; in the page it is a list item.
"$program" --help | sed -n 's/^  *\(-.,\)\{0,1\}\(--[a-z0-9-]*\).*/\2/p' | sort -u >"$folder/help"
sed -n '/^\.It Fl/ s/.*Fl -\([a-z0-9-]*\).*/--\1/p' "$page" | sort -u >"$folder/page"
[ -s "$folder/help" ]
diff -u --label "$program --help" --label "$page" "$folder/help" "$folder/page"
if [ -n "$mandoc" ]; then "$mandoc" -T lint -W warning "$page"; fi
