#!/usr/bin/env bash
# How ./run and ./test tell what they do: a line a step, how far it is, and what a failed one said.
#
#   steps_test.sh SOURCE_FOLDER
set -euo pipefail
cd "$1"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
status=0

# told WORDS: runs the lines of standard input as such a script does; its output is in $said, its exit
# status in $ended.
told() {
  ended=0
  said=$(bash -c "set -euo pipefail; source .ci/steps.sh; open_log '$log'; $1" 2>&1) || ended=$?
}

# expect WHAT VALUE PATTERN
expect() {
  # shellcheck disable=SC2053 # a pattern is meant
  if ! [[ $2 == $3 ]]; then
    echo "$1: not like \"$3\": $2" >&2
    status=1
  fi
}

told 'step "Counting" seq 1000; step "Waiting" true'
expect "a script that does well ends well" "$ended" 0
expect "each step has one line" "$(sed 1d <<<"$said" | wc -l)" 2
expect "a step's line says what it is and how long it took" "$said" $'*\nCounting ... done, * s\nWaiting ... done, * s'
expect "the log is named first" "$said" "*$log"$'\n'*
expect "what a step says is in the log" "$(grep -cx '[0-9]*' "$log")" 1000

told 'fails() { echo "[1/2] ready"; echo "too bad"; (exit 7); echo "went on"; }; step "Trying" fails; echo after'
expect "a failed step's status is the script's" "$ended" 7
expect "a failed step says so, then what it said last, then where all of it is" "$said" \
  $'*\nTrying ...* failed after * s\ntoo bad\nAll of it: '"$log"
expect "a step stops at the first thing that fails" "$(grep -c 'went on' "$log" || true)" 0

told 'step "Before" echo earlier; step "Building" bash -c "echo [20/20] all built; seq 200; exit 1"'
expect "the end of a log is its last sixty lines" "$(grep -cx '[0-9]*' <<<"$said")" 60
expect "what a step before it said is not shown" "$said" '*failed after*141*200*'

# shellcheck disable=SC2016 # the inner shell counts
told 'building() { for n in $(seq 40); do echo "[$n/40] a file"; done; }; step "Building" building'
expect "off a terminal the line grows by tenths" "$said" \
  $'*\nBuilding ... 10% 20% 30% 40% 50% 60% 70% 80% 90% done, * s'

told 'step "Checking" eval "seq 4 | sed s/^/file/ | number_lines ^file 4"'
expect "lines that match are numbered" "$(grep -F '[3/4]' "$log")" '*4] file3'
expect "and count as progress" "$said" '*Checking ... 10% 20% 30% 40% 50% 60% 70% 80% 90% done*'

if command -v script >/dev/null; then
  told 'script -qec "bash -c \"source .ci/steps.sh; log='"$log"'; step Building printf \\\"[1/2] a\\\\n[2/2] b\\\\n\\\"\"" /dev/null'
  expect "on a terminal the line is written anew" "$said" $'*Building ... 1 of 2\r*Building ... 2 of 2\r*Building ... done*'
fi

for seconds in "59 59 s" "60 1 min 0 s" "3725 62 min 5 s"; do
  told "spent ${seconds%% *}"
  expect "seconds are told in words" "${said#*$'\n'}" "${seconds#* }"
done

# The parts of --long are those that lie there, each with a line about it.
listed=$(./test --long --list)
expect "--long lists its parts" "$(awk '{print $1}' <<<"$listed" | sort)" \
  "$(find tests/long -name '*.sh' -exec basename {} .sh \; | sort)"
expect "each part says what it does" "$(awk 'NF < 4' <<<"$listed")" ""
ended=0
said=$(./test --long nosuchpart 2>&1) || ended=$?
expect "a part that is not there ends before anything is done" "$ended $said" "2 There is no part*sanitize*"

exit $status
