#!/usr/bin/env bash
# Two thousand mazes, an hour at the title, five thousand quits, ten thousand undos: memory, files and work stay level
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

runs=build/dev/tests/trials/long_runs

# What valgrind counts between two cuts: the first line stands for the time before the first twentieth.
counted_parts() {
  local parts
  mapfile -t parts < <(printf '%s\n' "$1".* | sort -V)
  sed -n 's/^totals: //p' "${parts[@]}"
}

# steady_work RUN COUNT: the second twentieth of a run and its last but one take the same instructions, within
# two in a hundred. The processor's own counter is not open everywhere.
steady_work() {
  local folder early late
  folder=$(mktemp -d)
  valgrind --tool=callgrind --callgrind-out-file="$folder/part" --dump-before=gridwright_twentieth_begins \
    "$runs" "$1" "$2"
  early=$(counted_parts "$folder/part" | sed -n 6p)
  late=$(counted_parts "$folder/part" | sed -n 20p)
  rm -r "$folder"
  echo "$1: a twentieth took $early instructions early, $late late"
  ((early > 0 && late * 100 <= early * 102))
}

open_log build/test-longruns.log
install_missing "${build_packages[@]}" "${test_packages[@]}" valgrind
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building" cmake --build --preset dev --target long_runs
step "Two thousand mazes" "$runs" job 2000
step "An hour at the title" "$runs" title 3600
step "Five thousand quits" "$runs" quits 5000
step "Ten thousand undos" "$runs" undos 10000
# The mazes of every other twentieth are the same.
step "Counting the instructions of a hundred and twenty mazes" steady_work job 120
step "Of an hour at the title" steady_work title 3600
step "Of a hundred quits" steady_work quits 100
step "Of a thousand undos" steady_work undos 1000
grep '^[a-z]*: a twentieth' build/test-longruns.log
