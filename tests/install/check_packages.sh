#!/bin/sh
# Makes the Debian packages, checks them with lintian, installs them into an empty root, runs a program there and removes
# them.
# usage: check_packages.sh SOURCE BUILD WORK
set -eu
source=$1 build=$2 work=$3
packages=$work/packages root=$work/root
names="libfovix1 libfovix-dev fovix-tools"

fail() {
    printf '%s\n' "$@"
    exit 1
}

# The empty root does not have the system's packages, so dependencies are not checked.
in_root() {
    dpkg --root="$root" --log=/dev/null --force-not-root --force-bad-path --force-depends "$@"
}

rm -rf "$packages" "$root"
"$source/scripts/package" "$packages" "$build"
lintian --allow-root --fail-on error "$packages"/*.deb
version=$(dpkg-deb -f "$packages"/libfovix1_*.deb Version)
for name in libfovix-dev fovix-tools; do
    dpkg-deb -f "$packages/$name"_*.deb Depends | grep -qF "libfovix1 (= $version)" ||
        fail "$name: should depend on libfovix1 of the same version"
done

for name in libfovix1 libfovix-dev; do
    [ "$(dpkg-deb -f "$packages/$name"_*.deb Multi-Arch)" = same ] || fail "$name: not for several architectures"
done

dpkg-deb -I "$packages"/libfovix1_*.deb symbols | grep -q '^ Fovix_Version@' || fail "libfovix1: no symbols file"

mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
touch "$root/var/lib/dpkg/status"
in_root --install "$packages"/*.deb
for name in $names; do
    state=$(dpkg-query --admindir="$root/var/lib/dpkg" -W -f '${db:Status-Status}' "$name")
    [ "$state" = installed ] || fail "$name: $state"
done
LD_LIBRARY_PATH=$(dirname "$root"/usr/lib/*/libfovix.so.1) "$root/usr/bin/fovix-render" --version
! readelf -d "$root"/usr/bin/* "$root"/usr/lib/*/*.so.* | grep -E 'R(UN)?PATH' ||
    fail "programs of packages should load from where the system does"
named=$(grep -rlF -e "$source" -e "$build" "$root/usr" || true)
[ -z "$named" ] || fail "these name folders of the build:" "$named"

in_root --purge $names
left=$(find "$root" ! -path "$root/var/lib/dpkg*" ! -path "$root/var/lib" ! -path "$root/var" ! -path "$root")
[ -z "$left" ] || fail "left after removal:" "$left"
