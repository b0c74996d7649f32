#!/bin/sh
# Configures a project that has the whole tree as a subdirectory, and checks that it installs none of it.
# usage: check_subproject.sh CMAKE GENERATOR CC CXX PROJECT TREE WORK
set -eu
cmake=$1 generator=$2 cc=$3 cxx=$4 project=$5 tree=$6 work=$7

rm -rf "$work"
"$cmake" -G "$generator" -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" -DFOVIX_TREE="$tree" \
    -S "$project" -B "$work"
DESTDIR=$work/stage "$cmake" --install "$work"
[ ! -e "$work/stage" ] || {
    echo "installed unasked:"
    find "$work/stage" ! -type d
    exit 1
}
