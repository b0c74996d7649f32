#!/bin/sh
# Builds the hosts against an installed tree, with the flags from pkg-config, and runs them.
# usage: check_hosts.sh HOSTS PKGCONFIG_FOLDER CC CXX WORK
set -eu
hosts=$1 cc=$3 cxx=$4 work=$5
export PKG_CONFIG_PATH="$2"

flags=$(pkg-config --cflags --libs 'fovix >= 1.2' opengl egl)
libdir=$(pkg-config --variable=libdir fovix)
rm -rf "$work"
mkdir -p "$work"
"$cc" -std=c99 -Wall -Wextra -Wpedantic -Werror "$hosts/host.c" -o "$work/host_c" $flags "-Wl,-rpath,$libdir"
"$cxx" -std=c++11 -Wall -Wextra -Wpedantic -Werror "$hosts/host.cpp" -o "$work/host_cpp" $flags "-Wl,-rpath,$libdir"
"$work/host_c"
"$work/host_cpp"
