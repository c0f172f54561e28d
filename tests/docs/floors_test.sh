#!/usr/bin/env bash
# The floors are kept: the check passes over src/, fails on a copy of it for each arrow that may not be, naming
# it, and the picture of the floors is what the CMake files say.
#
#   floors_test.sh SOURCE_FOLDER
set -euo pipefail
root=$1
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT

check() { cmake -D SOURCES="$1" -P "$root/cmake/CheckFloors.cmake" 2>&1; }

# expect_fault WORDS: the check of the copy fails and says so; the copy is made anew after it.
expect_fault() {
  local said
  if said=$(check "$copy/src"); then
    echo "the check passes where it should say: $1"
    exit 1
  fi
  # CMake breaks what it says into lines.
  if ! tr -s ' \n' ' ' <<<"$said" | grep -qF -- "$1"; then
    echo "the check does not say: $1"
    echo "$said"
    exit 1
  fi
  lay_copy
}

lay_copy() {
  rm -rf "$copy/src"
  cp -r "$root/src" "$copy/src"
}

check "$root/src" || { echo "the check fails over src/"; exit 1; }
lay_copy
check "$copy/src" || { echo "the check fails over a copy of src/"; exit 1; }

echo '#include "state/program.h"' >>"$copy/src/canvas/canvas.h"
expect_fault 'src/canvas/canvas.h includes "state/program.h", but canvas/ may stand on nothing'

echo '#include "solve/trail.h"' >>"$copy/src/maze/makemaze.cpp"
expect_fault 'src/maze/makemaze.cpp includes "solve/trail.h", but maze/ may stand on canvas/, files/'

echo '#include "platform/qt/window.h"' >>"$copy/src/session/input.cpp"
expect_fault 'src/session/input.cpp includes "platform/qt/window.h"'

sed -i 's/STANDS_ON canvas$/STANDS_ON canvas session/' "$copy/src/files/CMakeLists.txt"
expect_fault 'files/ is to stand on session/, which does not lie below it'

sed -i 's/STANDS_ON canvas /STANDS_ON attic canvas /' "$copy/src/state/CMakeLists.txt"
expect_fault 'state/ is to stand on attic/, which is no folder here'

echo 'add_library(maze OBJECT makemaze.cpp)' >"$copy/src/maze/CMakeLists.txt"
expect_fault 'src/maze/CMakeLists.txt says nothing of a floor'

python3 "$root/docs/floors.py" --check
