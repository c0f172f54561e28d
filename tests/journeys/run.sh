#!/bin/sh
# Runs one journey: a whole session as a script of the headless twin, in a working folder of its own
# that holds the pictures journeys begin with.
#
#   run.sh HEADLESS PICTURES SCRIPT FOLDER
#
# A journey may say, in comments of its own line each:
#   # size: 130x90     the client size; 800x600 if it does not
#   # exit: 2          the exit status that it ends with; 0 if it does not
#   # says: WORDS      what standard error then holds
#   # pages: 2         how many page files it leaves
set -eu
headless=$1 pictures=$2 script=$3 folder=$4

told() { sed -n "s/^# $1: *//p" "$script" | head -n 1; }

rm -rf "$folder"
mkdir -p "$folder/pages"
"$pictures" "$folder"

size=$(told size)
wanted=$(told exit)
says=$(told says)
pages=$(told pages)

status=0
"$headless" --work "$folder" --size "${size:-800x600}" --pages "$folder/pages" "$script" 2> "$folder/said" || status=$?
cat "$folder/said"
if [ "$status" -ne "${wanted:-0}" ]; then
  echo "it ended with $status and not with ${wanted:-0}"
  exit 1
fi
if [ -n "$says" ] && ! grep -qF -- "$says" "$folder/said"; then
  echo "it did not say: $says"
  exit 1
fi
left=$(find "$folder/pages" -type f | wc -l)
if [ -n "$pages" ] && [ "$left" -ne "$pages" ]; then
  echo "it left $left pages and not $pages"
  exit 1
fi
rm -rf "$folder"
