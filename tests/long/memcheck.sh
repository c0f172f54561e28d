#!/usr/bin/env bash
# A journey of each kind of maze and of each room, with every access to memory looked at by valgrind
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

# Regular mazes, 3-d mazes and pipes with their underpasses; then drawing, undo, carving by hand, patterns of any length,
# files, pages, pictures made ready, the workshop with its words, and what is refused.
journeys=(one_maze underpasses_played pipe_grid taken_back drawn_and_carved_by_hand save_load_print pictures_prepared workshop
  bad_imports quit_in_every_phase)
build=${MEMCHECK_BUILD:-build/dev} # another folder is taken as it is built

# The twin as the journeys start it, but under valgrind: what is read before it was written, behind its end or after it was
# given back ends it with 99, and so does memory that nothing leads to any more.
watched() {
  cat >"$folder/watched" <<WORDS
#!/bin/sh
QT_QPA_PLATFORM=offscreen exec valgrind --quiet --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite \\
  --show-leak-kinds=definite "$PWD/$build/src/platform/headless/gridwright-headless" "\$@"
WORDS
  chmod +x "$folder/watched"
}

journey() { sh tests/journeys/run.sh "$folder/watched" "$build/tests/journey-pictures" "tests/journeys/$1.txt" "$folder/$1"; }

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
open_log build/long-memcheck.log
install_missing "${build_packages[@]}" "${test_packages[@]}" valgrind
if [[ -z ${MEMCHECK_BUILD:-} ]]; then
  step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
  step "Building the twin" cmake --build --preset dev --target gridwright-headless gridwright-stamps journey-pictures
fi
watched
for name in "${journeys[@]}"; do step "$name" journey "$name"; done
