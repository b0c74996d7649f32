#!/bin/sh
# The README quotes examples/show_picture.c exactly.
set -eu

awk '/^```c$/ { inside = 1; next } /^```$/ { inside = 0 } inside' README.md | diff -u examples/show_picture.c -
