#!/bin/sh
# check_drawings.sh PROGRAM FOLDER: the committed drawings are those of today's meshes; scripts/draw-projections makes
# them anew.
set -eu

rm -rf "$2"
mkdir -p "$2"
"$1" "$2" >/dev/null
diff -rq docs/pictures/projections "$2"
