#!/usr/bin/env bash
# Every script of the tree, as shellcheck reads it: by its first line, whatever it is called.
#
#   scripts_test.sh SOURCE_FOLDER
set -euo pipefail
cd "$1"

mapfile -t scripts < <(find . \( -name build -o -name .git \) -prune -o -type f -size -100k -print |
  xargs grep -lIE -m1 '^#!.*\b(ba)?sh$|^# shellcheck shell=' | sort)
((${#scripts[@]} > 20)) || { echo "only ${#scripts[@]} scripts were found" && exit 1; }
printf '%s\n' "${scripts[@]}"
shellcheck -x -P SCRIPTDIR -P "$PWD" "${scripts[@]}"
