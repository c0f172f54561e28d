#!/usr/bin/env bash
# Five thousand bitmaps of every form that the format knows, read to the pixel as ImageMagick reads them
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

open_log build/long-bitmaps.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building what writes them" cmake --build --preset dev --target bitmap-forms canvas-bitmap_forms_test
step "Writing them" build/dev/tests/bitmap-forms "$folder"
step "Asking ImageMagick" python3 tests/canvas/against_imagemagick.py "$folder"
step "Cutting them off, lying about them, and counting memory" build/dev/tests/canvas-bitmap_forms_test
