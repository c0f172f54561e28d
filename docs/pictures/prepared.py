#!/usr/bin/env python3
"""Makes docs/pictures/prepared-NAME.png: a picture as it was brought, and what gridwright-prepare makes of it.

usage: prepared.py BUILD_FOLDER
"""
import pathlib
import subprocess
import sys
import tempfile

from PIL import Image

here = pathlib.Path(__file__).resolve().parent
program = pathlib.Path(sys.argv[1]) / "src/platform/pictures/gridwright-prepare"
GAP = 16  # pixels between the two

with tempfile.TemporaryDirectory() as place:
    folder = pathlib.Path(place)
    subprocess.run([sys.executable, here.parent.parent / "tests/pictures/make_pictures.py", folder], check=True)
    for name in ["clip_art.png", "colouring_page.png", "photograph.jpg", "scan.jpg", "word.png"]:
        made = folder / "made.bmp"
        subprocess.run([program, folder / name, made, "--force"], check=True, stdout=subprocess.DEVNULL)
        before, after = Image.open(folder / name).convert("RGB"), Image.open(made).convert("RGB")
        both = Image.new("RGB", (before.width + GAP + after.width, max(before.height, after.height)), (128, 128, 128))
        both.paste(before, (0, 0))
        both.paste(after, (before.width + GAP, 0))
        both.resize((both.width * 2 // 3, both.height * 2 // 3), Image.Resampling.LANCZOS).quantize(64).save(
            here / f"prepared-{pathlib.Path(name).stem.replace('_', '-')}.png", optimize=True)
