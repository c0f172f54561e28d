#!/usr/bin/env bash
# The first maze and a drawing by keys, by ear: Debian's screen reader is heard to say what it must, line by line.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

open_log build/test-ears.log
install_missing "${build_packages[@]}" "${test_packages[@]}" "${ear_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building the window" cmake --build --preset dev --target gridwright
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
python3 examples/make_pictures.py "$folder" balloon
# What was heard stays in build/heard.txt; docs/accessibility.md shows it.
python3 tests/window/ears.py build/dev/src/platform/qt/gridwright "$folder" build/heard.txt
