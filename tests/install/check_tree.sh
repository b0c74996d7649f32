#!/bin/sh
# Installs the built tree, moves it to another folder and checks its contents.
# usage: check_tree.sh CMAKE SOURCE BUILD PREFIX LIBDIR MOVED
set -eu
cmake=$1 source=$2 build=$3 prefix=$4 libdir=$5 moved=$6

fail() {
    printf '%s\n' "$@"
    exit 1
}

rm -rf "$moved" "$moved.stage"
DESTDIR=$moved.stage "$cmake" --install "$build" --strip >/dev/null
mv "$moved.stage$prefix" "$moved"

foreign=$({
    find "$moved.stage" ! -type d
    cd "$moved" && find . ! -type d
} | grep -vxE "\./include/Fovix\.h|\./bin/fovix-[a-z]+|\./share/man/man1/fovix-[a-z]+\.1|\
\./$libdir/(libfovix\.so(\.[0-9]+)*|pkgconfig/fovix\.pc|cmake/fovix/fovixConfig[-A-Za-z]*\.cmake)" || true)
[ -z "$foreign" ] || fail "installed without need:" "$foreign"
named=$(grep -rlF -e "$source" -e "$build" "$moved" || true)
[ -z "$named" ] || fail "these name folders of the build:" "$named"

version=$(sed -n 's/^#define FOVIX_VERSION_[A-Z]* \([0-9]*\).*/\1/p' "$moved/include/Fovix.h" | paste -sd.)
[ "$(readlink "$moved/$libdir/libfovix.so")" = "libfovix.so.${version%%.*}" ] || fail "libfovix.so: wrong link"
[ "$(readlink "$moved/$libdir/libfovix.so.${version%%.*}")" = "libfovix.so.$version" ] || fail "soname: wrong link"
told=$(PKG_CONFIG_PATH=$moved/$libdir/pkgconfig pkg-config --modversion fovix)
[ "$told" = "$version" ] || fail "version $told for pkg-config, $version in the header"

for program in "$moved"/bin/*; do
    ldd "$program" | grep -qF "=> $moved/" || fail "$program: finds no library beside itself"
    "$program" --version
done
