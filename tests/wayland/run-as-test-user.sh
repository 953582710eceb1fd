#!/usr/bin/env bash
# sway refuses root: runs a Wayland test program as the user tidewell-test, made here the first
# time. Run by another user, or asked only to list its tests, the program runs as it is.
set -euo pipefail
user=tidewell-test
if [[ $(id -u) -ne 0 || " $* " == *" --gtest_list_tests "* ]]; then
  exec "$@"
fi
# The terminal a test opens runs the user's login shell.
id -u "$user" >/dev/null 2>&1 || useradd --system --no-create-home --shell /bin/sh "$user"
build=${TIDEWELL_BUILD_DIR:-$(dirname "$1")}
reachable() { runuser -u "$user" -- test -x "$1" -a -r "$build" -a -x "$build"; }
# A build tree below a private folder (root's home, say) is opened to the test user: every
# user may then pass through the folders above it, and list none of them.
folder=$(realpath "$build")
until reachable "$1" || [[ $folder == / ]]; do
  folder=$(dirname "$folder")
  chmod o+x "$folder"
done
reachable "$1" || { echo "$0: the user $user cannot read $build; let every user read it" >&2; exit 1; }
exec runuser -u "$user" -- env -i PATH="$PATH" TIDEWELL_BUILD_DIR="$build" "$@"
