#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when any is missing.
# --fuzz adds what the fuzz targets need (clang and its libFuzzer and sanitizer runtimes); armhf adds the
# cross compiler, the sysroot maker and the emulator the tests run under.
set -euo pipefail
packages=(build-essential cmake pkg-config ccache qt6-base-dev qt6-tools-dev qt6-l10n-tools libsqlite3-dev
          libgtest-dev libgmock-dev googletest libbenchmark-dev)
if [ "${1:-}" = --fuzz ]; then
  packages+=(clang-14 libclang-rt-14-dev libfuzzer-14-dev)
fi
# armhf: the cross compiler, the sysroot maker and the emulator the tests run under.
[ "${1:-}" = armhf ] && packages+=(mmdebstrap g++-arm-linux-gnueabihf qemu-user)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "installing: ${missing[*]}" >&2
sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
