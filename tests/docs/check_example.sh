#!/bin/sh
# The README shows examples/show_picture.c as it is.
set -eu

awk '/^```c$/ { inside = 1; next } /^```$/ { inside = 0 } inside' README.md | diff -u examples/show_picture.c -
