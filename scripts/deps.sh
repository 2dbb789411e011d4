#!/usr/bin/env bash
# Installs the Debian packages that are missing. `deps.sh demo` installs what building and running
# the tool needs; without it, what the tests and benchmarks need as well; packages named as
# arguments are wanted too (`make fuzz` asks for clang and its fuzzer runtime, `make coverage` for
# gcovr).
set -euo pipefail
# The module, the stand-ins and the tool; pango lays out the text of PNG previews.
packages=(cmake g++ ninja-build make pkg-config nlohmann-json3-dev libcli11-dev librsvg2-dev libpango1.0-dev
  fonts-dejavu-core)
if [ "${1:-}" = demo ]; then
  shift
else
  # chromium: the browser the 3D page is tested in; rsvg-convert to look at pictures by hand.
  packages+=(libgtest-dev libgmock-dev libbenchmark-dev chromium librsvg2-bin)
fi
packages+=("$@")
# node and npm build the 3D page; a node installed otherwise than from Debian's package will do.
if ! command -v node >/dev/null || ! command -v npm >/dev/null; then
  packages+=(nodejs npm)
fi
missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
if [ "${#missing[@]}" -eq 0 ]; then
  exit 0
fi
echo "Installing: ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
