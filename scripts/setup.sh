#!/bin/bash
# setup.sh <package>...: installs those Debian packages that are missing; silent when none is.
set -euo pipefail

missing=()
for package in "$@"; do
    if ! dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed; then
        missing+=("$package")
    fi
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

echo "Installing: ${missing[*]}"
as_root=(env DEBIAN_FRONTEND=noninteractive)
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "Not root, and no sudo: ask the administrator for these packages." >&2
        exit 1
    fi
    as_root=(sudo "${as_root[@]}")
fi

apt() {
    "${as_root[@]}" apt-get -o DPkg::Lock::Timeout=300 -q "$@" </dev/null
}
apt update || apt update
apt install -y --no-install-recommends "${missing[@]}"
