#!/usr/bin/env python3
"""Paints pictures as people bring them, each as NAME.png, .jpg and so on, the same bytes every time.

usage: make_pictures.py FOLDER

Beside a picture lies NAME.regions where its regions are known: a line with the corners of its subject, then a
point in each of its closed regions, x and y in the picture's pixels. No two points may be joined afterwards.
"""
import base64
import io
import math
import pathlib
import struct
import sys
import zlib

from PIL import Image, ImageDraw, ImageFilter, ImageFont

SOFT = 4  # pictures with soft edges are painted so many times larger

folder = pathlib.Path(sys.argv[1])


def regions(name, box, points):
    """Says where the subject and its closed regions lie."""
    lines = [" ".join(map(str, part)) for part in [box, *points]]
    (folder / f"{name}.regions").write_text("\n".join(lines) + "\n")


class Chance:
    """Numbers that look drawn by chance and are the same on every machine."""

    def __init__(self, seed):
        self.state = seed

    def below(self, count):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % count

    def around(self, width):
        """Heaped about 0, from -width to width."""
        return (self.below(width + 1) + self.below(width + 1) + self.below(width + 1) + self.below(width + 1)) // 2 - width


def soft(size, paint, mode="RGB", ground="white"):
    """A picture with soft edges: painted large, then made small."""
    large = Image.new(mode, (size[0] * SOFT, size[1] * SOFT), ground)
    paint(ImageDraw.Draw(large))
    return large.resize(size, Image.Resampling.BOX)


def big(*numbers):
    return [number * SOFT for number in numbers]


def heart(draw, left, top, side, fill):
    """A heart within a square."""
    points = []
    for step in range(360):
        t = math.radians(step)
        x = 16 * math.sin(t) ** 3
        y = 13 * math.cos(t) - 5 * math.cos(2 * t) - 2 * math.cos(3 * t) - math.cos(4 * t)
        points.append((left + (x + 17) / 34 * side, top + (13 - y) / 30 * side))
    draw.polygon(points, fill=fill)


def noisy(picture, width, seed):
    chance = Chance(seed)
    data = bytearray(picture.tobytes())
    for i, value in enumerate(data):
        data[i] = min(255, max(0, value + chance.around(width)))
    return Image.frombytes(picture.mode, picture.size, bytes(data))


def clip_art():
    def paint(draw):
        draw.ellipse(big(60, 40, 260, 260), fill=(220, 40, 50))
        draw.ellipse(big(300, 60, 540, 240), fill=(40, 110, 200))
        draw.rectangle(big(120, 270, 480, 400), fill=(250, 200, 60))
        heart(draw, *big(360, 90, 120), (250, 250, 245))

    return soft((600, 450), paint)


