#!/usr/bin/env bash
# Makes docs/pictures/book-page.png and book-answers.png: a page of a book and its answers, as another program shows
# them.
#
# usage: book.sh BUILD_FOLDER
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
program=$(readlink -f "$1")/src/platform/book/gridwright-book
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
pictures=(balloon cat octopus snail butterfly window)
python3 "$here/../../examples/make_pictures.py" . "${pictures[@]}"
printf 'Anna\nOtto\n' >names.txt
"$program" --quiet --total 24 --kind regular,3d,pipe --wall 14,10,12 --sort difficulty --words names.txt --seed 7 \
  --title 'Mazes for the train' --caption '{n}. {picture}' --per-page 1x2 --answers-per-page 2x3 --page-numbers --name-line \
  -o book.pdf "${pictures[@]/%/.bmp}"
pages=$(pdfinfo book.pdf | sed -n 's/^Pages: *//p')
for shown in page:2 answers:$((pages - 1)); do
  pdftoppm -singlefile -r 80 -f "${shown#*:}" -png book.pdf shown
  convert shown.png -bordercolor '#808080' -border 1 +dither -colors 96 -strip "$here/book-${shown%:*}.png"
done
