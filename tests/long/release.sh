#!/usr/bin/env bash
# The build that ./run makes, with warnings as errors: a newcomer's first build prints none, and is hardened
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

open_log build/test-release.log
install_missing "${build_packages[@]}" binutils
# In a folder of its own, since only what is compiled can warn and ./run may have built the other.
folder=build/strict
step "Configuring" cmake --preset release --fresh -B "$folder" -DBUILD_TESTING=OFF -DGRIDWRIGHT_WARNINGS_AS_ERRORS=ON
step "Building the program" cmake --build "$folder" --clean-first
step "Looking for what hardens it" packaging/hardened.sh \
  "$folder"/src/platform/{qt/gridwright,headless/gridwright-headless,pictures/gridwright-prepare,book/gridwright-book}
