#!/bin/sh
# Runs one example as a person does, in a folder of its own: its picture is painted, its maze made and
# printed.
#
#   example.sh HEADLESS PYTHON SCRIPT FOLDER
set -eu
headless=$1 python=$2 script=$3 folder=$4
examples=$(dirname "$script")
name=$(basename "$script" .txt)

rm -rf "$folder"
mkdir -p "$folder"
"$python" "$examples/make_pictures.py" "$folder" "$name"
cp "$examples"/patterns/*pat "$folder"
"$headless" --work "$folder" --pdf "$folder/$name.pdf" "$script"
test -s "$folder/$name.pdf"
test -s "$folder/$name-maze.bmp"
rm -rf "$folder"
