#!/usr/bin/env bash
# Each reader of a format, and the whole program as sessions, meets bytes by chance for a minute, built with Clang and the sanitizers.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

seconds=${FUZZ_SECONDS:-60}
found=build/fuzz/found

targets() {
  local source
  for source in fuzz/*_fuzz.cpp; do basename "$source" _fuzz.cpp; done
}

# What libFuzzer finds worth keeping goes to a folder of its own, where the next run begins; the corpus in
# the tree is only read.
fuzz() {
  local longest=()
  mkdir -p "$found/$1"
  # Longer sessions find little that shorter ones do not, and find it later.
  if [[ $1 == session ]]; then longest=(-max_len=500); fi
  "build/fuzz/fuzz/$1-fuzz" -max_total_time="$seconds" -timeout=20 -print_final_stats=1 "${longest[@]}" \
    -artifact_prefix="$found/$1-crash-" "$found/$1" "fuzz/corpus/$1"
}

open_log build/test-fuzz.log
# The run-time part of Clang's sanitizers is a package that clang only recommends.
install_missing "${build_packages[@]}" clang libclang-rt-14-dev
mapfile -t names < <(targets)
step "Configuring" cmake --preset fuzz
step "Building ${names[*]}" cmake --build --preset fuzz --target "${names[@]/%/-fuzz}"
for name in "${names[@]}"; do step "Fuzzing $name for $seconds s" fuzz "$name"; done
