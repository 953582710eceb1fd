#!/usr/bin/env bash
# Installs the Debian packages Tidewell needs to build, run and test, skipping those that
# are already there. Uses sudo only when not running as root.
set -euo pipefail

packages=(
  # build, and the Debian package's dependencies
  g++ cmake ninja-build pkg-config dpkg-dev
  libutf8proc-dev libstb-dev libsystemd-dev qt6-base-dev libglib2.0-dev
  libx11-dev libxi-dev libxtst-dev libxext-dev qt6-declarative-dev qt6-svg-dev
  # run
  $(grep -v '^#' "$(dirname "$0")/../packaging/runtime-packages")
  # test, fuzz and benchmark
  libgtest-dev libgmock-dev dbus-daemon dbus-bin clang-14 libclang-rt-14-dev zoxide
  # the Wayland end-to-end tests: a compositor, its screenshots, a Wayland terminal, the
  # virtual pointer client's build and Qt's Wayland platform for the test windows
  sway grim foot libwayland-dev libwayland-bin qt6-wayland
  xvfb openbox x11-utils xterm xdotool xcompmgr imagemagick
  xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils
)

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [[ $status == "install ok installed" ]] || missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

sudo=()
[[ $(id -u) -eq 0 ]] || sudo=(sudo)
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
