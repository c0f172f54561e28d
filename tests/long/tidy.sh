#!/usr/bin/env bash
# clang-tidy over tests, bench and fuzz, without the path analyser, which takes most of a minute for a test
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

look_at_tests() {
  local here files
  # shellcheck disable=SC2001 # a class of characters is plainer here
  here=$(sed 's/[][\.*^$+?(){}|]/\\&/g' <<<"$PWD")
  files=$(grep -cE "\"file\": \"$here/(tests|bench|fuzz)/.*\.cpp\"" build/dev/compile_commands.json)
  PYTHONUNBUFFERED=1 run-clang-tidy -quiet -j "$(nproc)" -p build/dev -checks='-clang-analyzer-*' \
    "^$here/(tests|bench|fuzz)/.*\\.cpp\$" 2>&1 |
    { grep --line-buffered -v ' warnings generated' || true; } | number_lines '^[^ ]*clang-tidy' "$files"
}

open_log build/long-tidy.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building" cmake --build --preset dev
step "clang-tidy over the tests" look_at_tests
