#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the gallery need, when missing.
# Works on a fresh Debian 12 machine as root (sudo need not be installed) or as a user who may
# use sudo; without either it names the missing packages and fails.
set -euo pipefail

packages=(
  cmake make g++ git
  g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
  wine wine64 xvfb xauth x11-utils
  googletest
  clang libclang-rt-14-dev
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "install-deps: need root or sudo to install: ${missing[*]}" >&2; exit 1; }
  sudo=sudo
fi
echo "install-deps: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
