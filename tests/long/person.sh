#!/usr/bin/env bash
# A thousand sessions of a thousand inputs each, by somebody who tries everything; what goes wrong is printed as a short script.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

sessions=${PERSON_SESSIONS:-1000}
inputs=${PERSON_INPUTS:-1000}
seed=${PERSON_SEED:-1000}
hands=$(nproc)

# The sessions are dealt out to as many processes as there are processors.
sit_down() {
  local hand each=$(((sessions + hands - 1) / hands)) waits=() wait bad=0
  for ((hand = 0; hand < hands; ++hand)); do
    build/dev/tests/person/gridwright-person --sessions "$each" --inputs "$inputs" --seed "$((seed + hand * each))" &
    waits+=($!)
  done
  for wait in "${waits[@]}"; do wait "$wait" || bad=1; done
  return "$bad"
}

open_log build/test-person.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building the person" cmake --build --preset dev --target gridwright-person
step "$sessions sessions of $inputs inputs" sit_down
