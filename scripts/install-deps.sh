#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing Zonara need.
# Idempotent: apt-get runs only when a package is missing.
set -euo pipefail

packages=(
    cmake g++ make pkg-config
    qt6-base-dev qt6-qpa-plugins libgl-dev
    libpugixml-dev libcurl4-openssl-dev nlohmann-json3-dev
    nginx-light fcgiwrap
    libgtest-dev libbenchmark-dev
    fonts-dejavu-core tzdata
    desktop-file-utils appstream  # the install test validates the menu entry and metadata
)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "Installing: ${missing[*]}" >&2
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
    sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
