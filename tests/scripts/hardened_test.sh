#!/usr/bin/env bash
# What reads programs for what hardens them: content with one that has all of it, and it names each thing that another lacks.
#
#   hardened_test.sh HARDENED_SH HARDENED_SAMPLE PLAIN_SAMPLE
set -euo pipefail
export HARDENED_MARKS=4 # its own two and those of what every program begins with

"$1" "$2"

said=$("$1" "$3") && { echo "one without anything is taken for hardened" && exit 1; }
for thing in PIE '(RELRO)' 'full RELRO' 'nothing runs on' 'stack protector' _FORTIFY_SOURCE; do
  [[ $said == *"$thing"* ]] || { echo "not missed: $thing" && exit 1; }
done
[[ $(uname -m) != x86_64 || $said == *'control flow protection'* && $said == *'stack clash protection'* ]] ||
  { echo "not missed among the instructions: $said" && exit 1; }
"$1" "$2" "$3" >/dev/null && { echo "the second of two was not looked at" && exit 1; }
exit 0
