#!/bin/sh
# Installs the build into a fresh prefix and checks what lands there and that the installed
# tool knows it is installed. Arguments: the build folder and the library folder below the
# prefix that the build installs to (lib, or lib/<multiarch> for a /usr prefix).
set -eu
build=$1
libdir=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

fail() {
    echo "install test: $*" >&2
    exit 1
}

cmake --install "$build" --prefix "$prefix" >/dev/null

[ -f "$prefix/bin/tidewell" ] && [ -x "$prefix/bin/tidewell" ] || fail "bin/tidewell missing"
[ -L "$prefix/bin/tide" ] || fail "bin/tide is no symbolic link"
[ "$(readlink "$prefix/bin/tide")" = tidewell ] || fail "bin/tide does not point to tidewell"
[ -d "$prefix/$libdir/tidewell" ] || fail "$libdir/tidewell is no folder"
[ -f "$prefix/share/applications/com.quorvel.tidewell.desktop" ] ||
    fail "share/applications/com.quorvel.tidewell.desktop missing"

mkdir "$prefix/home"
status=$(env -i PATH="$PATH" HOME="$prefix/home" XDG_CONFIG_HOME="$prefix/home/config" \
    XDG_DATA_HOME="$prefix/home/data" "$prefix/bin/tide" login-status)
[ "$status" = "not registered" ] || fail "login-status printed '$status'"
