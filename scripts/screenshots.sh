#!/usr/bin/env bash
# Takes the README's pictures of the open shelf: both appearances, light and dark desktops,
# with 0, 3 and 12 projects. Runs the built program on a virtual display of its own with a
# home folder of its own; writes docs/shelf-<appearance>-<scheme>-<count>.png.
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
    local folder="$home/Projects/${projects[i]}"
    mkdir -p "$folder"
    if ((i % 3 == 1)); then
      convert -size 256x256 radial-gradient:'#ffd27a-#e0672b' "$folder/icon.png"
    fi
    HOME=$home XDG_DATA_HOME=$home/.local/share XDG_CONFIG_HOME=$home/.config \
      "$build/tide" add "$folder" >/dev/null
  done
}

# $1 appearance (notchBlack, warmGlass), $2 scheme (light, dark), $3 project count.
shoot() {
  local appearance=$1 scheme=$2 count=$3
  local home="$work/home-$appearance-$scheme-$count"
  mkdir -p "$home/.config/Tidewell"
  printf '[General]\nshelfAppearance=%s\n' "$appearance" >"$home/.config/Tidewell/Tidewell.conf"
  local desktop=()
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
COLOURS
    desktop=(XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5)
  fi
  pin_projects "$home" "$count"
  env HOME="$home" XDG_DATA_HOME="$home/.local/share" XDG_CONFIG_HOME="$home/.config" \
    "${desktop[@]}" "$build/tidewell" >/dev/null 2>&1 &
  local app=$!
  sleep 1.5
  # Warps make no pointer events: warp near the notch, then move onto it.
  xdotool mousemove 960 40 mousemove_relative -- 0 -35
  sleep 0.8
  local file="$out/shelf-$appearance-$scheme-$count.png"
  import -window root -crop 1000x190+460+0 +repage "$file"
  kill "$app"
  wait "$app" 2>/dev/null || true
  xdotool mousemove 960 700 mousemove_relative 0 1
  echo "$file"
}

for appearance in notchBlack warmGlass; do
  for scheme in light dark; do
    for count in 0 3 12; do
      shoot "$appearance" "$scheme" "$count"
    done
  done
done
