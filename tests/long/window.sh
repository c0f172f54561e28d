#!/usr/bin/env bash
# The window flooded with all that hands can do, in each of nine states, at three scale factors, and closed 200 times at any moment
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

# flood SCALE INPUTS CLOSINGS; WINDOW_SEED=N gives the inputs of another seed.
flood() {
  QT_SCALE_FACTOR=$1 python3 tests/window/flood.py build/dev/src/platform/qt/gridwright build/dev/tests/drag-source \
    "${WINDOW_SEED:-1}" "$2" "$3"
}

open_log build/long-window.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building the window" cmake --build --preset dev --target gridwright drag-source
step "A flood, and 200 closings" flood 1 400 200
step "A flood at one and a half times the size" flood 1.5 400 0
step "A flood at twice the size" flood 2 400 0
