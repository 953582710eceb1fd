#!/usr/bin/env bash
# Writes to standard output the open shelf of the home folder $1 under a headless sway, as a
# PNG of the top centre of its one 1920x1080 output. sway refuses root: screenshots.sh runs
# this through tests/wayland/run-as-test-user.sh, which passes on only PATH and
# TIDEWELL_BUILD_DIR, the build tree.
set -euo pipefail
home=$1
build=${TIDEWELL_BUILD_DIR:-build}
runtime=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$runtime"' EXIT
unset DISPLAY
export XDG_RUNTIME_DIR=$runtime

convert -size 1920x1080 gradient:'#7f9cc8-#d9a7a0' "$runtime/desktop.png"
printf 'xwayland disable\noutput HEADLESS-1 mode 1920x1080 bg %s fill\n' \
  "$runtime/desktop.png" >"$runtime/config"
WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman HOME=$runtime \
  sway --config "$runtime/config" >"$runtime/sway.log" 2>&1 &
export SWAYSOCK=$runtime/sway-ipc.$(id -u).$!.sock

# $1 what is awaited, then the command that tells it has come.
await() {
  local what=$1 _
  shift
  for _ in $(seq 150); do "$@" >/dev/null 2>&1 && return; sleep 0.1; done
  echo "screenshot-sway.sh: $what never came; sway said:" >&2
  cat "$runtime/sway.log" >&2
  exit 1
}
desktop_drawn() {
  local colour
  colour=$(grim -g '960,540 1x1' - | convert - -format '%[hex:p{0,0}]' info:)
  [[ -n $colour && $colour != 000000 ]]
}
await "sway's socket" compgen -G "$runtime/wayland-*[0-9]"
export WAYLAND_DISPLAY
WAYLAND_DISPLAY=$(basename "$(compgen -G "$runtime/wayland-*[0-9]" | head -n 1)")
await "sway's answer" swaymsg -t get_outputs
await "the desktop picture" desktop_drawn

# The pointer lives as long as the probe: it stays until the picture is taken.
coproc hand { "$build/tests/tidewell_virtual_pointer_probe" 1920 1080; }
read -r line <&"${hand[0]}"
[[ $line == ready ]]
env HOME="$home" XDG_DATA_HOME="$home/.local/share" XDG_CONFIG_HOME="$home/.config" \
  XDG_SESSION_TYPE=wayland "$build/tidewell" >/dev/null 2>&1 &
sleep 1.5
# Open once the body reaches below the tiles and two pictures in a row are the same. The
# pointer comes again each time, in case the shelf's surface came after it.
shelf_open() {
  printf 'move 960 40\nmove 960 5\n' >&"${hand[1]}"
  read -r _ <&"${hand[0]}" && read -r _ <&"${hand[0]}"
  grim -g '460,0 1000x190' "$runtime/now.png"
  local still=0
  ! cmp -s "$runtime/now.png" "$runtime/shelf.png" || still=1
  mv "$runtime/now.png" "$runtime/shelf.png"
  ((still)) && [[ $(convert "$runtime/shelf.png" -format '%[hex:p{500,100}]' info:) == 000000 ]]
}
await "the open shelf" shelf_open
cat "$runtime/shelf.png"
