#!/bin/sh
# check_drawings.sh PROGRAM FOLDER: the committed drawings match the current meshes; scripts/draw-projections updates
# them.
set -eu

rm -rf "$2"
mkdir -p "$2"
"$1" "$2" >/dev/null
diff -rq docs/pictures/projections "$2"
