#!/usr/bin/env bash
# Two thousand mazes of books counted again, eight threads under the thread sanitizer, and ten thousand mazes in one book.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source .ci/steps.sh
source .ci/packages.sh

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# What no test says of itself: the program with eight jobs, pictures being made ready beside each other. Nothing that
# Qt, fontconfig or Leptonica do is excused; nothing had to be.
book_with_eight_jobs() {
  local name
  python3 examples/make_pictures.py "$folder"
  for name in cat snail balloon octopus; do convert "$folder/$name.bmp" "$folder/$name.jpg"; done
  printf 'Mia\nAnna\n' >"$folder/names.txt"
  build/threads/src/platform/book/gridwright-book "$folder"/*.jpg "$folder/window.bmp" --words "$folder/names.txt" \
    --kind regular,3d,pipe --patterns random,none --seed 1 --total 28 --jobs 8 -o "$folder/threads.pdf"
}

# book_of N: prints how many kilobytes a book of so many mazes takes at most.
book_of() {
  python3 - "$folder" "$1" <<'PROGRAM'
import resource, subprocess, sys
folder, mazes = sys.argv[1:]
subprocess.run(["build/dev/src/platform/book/gridwright-book", folder + "/name.bmp", "-n", mazes, "--wall", "20",
                "--seed", "1", "-o", folder + "/large.pdf", "--list", folder + "/large.json", "--force", "--quiet"],
               check=True)
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)
PROGRAM
}

memory_of_many() {
  local few many each
  python3 examples/make_pictures.py "$folder" name
  few=$(book_of 1000)
  many=$(book_of 10000)
  each=$(((many - few) / 9000))
  echo "1,000 mazes take $few KB, 10,000 take $many KB: $each KB a maze"
  ((each <= 30 && many < 500 * 1024))
}

open_log build/test-book.log
install_missing "${build_packages[@]}" "${test_packages[@]}"
step "Configuring" cmake --preset dev -DBUILD_TESTING=ON
step "Building the tests" cmake --build --preset dev --target book_mazes_tests gridwright-book
step "Two thousand mazes" env GRIDWRIGHT_BOOK_MAZES=2000 QT_QPA_PLATFORM=offscreen \
  build/dev/tests/book/book_mazes_tests --gtest_filter='EveryMazeOfABook.*'
step "Ten thousand mazes in one book" memory_of_many
step "Configuring for the thread sanitizer" cmake --preset dev -B build/threads -DBUILD_TESTING=ON \
  -DGRIDWRIGHT_BENCH=OFF -DCMAKE_CXX_FLAGS=-fsanitize=thread -DCMAKE_EXE_LINKER_FLAGS=-fsanitize=thread
step "Building for it" cmake --build build/threads --target book_mazes_tests gridwright-book
step "Its tests" env TSAN_OPTIONS=halt_on_error=1 QT_QPA_PLATFORM=offscreen build/threads/tests/book/book_mazes_tests
step "Eight jobs" env TSAN_OPTIONS=halt_on_error=1 bash -c "$(declare -f book_with_eight_jobs); folder=$folder; book_with_eight_jobs"
