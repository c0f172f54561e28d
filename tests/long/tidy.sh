#!/usr/bin/env bash
# clang-tidy over tests, bench and fuzz; and its path analyser and slow checks over src
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

# look FOLDERS CHECKS
look() {
  local here files
  # shellcheck disable=SC2001 # a class of characters is plainer here
  here=$(sed 's/[][\.*^$+?(){}|]/\\&/g' <<<"$PWD")
  files=$(grep -cE "\"file\": \"$here/($1)/.*\.cpp\"" build/tidy/compile_commands.json)
  PYTHONUNBUFFERED=1 run-clang-tidy -quiet -j "$(nproc)" -p build/tidy -checks="$2" "^$here/($1)/.*\\.cpp\$" 2>&1 |
    { grep --line-buffered -v ' warnings generated' || true; } | number_lines '^[^ ]*clang-tidy' "$files"
}

open_log build/long-tidy.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
# In a folder of its own: clang does not read the headers that GCC has precompiled. Nothing is built: all headers lie
# in the tree.
step "Configuring" cmake --preset dev -B build/tidy -DBUILD_TESTING=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON
step "clang-tidy over the tests" look 'tests|bench|fuzz' '-clang-analyzer-*'
slow_checks=$(sed -n 's/^slow_checks=//p' test)
step "Its slow checks and its path analyser over the source" \
  look src "-*,$slow_checks,clang-analyzer-*,-clang-analyzer-optin.performance.Padding"