def photograph():
    width, height = 640, 480
    picture = Image.new("RGB", (width, height))
    for y in range(height):
        for x in range(width):
            far = math.hypot(x - 420, y - 150)
            if far < 70:
                colour = (250, 220 - int(far), 120)
            elif y < 300 + 30 * math.sin(x / 70):
                colour = (90 + y // 4, 140 + y // 5, 230 - y // 8)
            else:
                colour = (40 + (y - 300) // 4, 110 - (y - 300) // 6, 45)
            picture.putpixel((x, y), colour)
    return noisy(picture, 14, 7)


def thin_lines():
    """Lines of one pixel with hard edges, so that only corners join where they run askew."""
    picture = Image.new("RGB", (500, 400), "white")
    draw = ImageDraw.Draw(picture)
    draw.ellipse((60, 60, 300, 300), outline="black")
    draw.ellipse((120, 120, 200, 200), outline="black")
    draw.polygon([(330, 330), (390, 90), (450, 330)], outline="black")
    draw.rectangle((90, 320, 260, 370), outline="black")
    regions("thin_lines", (60, 60, 450, 370), [(80, 180), (160, 160), (390, 250), (150, 345)])
    return picture


def soft_lines():
    def paint(draw):
        draw.ellipse(big(80, 80, 500, 500), outline="black", width=SOFT)
        draw.line(big(100, 150, 490, 430), fill="black", width=SOFT)
        draw.line([(480 * SOFT, 260 * SOFT), (760 * SOFT, 120 * SOFT), (800 * SOFT, 560 * SOFT), (425 * SOFT, 425 * SOFT)],
                  fill="black", width=SOFT)

    regions("soft_lines", (80, 80, 800, 560), [(330, 200), (200, 400), (650, 300)])
    return soft((900, 700), paint)


def word(text, size, ground="white", ink="black"):
    font = ImageFont.load_default()
    width, height = font.getbbox(text)[2:]
    letters = Image.new("L", (width, height), 0)
    ImageDraw.Draw(letters).text((0, 0), text, font=font, fill=255)
    # Large steps become slopes: as letters of a word processor, soft at their edges.
    letters = letters.resize((size[0] * 3 // 4, size[1] // 2), Image.Resampling.BICUBIC)
    letters = letters.point(lambda v: min(255, max(0, (v - 96) * 4)))
    picture = Image.new("RGB", size, ground)
    picture.paste(Image.new("RGB", letters.size, ink), (size[0] // 8, size[1] // 4), letters)
    return picture


def colouring_page():
    def paint(draw):
        thick = 5 * SOFT
        draw.rectangle(big(150, 260, 450, 500), outline="black", width=thick)
        draw.polygon(big(120, 262, 300, 100, 480, 262), outline="black")
        draw.line(big(120, 262, 300, 100, 480, 262, 120, 262), fill="black", width=thick, joint="curve")
        draw.rectangle(big(180, 310, 250, 380), outline="black", width=thick)
        draw.rectangle(big(330, 340, 410, 500), outline="black", width=thick)
        draw.ellipse(big(500, 60, 600, 160), outline="black", width=thick)
        draw.line(big(152, 498, 60, 560, 560, 560, 448, 498), fill="black", width=thick, joint="curve")

    regions("colouring_page", (60, 60, 600, 560), [(300, 200), (215, 345), (370, 420), (280, 450), (550, 110), (250, 530)])
    return soft((660, 620), paint)


def scan():
    """Grey paper, darker towards a corner, with grain, and a drawing in felt pen."""
    picture = Image.new("RGB", (700, 500))
    for y in range(500):
        for x in range(700):
            shade = 222 - int(math.hypot(x, y) / 30)
            picture.putpixel((x, y), (shade, shade, shade - 6))
    draw = ImageDraw.Draw(picture)
    draw.ellipse((90, 90, 330, 400), outline=(60, 60, 70), width=6)
    draw.ellipse((380, 120, 600, 340), fill=(150, 60, 60), outline=(60, 60, 70), width=6)
    picture = noisy(picture.filter(ImageFilter.GaussianBlur(1)), 9, 11)
    regions("scan", (90, 90, 600, 400), [(210, 250), (490, 230)])
    return picture


def small_text():
    picture = Image.new("RGB", (420, 260), "white")
    draw = ImageDraw.Draw(picture)
    for line in range(10):
        draw.text((20, 20 + 22 * line), "The quick brown fox jumps over the lazy dog " + str(line), fill="black")
    return picture


def cut_out():
    """Transparent all round, with a soft rim, and a hole."""

    def paint(draw):
        draw.ellipse(big(40, 40, 360, 260), fill=(30, 120, 60, 255))
        heart(draw, *big(120, 80, 140), (230, 60, 60, 255))
        draw.ellipse(big(290, 120, 330, 160), fill=(0, 0, 0, 0))

    return soft((400, 300), paint, "RGBA", (0, 0, 0, 0))


def greys():
    picture = Image.new("L", (480, 360), 255)
    draw = ImageDraw.Draw(picture)
    for step in range(6):
        draw.rectangle((40 + 66 * step, 60, 105 + 66 * step, 300), fill=20 + 40 * step)
    return picture


def turned(way):
    """The letter F in red on a blue page, stored so that EXIF has to turn it."""
    picture = Image.new("RGB", (360, 480), "white")
    draw = ImageDraw.Draw(picture)
    draw.rectangle((60, 60, 140, 420), fill=(200, 30, 30))
    draw.rectangle((60, 60, 300, 140), fill=(200, 30, 30))
    draw.rectangle((60, 220, 240, 300), fill=(30, 60, 200))
    stored = {
        1: None,
        2: Image.Transpose.FLIP_LEFT_RIGHT,
        3: Image.Transpose.ROTATE_180,
        4: Image.Transpose.FLIP_TOP_BOTTOM,
        5: Image.Transpose.TRANSPOSE,
        6: Image.Transpose.ROTATE_90,
        7: Image.Transpose.TRANSVERSE,
        8: Image.Transpose.ROTATE_270,
    }[way]
    if stored is not None:
        picture = picture.transpose(stored)
    exif = Image.Exif()
    exif[0x0112] = way
    picture.save(folder / f"turned_{way}.jpg", quality=92, exif=exif)


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(width, height, depth, kind, interlaced, rows):
    head = struct.pack(">IIBBBBB", width, height, depth, kind, 0, 0, interlaced)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


def deep():
    """16 bits a channel."""
    rows = bytearray()
    for y in range(240):
        rows.append(0)
        for x in range(320):
            inside = math.hypot(x - 160, y - 120) < 90
            red, green, blue = (52000, 9000 + 60 * y, 12000) if inside else (65535, 65535, 65535)
            rows += struct.pack(">HHH", red, green, blue)
    (folder / "deep.png").write_bytes(png(320, 240, 16, 2, 0, bytes(rows)))


def interlaced():
    picture = clip_art().resize((300, 225), Image.Resampling.BOX)
    rows = bytearray()
    for left, top, across, down in [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2)]:
        for y in range(top, 225, down):
            rows.append(0)
            for x in range(left, 300, across):
                rows += bytes(picture.getpixel((x, y)))
    (folder / "interlaced.png").write_bytes(png(300, 225, 8, 2, 1, bytes(rows)))


def moving():
    frames = []
    for step in range(4):
        frame = Image.new("RGB", (300, 220), "white")
        ImageDraw.Draw(frame).ellipse((40 + 40 * step, 40, 160 + 40 * step, 160), fill=(20, 90, 180))
        frames.append(frame)
    frames[0].save(folder / "moving.gif", save_all=True, append_images=frames[1:], loop=0, duration=100)


def drawing():
    """An SVG with all that is drawn by ours; its picture within is a small PNG."""
    inside = io.BytesIO()
    Image.new("RGB", (4, 4), (200, 120, 40)).save(inside, "PNG")
    data = base64.b64encode(inside.getvalue()).decode()
    (folder / "drawing.svg").write_text(f"""<?xml version="1.0"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" viewBox="0 0 200 150" width="200" height="150">
<defs><linearGradient id="sky"><stop offset="0" stop-color="#3060c0"/><stop offset="1" stop-color="#3060c8"/></linearGradient></defs>
<style>.leaf {{ fill: #208040; stroke: black; stroke-width: 3 }}</style>
<ellipse cx="70" cy="70" rx="50" ry="40" fill="url(#sky)" stroke="black" stroke-width="3"/>
<path id="leaf" class="leaf" d="M130 30 L185 60 L150 110 Z"/>
<use xlink:href="#leaf" transform="translate(-60 50) scale(0.8)"/>
<image x="20" y="115" width="30" height="25" xlink:href="data:image/png;base64,{data}"/>
</svg>
""")


def tiny():
    """A figure of few pixels in hard colours, as games had them."""
    rows = ["..rrrr..", ".rrrrrr.", ".kyykyy.", "kykyyyky", ".yyyyyy.", "rrbrrbrr", "yrbbbbry", ".bb..bb."]
    colours = {".": (255, 255, 255), "r": (216, 40, 0), "k": (136, 112, 0), "y": (252, 152, 56), "b": (0, 88, 248)}
    picture = Image.new("RGB", (8, 8))
    for y, row in enumerate(rows):
        for x, letter in enumerate(row):
            picture.putpixel((x, y), colours[letter])
    return picture.resize((64, 64), Image.Resampling.NEAREST)


def main():
    folder.mkdir(parents=True, exist_ok=True)
    clip_art().save(folder / "clip_art.png")
    photograph().save(folder / "photograph.jpg", quality=88)
    thin_lines().save(folder / "thin_lines.png")
    soft_lines().save(folder / "soft_lines.png")
    word("MIA", (640, 320)).save(folder / "word.png")
    word("Tom & Jo", (900, 300), (250, 248, 230), (120, 20, 60)).save(folder / "words.tiff")
    colouring_page().save(folder / "colouring_page.png")
    scan().save(folder / "scan.jpg", quality=80)
    small_text().save(folder / "small_text.png")
    cut_out().save(folder / "cut_out.png")
    cut_out().save(folder / "cut_out.webp", lossless=True)
    greys().save(folder / "greys.png")
    for way in range(1, 9):
        turned(way)
    deep()
    interlaced()
    moving()
    drawing()
    clip_art().convert("CMYK").save(folder / "four_inks.jpg", quality=90)
    clip_art().resize((2400, 1800), Image.Resampling.BICUBIC).save(folder / "large.jpg", quality=90)
    thin_lines().convert("1").save(folder / "two_colours.bmp")
    tiny().save(folder / "tiny.png")


main()
