#!/usr/bin/env python3
"""Draws every picture of the games that come with the program and writes them beside this file.

The pictures of cards are drawn raw (drawing/), and the program composes them as the card editor
composes those of any author: background, picture, frame in the colour of the card's name,
thumbnail. Badges, icons and banners are drawn as they are.

    python3 -B draw.py PROGRAM          all pictures
    python3 -B draw.py PROGRAM spark    only those whose name contains "spark"

PROGRAM is the desktop program brindlemoor. Needs rsvg-convert (librsvg2-bin) and convert
(imagemagick).
"""
import os
import shutil
import subprocess
import sys
import tempfile

from drawing import (home, lamp_creatures, lamp_things, root_creatures, root_things, small, tide_creatures,
                     tide_things, wind_creatures, wind_things, yawnwood)
from drawing.scene import BACKDROPS
from drawing.shapes import H, W, AMBER, DUSK, LILAC, PLUM, RED, RUST, ink_filter, inked

HERE = os.path.dirname(os.path.abspath(__file__))
MINI = 65
QUALITY = 67
MINI_MARGIN = 1.06  # the frame of a thumbnail fades into its picture
COLORS = {"lamp": "#FFC35A", "tide": "#62D9CF", "wind": "#CDB2FF", "root": "#A5D86E",
          "home": "#FFE3A0", "wood": "#9CE07A"}


def subjects():
    """Name, house and drawing of every card picture."""
    for part in (lamp_creatures, lamp_things, tide_creatures, tide_things, wind_creatures, wind_things,
                 root_creatures, root_things, home, yawnwood):
        for house, drawings in part.ALL.items():
            for drawing in drawings:
                yield drawing.__name__.replace("_", "-"), house, drawing()


def view(scene, house, x, width, height, part, ink, name):
    """The scene, or a part of it, as a picture at (x, 0)."""
    subject = inked(scene.subject).replace("url(#ink)", f"url(#{name})")
    around = [text.replace("url(#ink)", f"url(#{name})") for text in (scene.back, scene.front)]
    body = (scene.backdrop or BACKDROPS[house]()) + around[0] + subject + around[1]
    frame = " ".join(f"{value:g}" for value in part)
    return (f'<svg x="{x}" y="0" width="{width}" height="{height}" viewBox="{frame}">'
            f'<defs>{ink_filter(ink).replace("ink", name, 1)}</defs>{body}</svg>')


def raw_picture(scene, house):
    """The picture of a card, and right of it that of its thumbnail in the size of the thumbnail."""
    x, y, side = scene.focus
    side *= MINI_MARGIN
    body = view(scene, house, 0, W, H, (0, 0, W, H), 2.6, "ink") + \
        view(scene, house, W, MINI, MINI, (x - side / 2, y - side / 2, side, side), 5, "ink-mini")
    return small.svg(W + MINI, H, f"0 0 {W + MINI} {H}", body)


def render(text, target, options=None):
    """Writes SVG text as a picture: a .png as it is, others over black with these options."""
    with tempfile.TemporaryDirectory() as work:
        source, png = os.path.join(work, "a.svg"), os.path.join(work, "a.png")
        with open(source, "w", encoding="utf-8") as file:
            file.write(text)
        subprocess.run(["rsvg-convert", "-o", png, source], check=True)
        if target.endswith(".png"):
            options = ["-strip", "-define", "png:exclude-chunks=date,time"]
        else:
            options = ["-background", "black", "-flatten", "-strip", *options]
        kind = "BMP3:" if target.endswith(".bmp") else ""
        subprocess.run(["convert", png, *options, kind + target], check=True)


def copy_cards(folder):
    """The card files of the games: their cards say in which colour a picture is framed."""
    games = os.path.dirname(HERE)
    for place, _, files in os.walk(games):
        if os.path.relpath(place, games).count(os.sep) > 0 or place == HERE:
            continue
        there = os.path.normpath(os.path.join(folder, os.path.relpath(place, games)))
        os.makedirs(there, exist_ok=True)
        for name in files:
            if name.endswith(".txt"):
                shutil.copy(os.path.join(place, name), there)


def compose(program, pictures):
    """Draws raw pictures, lets the program compose them and takes what it wrote."""
    with tempfile.TemporaryDirectory() as folder:
        copy_cards(folder)
        art, last = os.path.join(folder, "art"), os.path.join(folder, "zz")
        os.makedirs(art)
        os.makedirs(last)
        for house in COLORS:
            render(small.card_back(house), os.path.join(art, f"back-{house}.png"))
        recipes, cards = "", "CARD DATA FILE\n"
        for name, house, scene in pictures:
            render(raw_picture(scene, house), os.path.join(art, f"raw-{name}.png"))
            recipes += "\t".join((f"{name}.jpg", f"raw-{name}.png", f"back-{house}.png", "", "0", str(W),
                                  "0", str(H), str(W), str(W + MINI), "0", str(MINI))) + "\n"
            # For pictures that no card shows; files are read in the order of their folders.
            cards += f'#CARD, COLLECTION, "{name}", "ART-{name}", , {name}.jpg, {name}-mini.jpg,' \
                f' {COLORS[house]}, ""\n'
        for place, text in ((os.path.join(art, "CardImages.list"), recipes),
                            (os.path.join(last, "Pictures.txt"), cards)):
            with open(place, "w", encoding="utf-8") as file:
                file.write(text)
        subprocess.run([program, folder, "--compose", "--quality", str(QUALITY)], check=True)
        for name, _, _ in pictures:
            for ending in (".jpg", "-mini.jpg"):
                shutil.copyfile(os.path.join(art, name + ending), os.path.join(HERE, name + ending))


def small_pictures():
    """File name, drawing and options of what is no card."""
    for name, text in small.BADGES.items():
        yield name + ".png", text, None
    for name, body in small.ICONS.items():
        yield name + ".jpg", small.svg(32, 32, "0 0 32 32", body), ["-quality", "92", "-sampling-factor", "1x1"]
    for name, make in small.BANNERS.items():
        yield name + ".jpg", make(), ["-quality", "88", "-sampling-factor", "1x1"]
    for name, colors in (("Player1thumb", (RUST, "#3A1F3F", AMBER, RED)),
                         ("Player2thumb", (DUSK, "#43398A", LILAC, PLUM))):
        yield name + ".bmp", small.player_thumb(*colors), ["-type", "TrueColor"]
    yield "backs-generic.bmp", small.card_back("generic"), ["+dither", "-colors", "16", "-type", "Palette"]


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program, wanted = os.path.abspath(sys.argv[1]), sys.argv[2] if len(sys.argv) > 2 else ""
    pictures = [row for row in subjects() if wanted in row[0]]
    if pictures:
        compose(program, pictures)
    for name, text, options in small_pictures():
        if wanted in name:
            render(text, os.path.join(HERE, name), options)


if __name__ == "__main__":
    main()
