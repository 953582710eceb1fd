#!/usr/bin/env bash
# Installs the Debian packages Tidewell needs to build, run and test, skipping those that
# are already there. Uses sudo only when not running as root.
set -euo pipefail

packages=(
  # build, and the Debian package's dependencies
  g++ cmake ninja-build pkg-config dpkg-dev
  libutf8proc-dev libstb-dev libsystemd-dev qt6-base-dev libglib2.0-dev
  libx11-dev libxi-dev libxtst-dev libxext-dev qt6-declarative-dev qt6-svg-dev
  qt6-base-private-dev libwayland-dev libwayland-bin wayland-protocols
  # run
  $(grep -v '^#' "$(dirname "$0")/../packaging/runtime-packages")
  # test, fuzz and benchmark
  libgtest-dev libgmock-dev dbus-daemon dbus-bin clang-14 libclang-rt-14-dev zoxide
  xvfb openbox x11-utils xterm xdotool xcompmgr imagemagick
  xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils
  # the Wayland end-to-end tests: compositors with and without layer shell, screenshots, a
  # Wayland terminal
  sway swaybg grim foot weston
)
# Qt's private Wayland client headers, which the layer-shell plugin builds against, are in
# Debian 12's backports suite only, and pin the rest of Qt Wayland to the same version: the
# whole set comes from there, named one by one so that nothing else does.
backports=(qt6-wayland qt6-wayland-dev qt6-wayland-private-dev qt6-wayland-dev-tools
  libqt6waylandclient6 libqt6waylandcompositor6 libqt6waylandeglclienthwintegration6
  libqt6waylandeglcompositorhwintegration6 libqt6wlshellintegration6)

installed() {
  [[ $(dpkg-query -W -f='${Status}' "$1" 2>/dev/null || true) == "install ok installed" ]]
}
missing=()
for package in "${packages[@]}"; do
  [[ " ${backports[*]} " == *" $package "* ]] || installed "$package" || missing+=("$package")
done
for package in "${backports[@]}"; do
  installed "$package" || { missing+=("${backports[@]/%//bookworm-backports}"); break; }
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

sudo=()
[[ $(id -u) -eq 0 ]] || sudo=(sudo)

# Adds bookworm-backports from the archive address this machine already uses for bookworm,
# unless some source lists that suite already.
enable_backports() {
  local lists=(/etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources)
  grep -qs 'bookworm-backports' "${lists[@]}" && return 0
  local uri keyring
  uri=$(awk '/^URIs:/ {u = $2} /^Suites:/ && / bookworm( |$)/ {print u; exit}' \
    /etc/apt/sources.list.d/*.sources 2>/dev/null || true)
  keyring=/usr/share/keyrings/debian-archive-keyring.gpg
  [[ -n $uri ]] || uri=$(awk '$1 == "deb" && $3 == "bookworm" && $2 !~ /^\[/ {print $2; exit}' \
    /etc/apt/sources.list 2>/dev/null || true)
  [[ -n $uri ]] || { echo "install-deps: no bookworm archive configured to take backports from" >&2; exit 1; }
  printf 'Types: deb\nURIs: %s\nSuites: bookworm-backports\nComponents: main\nSigned-By: %s\n' \
    "$uri" "$keyring" | "${sudo[@]}" tee /etc/apt/sources.list.d/tidewell-backports.sources >/dev/null
}

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
enable_backports
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
