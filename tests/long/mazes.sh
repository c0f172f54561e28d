#!/usr/bin/env bash
# Twenty thousand mazes in thirty drawings: each ends, and each pair of ends that is joined is solved
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

# Another seed makes others: SEED=5 ./test --long mazes
open_log build/test-mazes.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building" cmake --build --preset dev --target many_mazes
step "Twenty thousand mazes" build/dev/tests/trials/many_mazes --mazes 20000 --jobs "$(nproc)" --seed "${SEED:-21}"
# What they took stands at the end of the log; docs/reliability.md shows it.
tail -n 35 build/test-mazes.log | grep -v '^\['
