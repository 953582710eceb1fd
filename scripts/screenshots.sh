#!/usr/bin/env bash
# Takes the README's pictures: the open shelf in both appearances, light and dark desktops,
# with 0, 3 and 12 projects, with 40 (more than fit) as it opens and scrolled to the end by
# the wheel, and the settings window on light and dark desktops with three projects. Runs
# the built program on a virtual display of its own with a home folder of its own; writes
# docs/shelf-<appearance>-<scheme>-<count>[-scrolled].png and docs/settings-<scheme>.png.
# Then the open shelf under sway: docs/shelf-wayland-sway.png (see screenshot-sway.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${BUILD:-build}
out=docs
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT

display=:$((100 + RANDOM % 400))
Xvfb "$display" -screen 0 1920x1080x24 -nolisten tcp >/dev/null 2>&1 &
export DISPLAY=$display
for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
openbox >/dev/null 2>&1 &
# A soft desktop picture, so that the outline stands out. (No compositor: xcompmgr paints a
# root window without a wallpaper property black, and the glass then shows its opaque look.)
convert -size 1920x1080 gradient:'#7f9cc8-#d9a7a0' "$work/desktop.png"
display -window root "$work/desktop.png" &
sleep 1

projects=(api-gateway design-system mobile-app data-pipeline docs-site billing
  search-service infra analytics auth-service notebooks release-tools)

# $1 home, $2 count: pins that many projects; every third gets an icon of its own.
pin_projects() {
  local home=$1 count=$2 i
  for ((i = 0; i < count; i++)); do
    local name=${projects[i % ${#projects[@]}]}
    ((i < ${#projects[@]})) || name+="-$((i / ${#projects[@]} + 1))"
    local folder="$home/Projects/$name"
    mkdir -p "$folder"
    if ((i % 3 == 1)); then
      convert -size 256x256 radial-gradient:'#ffd27a-#e0672b' "$folder/icon.png"
    fi
    HOME=$home XDG_DATA_HOME=$home/.local/share XDG_CONFIG_HOME=$home/.config \
      "$build/tide" add "$folder" >/dev/null
  done
}

# $1 home, $2 appearance (notchBlack, warmGlass), $3 scheme (light, dark), $4 project count:
# a home with these preferences and projects.
make_home() {
  local home=$1 appearance=$2 scheme=$3 count=$4
  mkdir -p "$home/.config/Tidewell"
  printf '[General]\nshelfAppearance=%s\n' "$appearance" >"$home/.config/Tidewell/Tidewell.conf"
  if [[ $scheme == dark ]]; then
    # The desktop's own colour settings, as a KDE session keeps them.
    cat >"$home/.config/kdeglobals" <<'COLOURS'
[Colors:Window]
BackgroundNormal=35,38,41
ForegroundNormal=239,240,241
[Colors:View]
BackgroundNormal=27,30,32
ForegroundNormal=239,240,241
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
COLOURS
  fi
  pin_projects "$home" "$count"
}

# $1 home, $2 scheme: starts the application there in the background; its pid is in $app.
start_app() {
  local home=$1 scheme=$2 desktop=()
  [[ $scheme == dark ]] && desktop=(XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5)
  env HOME="$home" XDG_DATA_HOME="$home/.local/share" XDG_CONFIG_HOME="$home/.config" \
    "${desktop[@]}" "$build/tidewell" >/dev/null 2>&1 &
  app=$!
  sleep 1.5
}

stop_app() {
  kill "$app"
  wait "$app" 2>/dev/null || true
  xdotool mousemove 960 700 mousemove_relative 0 1
}

# Warps make no pointer events: warp near the notch, then move onto it.
open_shelf() {
  xdotool mousemove 960 40 mousemove_relative -- 0 -35
  sleep 1.2
}

# $1 appearance, $2 scheme, $3 project count, $4 "scrolled" to turn the wheel over the
# strip to its end first. Shelves wider than 1000 pixels are taken whole.
shoot() {
  local appearance=$1 scheme=$2 count=$3 scrolled=${4:-}
  local home="$work/home-$appearance-$scheme-$count${scrolled:+-scrolled}"
  make_home "$home" "$appearance" "$scheme" "$count"
  start_app "$home" "$scheme"
  open_shelf
  local file="$out/shelf-$appearance-$scheme-$count${scrolled:+-scrolled}.png"
  if [[ -n $scrolled ]]; then
    xdotool mousemove_relative -- 0 60
    for _ in $(seq 20); do xdotool click 5; done
    xdotool mousemove_relative -- 0 -60
    sleep 0.5
  fi
  local crop=1000x190+460+0
  ((count * 66 + 59 <= 1000)) || crop=1920x190+0+0
  import -window root -crop "$crop" +repage "$file"
  stop_app
  echo "$file"
}

# $1 scheme: the settings window with three projects, the first one's details open, made
# tall enough to show them all.
shoot_settings() {
  local scheme=$1
  local home="$work/$scheme/home/alex"
  make_home "$home" notchBlack "$scheme" 3
  start_app "$home" "$scheme"
  open_shelf
  # The gear tile follows the three tiles of a shelf 257 wide, centred on the screen.
  xdotool mousemove 1062 60 mousemove_relative -- 0 7 click 1
  sleep 1
  local window
  window=$(xdotool search --sync --onlyvisible --name '^Tidewell Settings$' | head -n 1)
  xdotool windowsize "$window" 700 800
  sleep 0.5
  # "Edit details" of the first project, then away from the window.
  xdotool mousemove --window "$window" 613 400 click 1
  xdotool mousemove 1800 1000 mousemove_relative 0 1
  sleep 0.8
  local file="$out/settings-$scheme.png"
  import -window "$window" "$file"
  stop_app
  echo "$file"
}

for appearance in notchBlack warmGlass; do
  for scheme in light dark; do
    for count in 0 3 12; do
      shoot "$appearance" "$scheme" "$count"
    done
  done
done
shoot notchBlack dark 40
shoot notchBlack dark 40 scrolled
shoot warmGlass light 40 scrolled
for scheme in light dark; do
  shoot_settings "$scheme"
done

# A home that sway's user, unprivileged when this runs as root, may enter and write.
home="$work/home-wayland"
make_home "$home" notchBlack light 5
chmod -R a+rwX "$work"
TIDEWELL_BUILD_DIR=$(realpath "$build") tests/wayland/run-as-test-user.sh \
  "$PWD/scripts/screenshot-sway.sh" "$home" >"$work/sway.png"
mv "$work/sway.png" "$out/shelf-wayland-sway.png"
echo "$out/shelf-wayland-sway.png"
