#!/usr/bin/env bash
# Installs the Debian packages the build needs, only those that are missing; packages named as
# arguments are wanted as well (`make fuzz` asks for clang and its fuzzer runtime, `make coverage`
# for gcovr).
set -euo pipefail
# chromium: the browser the 3D page is tested in.
packages=(cmake g++ ninja-build make libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev libcli11-dev
  librsvg2-dev librsvg2-bin fonts-dejavu-core pkg-config chromium "$@")
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
