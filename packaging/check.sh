#!/usr/bin/env bash
# Lays the program out as a package would and has what describes it to a desktop checked by the desktop's
# own tools, each of which must have nothing to say.
#
#   packaging/check.sh BUILD_FOLDER
set -euo pipefail

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR=$root cmake --install "$1" --prefix /usr >/dev/null
share=$root/usr/share
status=0

complain() {
  echo "$*" >&2
  status=1
}

# Says what a checker said, and that it should have been silent.
silent() {
  local words
  if ! words=$("$@" 2>&1) || [[ -n $words ]]; then complain "$*: $words"; fi
}

# shellcheck disable=SC2317 # called by name
# From the manuals' own folder, since a page that is another name of one leads there.
warnings_of() (
  cd "$share/man"
  LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -l -Tutf8 -Z "$1" >/dev/null
)

for program in gridwright gridwright-book gridwright-headless gridwright-prepare gridwright-start; do
  [[ -x $root/usr/bin/$program ]] || complain "no program $program"
  page=$share/man/man1/$program.1.gz
  [[ -s $page ]] || complain "no manual page of $program"
  silent warnings_of "$page"
  gzip -dc "$page" >"$root/page.1"
  silent mandoc -T lint "$root/page.1"
done

silent desktop-file-validate "$share/applications/gridwright.desktop"
metainfo=$share/metainfo/gridwright.metainfo.xml
appstreamcli validate --no-net --pedantic "$metainfo" || complain "the metainfo is at fault"
# No host is named here that has the pictures.
if grep -q '<image ' "$metainfo"; then complain "the metainfo names pictures that cannot be fetched"; fi
if grep -q '@' "$metainfo"; then complain "a place in the metainfo was not filled in"; fi

# Each screenshot is told with the size that the picture has.
while read -r width height name; do
  picture=$(dirname "$0")/../docs/pictures/$name
  size=$(od -An -tu1 -j16 -N8 "$picture" | awk '{print $3 * 256 + $4, $7 * 256 + $8}')
  [[ $size == "$width $height" ]] || complain "$name is $size, not $width $height"
done < <(sed -n 's|.*width="\([0-9]*\)" height="\([0-9]*\)">.*/\([^/<]*\)<.*|\1 \2 \3|p' "$(dirname "$0")/screenshots.xml.in")

for picture in title example1 example11 credit1 credit2; do
  [[ -s $share/gridwright/$picture.bmp ]] || complain "no picture $picture"
done
for picture in balloon butterfly cat name octopus panes snail window words; do
  [[ -s $share/gridwright/examples/$picture.bmp ]] || complain "no example $picture"
done
for stamp in heart star circle arrow cloud flower tree house fish cat balloon crown; do
  [[ -s $share/gridwright/stamps/$stamp.svg ]] || complain "no stamp $stamp"
done
for size in 16 32 48 64 128 256; do
  [[ -s $share/icons/hicolor/${size}x$size/apps/gridwright.png ]] || complain "no icon of size $size"
done
for file in mime/packages/gridwright.xml doc/gridwright/copyright icons/hicolor/scalable/apps/gridwright.svg; do
  [[ -s $share/$file ]] || complain "no $file"
done

home=$root/home

# started_in COMMAND...: the folder, with the person's home as it was made.
started_in() { env -u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME="$home" TMPDIR="$root/tmp" "$@" 2>&1 | tail -n 1; }

starts_in() {
  local folder=$1
  shift
  # shellcheck disable=SC2053 # a pattern is meant
  [[ $folder == $1 ]] || complain "gridwright-start $2: in $folder, not in $1"
}

mkdir "$root/tmp" "$home"
start=$root/usr/bin/gridwright-start
# What needs no window is answered without a screen, and before a folder is made.
[[ $(started_in env -u DISPLAY "$start" --version) == gridwright\ [0-9]* ]] || complain "gridwright-start tells no version"
[[ $(started_in env -u DISPLAY "$start" --help) == *FILE* ]] || complain "gridwright-start does not help"
words=$(started_in env -u DISPLAY "$start" one two || true)
[[ $words == "gridwright: one picture"* ]] || complain "gridwright-start takes two pictures: $words"
[[ -z $(ls -A "$home") ]] || complain "gridwright-start makes a folder for nothing"
# Where gridwright-start has the program work: something that tells the folder stands in for the program.
# shellcheck disable=SC2016 # the script that is written fills them in
printf '#!/bin/sh\nif [ "$1" = --work ]; then printf "%%s\\n" "$2"; fi\n' >"$root/usr/bin/gridwright"
cp "$root/usr/bin/gridwright" "$root/folder-teller"
starts_in "$(started_in "$start")" "$home/Documents/Gridwright" "makes the folder of documents"
starts_in "$(cd "$root/usr" && started_in bin/gridwright-start)" "$home/Documents/Gridwright" "by a relative path"
folder=$home/Documents/Gridwright
for file in "$share"/gridwright/examples/*.bmp "$share"/gridwright/patterns/*pat; do
  cmp -s "$file" "$folder/${file##*/}" || complain "gridwright-start lays out no ${file##*/}"
done
echo mine >"$folder/cat.bmp" && rm "$folder/snail.bmp" && ln -s "$root/nowhere" "$folder/snail.bmp"
started_in "$start" >/dev/null
[[ $(cat "$folder/cat.bmp") == mine ]] || complain "gridwright-start writes over a person's picture"
[[ ! -e $root/nowhere ]] || complain "gridwright-start writes through a link"
# What it is started with, as the program gets it.
printf '#!/bin/sh\npwd -P\nprintf "%%s|" "$@"\n' >"$root/usr/bin/gridwright"
given=$(cd "$root/usr" && env -u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME="$home" "$start" -style fusion "a cat.png" | tail -n 2)
[[ $given == "$root/usr"$'\n'"--work|$folder|-style|fusion|a cat.png|" ]] || complain "gridwright-start hands on $given"
cp "$root/folder-teller" "$root/usr/bin/gridwright"
ln -s "$start" "$root/start"
starts_in "$(cd "$root" && started_in ./start)" "$home/Documents/Gridwright" "through a link"
# A file where the folder should be cannot be written into by anybody, root included.
rm -r "$home/Documents" && : >"$home/Documents"
starts_in "$(started_in "$start")" "$home/.local/share/gridwright" "without documents"
rm -r "$home/.local" && : >"$home/.local"
starts_in "$(started_in "$start")" "$root/tmp/?*" "without documents and data"
starts_in "$(started_in env -u HOME "$start")" "$root/tmp/?*" "without a home"
exit $status
