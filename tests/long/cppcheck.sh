#!/usr/bin/env bash
# cppcheck over src: what it says and the source leaves as it is stands in .ci/cppcheck.txt with its reason
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

look() {
  cppcheck -j "$(nproc)" --quiet --error-exitcode=1 --std=c++20 --language=c++ -Isrc --library=qt \
    --enable=warning,style,performance,portability --suppressions-list=.ci/cppcheck.txt src
}

open_log build/long-cppcheck.log
install_missing cppcheck
step "Looking for faults in the source with cppcheck" look
