#!/usr/bin/env bash
# Sixty changes of one operator or constant each: the tests of their own folder notice nine in ten, the rest are named
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

# Another seed chooses others: SEED=5 ./test --long mutants
open_log build/test-mutants.log
install_missing "${build_packages[@]}" "${test_packages[@]}" git
step "Sixty changes" python3 tests/trials/mutants.py . --seed "${SEED:-21}"
grep ' lives\| are caught' build/test-mutants.log
