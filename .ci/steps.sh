# shellcheck shell=bash
# Sourced by ./run, ./test and tests/long: steps that say one line each. What their commands say goes to
# a log, which is named at the start, and whose end is shown when a step fails.

# Begins the log anew.
open_log() {
  log=$1
  mkdir -p "$(dirname "$log")"
  : >"$log"
  echo "One line a step; what each one says in full is kept in $log"
}

# Seconds in words.
spent() {
  if (($1 < 60)); then echo "$1 s"; else echo "$(($1 / 60)) min $(($1 % 60)) s"; fi
}

# Numbers the lines that match a pattern, so that they count as progress: "[3/120] ...".
number_lines() {
  local pattern=$1 total=$2 count=0 line
  while IFS= read -r line; do
    if [[ $line =~ $pattern ]]; then line="[$((++count))/$total] $line"; fi
    printf '%s\n' "$line"
  done
}

# Keeps every line in the log, and tells from the numbered ones how far a step is: on a terminal the
# step's line is written anew, anywhere else it grows by every tenth.
follow() {
  local words=$1 tenths=0 line now
  while IFS= read -r line; do
    printf '%s\n' "$line" >>"$log"
    [[ $line =~ ^\[([0-9]+)/([1-9][0-9]*)\] ]] || continue
    if [[ -t 1 ]]; then
      printf '\r\e[K%s ... %s of %s' "$words" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
      continue
    fi
    now=$((10 * BASH_REMATCH[1] / BASH_REMATCH[2]))
    for ((; tenths < now && tenths < 9; ++tenths)); do printf ' %s0%%' $((tenths + 1)); done
  done
}

# What a step left in the log, without the lines that only count.
end_of_step() {
  tail -n +"$1" "$log" | grep -v '^\[[0-9]*/[0-9]*\]' | tail -n 60
}

# step WORDS COMMAND...: runs the command, which may be a function; it stops at the first thing that fails.
# The line ends with the time it took; when it failed, the end of what it said follows, and its status is
# the step's. For scripts under "set -e", as a command of its own.
step() {
  local words=$1 begin=$SECONDS first status
  shift
  printf '%s ...' "$words"
  printf '== %s\n' "$words" >>"$log"
  first=$(($(wc -l <"$log") + 1))
  # In a pipeline with "||" behind it bash would run the command to its end whatever fails in it.
  set +e
  (
    set -euo pipefail
    "$@"
  ) </dev/null 2>&1 | follow "$words"
  status=${PIPESTATUS[0]}
  set -e
  if [[ -t 1 ]]; then printf '\r\e[K%s ...' "$words"; fi
  if ((status == 0)); then
    echo " done, $(spent $((SECONDS - begin)))"
    return
  fi
  echo " failed after $(spent $((SECONDS - begin)))"
  end_of_step "$first" >&2 || true
  echo "All of it: $log" >&2
  return "$status"
}
