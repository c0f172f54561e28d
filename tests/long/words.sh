#!/usr/bin/env bash
# Three hundred words in all fonts, heights and wall sizes: each that can be one region is one.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

open_log build/test-words.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building the test" cmake --build --preset dev --target pictures-words_test
GRIDWRIGHT_MANY_WORDS=1 QT_QPA_PLATFORM=offscreen build/dev/tests/pictures-words_test --gtest_filter='AWord.ThatTheNoteNamesNoLetterOfIsOneRegion'
