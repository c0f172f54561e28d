#!/usr/bin/env bash
# A disk that fails at each change that a session and a book make, and two thousand kills.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

open_log build/test-faults.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building the programs" cmake --build --preset dev --target gridwright-headless gridwright-book gridwright-failing-disk
programs=(--headless build/dev/src/platform/headless/gridwright-headless --book build/dev/src/platform/book/gridwright-book
  --disk "$(find build/dev/tests -name 'libgridwright-failing-disk.so')" --seed "${GRIDWRIGHT_SEED:-1}")
python3 tests/faults/faults.py "${programs[@]}"
python3 tests/faults/faults.py "${programs[@]}" --kills 2000
