#!/usr/bin/env bash
# Reads programs as they lie on the disk for what cmake/Hardening.cmake gives them, and says what one has not.
#
#   hardened.sh PROGRAM...
set -euo pipefail

# lacks WHAT: one more thing that the program has not.
lacks() {
  echo "$program: no $1"
  missing=1
}

# What the linker has noted down.
read_tables() {
  local tables
  tables=$(readelf -hldW "$program")
  [[ $tables == *'DYN (Position-Independent'* ]] || lacks "place of its own at each start (PIE)"
  [[ $tables == *GNU_RELRO* ]] || lacks "tables that are locked (RELRO)"
  [[ $tables == *'(FLAGS)'*BIND_NOW* ]] || lacks "binding before the start (full RELRO)"
  [[ $tables =~ GNU_STACK[^$'\n']*' RW ' ]] || lacks "stack that nothing runs on"
}

# What it calls in the library.
read_calls() {
  local calls
  calls=$(readelf -W --dyn-syms "$program")
  [[ $calls == *__stack_chk_fail@* ]] || lacks "stack protector"
  if [[ ${calls//__stack_chk_fail/} == *_chk@* ]]; then checked=1; fi
}

# What the compiler has put among the instructions: a touch of each page of a large frame, and a mark where an
# indirect jump may land. Each function that is called through a pointer bears one.
read_instructions() {
  local marks probes
  [[ $(uname -m) == x86_64 ]] || return 0
  read -r marks probes < <(objdump -d -j .text --no-show-raw-insn "$program" |
    awk '/endbr64/ { ++marks } /or[lq] +\$0x0,(0x[0-9a-f]+)?\(%rsp\)/ { ++probes } END { print marks + 0, probes + 0 }')
  ((marks >= ${HARDENED_MARKS:-100})) || lacks "marks for indirect jumps (control flow protection), or only $marks"
  ((probes > 0)) || lacks "probe of a large frame (stack clash protection)"
}

missing=0
checked=0
for program in "$@"; do
  read_tables
  read_calls
  read_instructions
done
# Of what the library checks not every program calls something.
program="$*"
((checked)) || lacks "checked library call (_FORTIFY_SOURCE)"
exit "$missing"
