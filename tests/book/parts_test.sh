#!/usr/bin/env bash
# Four parts of a book through GNU parallel, one of them killed while it is made and made again, are joined to
# the very book that one run makes.
#
#   tests/book/parts_test.sh PROGRAM SOURCE_FOLDER
set -euo pipefail

program=$(readlink -f "$1")
source=$(readlink -f "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export PARALLEL_HOME=$folder/parallel
mkdir "$PARALLEL_HOME"

pictures=(cat.bmp panes.bmp name.bmp)
python3 "$source/examples/make_pictures.py" . "${pictures[@]%.bmp}"

complain() {
  echo "$*" >&2
  exit 1
}

book=("$program" --quiet --seed 4294967290 --total 24 --wall "14,10,8" --kind "regular,3d,pipe" --title Parts
  --page-numbers --sort difficulty --caption '{n}. {picture}, {difficulty}' --jobs 1)

# A part that is killed in the middle of its work, which is the case when it is still at it then.
cat >killed.sh <<'SCRIPT'
#!/usr/bin/env bash
for delay in 0.2 0.1 0.05 0.02 0; do
  "$@" &
  sleep "$delay"
  kill -KILL "$!" 2>/dev/null
  status=0
  wait "$!" 2>/dev/null || status=$?  # one that was done already can be killed too, and is not
  if ((status == 137)); then exit 137; fi
  rm -f -- "${@: -1}"
done
echo "the part was always done before it was killed" >&2
exit 99
SCRIPT
# The third part is killed the first time.
cat >part.sh <<'SCRIPT'
#!/usr/bin/env bash
part=$1
shift
order=("$@" --force --part "$part/4" -o "part$part.pdf")
if [[ $part == 3 && ! -e killed ]]; then
  touch killed
  exec bash killed.sh "${order[@]}"
fi
exec "${order[@]}"
SCRIPT

"${book[@]}" -o whole.pdf --list whole.json "${pictures[@]}"

make_parts() { parallel --will-cite --quote --jobs 2 --joblog log "$@" bash part.sh {} "${book[@]}" "${pictures[@]}" ::: 1 2 3 4; }
failed=0
make_parts || failed=$?
((failed == 1)) || complain "one part was to fail, $failed did"
grep -q '137' log || complain "the part was not killed: $(cat log)"
[[ ! -e part3.pdf ]] || complain "a part that was killed has left a file"
if "${book[@]:0:2}" -o joined.pdf --join part1.pdf part2.pdf part4.pdf 2>said; then
  complain "a book without its third part was joined"
fi
grep -q 'part 3/4 is missing' said || complain "the missing part is not named: $(cat said)"
[[ ! -e joined.pdf ]] || complain "a book without its third part was written"

make_parts --resume-failed || complain "the part that was killed can't be made again: $(cat log)"
for part in 1 2 3 4; do
  [[ -z $(qpdf --check "part$part.pdf" 2>&1 >/dev/null) ]] || complain "qpdf has something to say of part $part"
done
"$program" --quiet -o joined.pdf --list joined.json --join part4.pdf part2.pdf part1.pdf part3.pdf
cmp whole.pdf joined.pdf
cmp whole.json joined.json
left=$(find . -name '*building*' -o -name '.gridwright*')
[[ -z $left ]] || complain "this was left: $left"
