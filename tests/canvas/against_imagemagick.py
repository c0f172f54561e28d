#!/usr/bin/env python3
"""Holds what the program reads out of bitmaps against what ImageMagick does.

    against_imagemagick.py FOLDER

FOLDER is what bitmap-forms has written. Where the two differ, the difference is one that is named here with its
reason; any other fails, and so does a reason that nothing needs.
"""
import collections
import glob
import os
import re
import subprocess
import sys
import tempfile

# A name begins with the bytes of the header, the depth, and what is packed how; it ends with the size.
REFUSED = 256  # further than any two pixels are apart
DIFFERENCES = [
    (r"16-", REFUSED, "knows no OS/2 header that is cut to 16 bytes"),
    (r"64-[148]-", 255, "takes the palette behind the OS/2 header of 64 bytes for three bytes an entry; there are four"),
    (r"\d+-\d+-alphamasks-", REFUSED, "knows no coding with a fourth mask, for alpha"),
    (r"\d+-[48]-runs-\w+-padded-(.*-)?(2x3|3x2)$", 255, "loses the last row of a small picture whose runs fill its rows up"),
    (r"\d+-16-masks-3840-|\d+-32-masks-15-", 16, "makes 240 of a full channel of four bits"),
    (r"\d+-16-masks-224-", 63, "makes less than 255 of full channels of two and three bits"),
    (r"\d+-16-masks-4-|\d+-32-masks-2147483648-", 128, "makes 128 of a full channel of one bit"),
    (r"\d+-16-", 1, "repeats the bits of five and six, where the nearest of 256 steps is taken here"),
    (r"\d+-32-masks-", 1, "cuts what is finer than 256 steps, where the nearest is taken here"),
]


def distances(folder, its_folder):
    """By the name of a file, how far the furthest two pixels are apart."""
    for path in sorted(glob.glob(os.path.join(folder, "*.rgb"))):
        name = os.path.basename(path)
        with open(path, "rb") as file:
            mine = file.read()
        try:
            with open(os.path.join(its_folder, name), "rb") as file:
                its = file.read()
        except FileNotFoundError:
            its = b""
        far = REFUSED if len(its) != len(mine) else max(abs(a - b) for a, b in zip(mine, its))
        yield name[:-len(".rgb")], far


def main(folder):
    unnamed, told = [], collections.Counter()
    with tempfile.TemporaryDirectory(prefix="gridwright-imagemagick-") as its_folder:
        files = sorted(glob.glob(os.path.join(folder, "*.bmp")))
        subprocess.run(["mogrify", "-path", its_folder, "-alpha", "off", "-depth", "8", "-format", "rgb", *files],
                       stderr=subprocess.DEVNULL, check=False)
        for name, far in distances(folder, its_folder):
            rule = None if far == 0 else next((rule for rule in DIFFERENCES if re.match(rule[0], name)), None)
            if far and (rule is None or far > rule[1]):
                unnamed.append(f"{name}: {'refused' if far == REFUSED else f'by {far}'}")
            told[rule] += 1
    print(f"{sum(told.values())} bitmaps, {told[None]} read alike to the pixel")
    for rule in DIFFERENCES:
        print(f"{told[rule]:5}: ImageMagick {rule[2]}")
        if not told[rule]:
            unnamed.append("nothing any more: " + rule[2])
    for line in unnamed[:40]:
        print("not named: " + line, file=sys.stderr)
    return 1 if unnamed or not told[None] else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
