#!/usr/bin/env bash
# The package: twice built it is the same, lintian is content, and in a bare root it makes a maze and goes again
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

become=()
if ((EUID != 0)); then become=(sudo); fi
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || echo 1700000000)
export SOURCE_DATE_EPOCH
root=$(mktemp -d)
trap '"${become[@]}" umount -q "$root/proc" || true; "${become[@]}" rm -rf --one-file-system "$root"' EXIT

# packed FOLDER: the package, built in that folder from nothing, by the compiler itself.
packed() {
  export CCACHE_DISABLE=1
  cmake --preset release --fresh -B "$1" -DBUILD_TESTING=OFF
  cmake --build "$1" --clean-first
  (cd "$1" && rm -f ./*.deb && cpack)
}

same_bytes() { cmp build/package-1/*.deb build/package-2/*.deb; }

# Each program as it lies in the package.
hardened() {
  local unpacked
  unpacked=$(mktemp -d)
  dpkg-deb -x build/package-1/*.deb "$unpacked"
  packaging/hardened.sh "$unpacked"/usr/bin/gridwright{,-book,-headless,-prepare} || { rm -rf "$unpacked" && return 1; }
  rm -rf "$unpacked"
}

# One text is misspelled on purpose: people know it so.
content_lintian() {
  local said
  said=$(lintian -E --pedantic --tag-display-limit 0 build/package-1/*.deb 2>&1 | grep -v '^W: gridwright: spelling-error-in-binary\|^I: gridwright: spelling-error-in-binary\|running with root privileges' || true)
  if [[ -n $said ]]; then echo "$said" && return 1; fi
}

bare_root() {
  chmod 755 "$root"
  "${become[@]}" debootstrap --variant=minbase bookworm "$root"
  "${become[@]}" mount -t proc proc "$root/proc"
  "${become[@]}" chroot "$root" useradd --create-home ann
}

installed() {
  "${become[@]}" cp build/package-1/*.deb "$root/gridwright.deb"
  "${become[@]}" chroot "$root" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends /gridwright.deb
  "${become[@]}" rm "$root/gridwright.deb"
}

used() { "${become[@]}" env PYTHONDONTWRITEBYTECODE=1 python3 tests/window/installed.py "$root" ann; }

# Of the package nothing, of the person's all.
removed() {
  local left
  "${become[@]}" chroot "$root" env DEBIAN_FRONTEND=noninteractive apt-get purge -y gridwright
  left=$("${become[@]}" find "$root" -xdev -iname '*gridwright*' ! -path "$root/home/*")
  if [[ -n $left ]]; then echo "left behind: $left" && return 1; fi
  for number in 1 2 3; do
    "${become[@]}" test -s "$root/home/ann/Documents/Gridwright/gridwright-000$number.pdf"
  done
}

open_log build/test-package.log
install_missing "${build_packages[@]}" "${test_packages[@]}" dpkg-dev file lintian debootstrap binutils git
step "Building the package" packed build/package-1
step "Building it again, elsewhere" packed build/package-2
step "Looking for a difference" same_bytes
step "Looking for what hardens it" hardened
step "Asking lintian" content_lintian
step "Making a bare root" bare_root
step "Installing into it" installed
step "Making a maze and a name there" used
step "Removing it" removed
