"""A scene: the backdrop of its house, what lies behind the subject, the subject, what is before it."""
from dataclasses import dataclass

from .shapes import *


@dataclass
class Scene:
    subject: str              # gets a dark line around its silhouette
    back: str = ""
    front: str = ""
    focus: tuple = (135, 205, 300)  # centre and side of the thumbnail's square
    backdrop: str = ""        # in place of that of the house


def full(color):
    return box(-FAR, -FAR, W + 2 * FAR, H + 2 * FAR, color)


def bands(colors, y=110, step=62, rise=26):
    """Flat bands of a sky, from the top to the water."""
    body = full(colors[0])
    for i, color in enumerate(colors[1:]):
        top = y + i * step
        body += shape(f"M{-FAR},{top} Q60,{top - rise} 135,{top} T{W + FAR},{top} V{H + FAR}"
                      f" H{-FAR}Z", color)
    return body


def lamp():
    """Dusk over the roofs: plum above, embers below."""
    rays = "".join(shape(f"M135,215 L{x},-120 L{x + 60},-120Z", AMBER, .07)
                   for x in range(-240, 480, 120))
    return bands(("#2A1733", "#421F39", "#61283D", "#85383D"), 90, 70) + rays + \
        roofs(396, "#1D0F26", 1)


def tide():
    """Under water: shafts of light from above, weed on the ground."""
    rays = "".join(shape(f"M{x},-120 L{x + 34},-120 L{x - 120},540 L{x - 210},540Z", TEAL, .10)
                   for x in (20, 130, 240, 350, 460))
    weed = "".join(curve(((x, 440), (x - 8, 400), (x + 7, 365), (x, 330 + d)), "#0A3A45", 9)
                   for x, d in ((2, 0), (22, 30), (250, 10), (272, -14)))
    bubbles = specks(TEAL, ((34, 84, 6), (52, 60, 4), (238, 118, 7), (226, 96, 4), (28, 210, 4),
                            (248, 246, 5)), .5)
    return bands(("#1E8A90", "#19767F", "#13606C", "#0F4A58"), 80, 84) + rays + bubbles + weed


def tide_top():
    """On the water under a pale moon."""
    return bands(("#123C55", "#17506A", "#1E6A7E"), 90, 80) + disc(206, 78, 36, "#CDEFE9", .9) + \
        specks("#CDEFE9", ((34, 48, 1.8), (78, 86, 1.4), (58, 130, 2), (120, 36, 1.6),
                           (26, 186, 1.5)), .8) + \
        waves(330, "#13596B", 24, 8) + waves(358, "#0F4558", 26, 8, 12) + \
        waves(388, "#0B3444", 30, 9)


def wind():
    """High air: pale lilac light, swirls and heaps of cloud."""
    swirl = "".join(line(d, "#EADFFF", w, .5) for d, w in (
        ("M-120,150 C40,70 150,150 204,104 S300,84 400,112", 5),
        ("M-120,290 C40,310 120,240 400,262", 5)))
    clouds = "".join(oval(x, y, rx, ry, c) for x, y, rx, ry, c in (
        (-70, 400, 90, 50, "#CBB9F2"), (60, 414, 100, 48, "#DCCEF8"), (210, 406, 100, 50, "#CBB9F2"),
        (330, 400, 90, 56, "#DCCEF8")))
    return bands(("#5A48A0", "#6E5BB8", "#8673CC", "#A08FDD"), 84, 74) + swirl + clouds


def wind_storm():
    """The same air in bad weather."""
    clouds = "".join(oval(x, y, rx, 36, "#1B1740") for x, y, rx in
                     ((-60, 10, 110), (60, 34, 90), (170, 18, 100), (300, 30, 120)))
    return bands(("#2B2459", "#3A3072", "#4A3F8C"), 120, 90) + clouds


def root():
    """A garden morning: pale green sky, hills of moss."""
    sun = disc(206, 92, 44, "#F4F3B8", .85)
    hills = shape(f"M{-FAR},300 Q40,236 135,300 T{W + FAR},280 V{H + FAR} H{-FAR}Z", "#5E9C58") + \
        shape(f"M{-FAR},352 Q30,312 120,350 T{W + FAR},336 V{H + FAR} H{-FAR}Z", "#3C7446")
    tufts = "".join(line(f"M{x},{y} q-3,-10 -7,-13 M{x},{y} v-16 M{x},{y} q3,-10 7,-13", "#2A5636", 3)
                    for x, y in ((18, 384), (70, 404), (196, 398), (250, 380), (-30, 400), (300, 404)))
    return bands(("#8FC7A4", "#A6D6A6", "#BFE3A9"), 100, 80) + sun + hills + tufts


def home():
    """A clear night above the drowned houses."""
    stars = specks(CREAM, ((34, 48, 2), (78, 86, 1.6), (58, 150, 2), (214, 42, 1.8), (236, 124, 2),
                           (190, 78, 1.5), (120, 36, 1.8), (26, 206, 1.6), (246, 200, 1.5),
                           (-20, 110, 2), (290, 70, 2)), .9)
    return bands(("#16224A", "#1E2F60", "#2A4078"), 130, 90) + stars + \
        waves(350, "#24406A", 24, 7) + waves(374, "#1B3158", 26, 8, 14) + \
        waves(398, "#142446", 30, 8, 4)


def wood():
    """A wood at night, for the game of the tutorial."""
    trunks = "".join(poly(((x, 470), (x + 8, -120), (x + w - 6, -120), (x + w + 4, 470)), c)
                     for x, w, c in ((-80, 36, "#143A3A"), (-14, 30, "#123434"), (40, 22, "#194844"),
                                     (218, 26, "#194844"), (254, 40, "#123434"),
                                     (330, 34, "#143A3A")))
    moss = shape(f"M{-FAR},372 Q60,340 135,366 T{W + FAR},352 V{H + FAR} H{-FAR}Z", "#17453A")
    return bands(("#123A48", "#1A4E55", "#23635F"), 120, 90) + trunks + moss


BACKDROPS = {"lamp": lamp, "tide": tide, "wind": wind, "root": root, "home": home, "wood": wood}
