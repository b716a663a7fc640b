#!/usr/bin/env bash
# Installs, with apt-get and only when missing, every Debian package the
# build and the tests need: the C++ toolchain and libraries, node and npm
# for the page of corvane ui when node is absent, and Chromium for the
# browser tests. Quiet when everything is there.
set -euo pipefail

packages=(cmake ninja-build g++ libgtest-dev libgmock-dev libcli11-dev nlohmann-json3-dev libfmt-dev
          libcpp-httplib-dev pkgconf chromium "$@")
command -v node >/dev/null 2>&1 || packages+=(nodejs npm)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}" >&2
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
