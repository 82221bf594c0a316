"""Badges (24 x 24), icons of the prices (32 x 32), banners (600 x 120), portraits of the sides (65 x 100)
and the backs that show around a composed picture (300 x 450)."""
from .shapes import *
from .scene import wood
from .yawnwood import dormouse_body, owl_body


def svg(width, height, view, body, defs=""):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}"'
            f' viewBox="{view}"><defs>{defs}</defs>{body}</svg>')


def seal(body, color):
    return svg(24, 24, "0 0 48 48", disc(24, 24, 23, color) + disc(24, 24, 19.5, INK) + body)


BADGES = {
    "badge-strike": seal(star(24, 24, 17, AMBER, 6, .42) + disc(24, 24, 6, RUST), AMBER),
    "badge-darting": seal(line("M13,13 L23,24 L13,35 M25,13 L35,24 L25,35", AMBER, 6), ORANGE),
    "badge-drift": seal(shape("M8,30 C14,14 24,10 40,12 C36,16 36,20 32,22 C32,26 26,28 22,29 C20,33 14,34"
            " 8,30Z", WHITE), LILAC),
    "badge-sting": seal(line("M15,12 q8,6 0,12 q-8,6 0,12 M33,12 q8,6 0,12 q-8,6 0,12", LILAC, 4.5) +
                        shape("M24,9 L28,36 L24,41 L20,36Z", ROSE), "#D98AD0"),
    "badge-breakwater": seal("".join(box(x, y, w, 8, STONE, 2) for x, y, w in
                                     ((10, 14, 13), (25, 14, 13), (14, 24, 20), (8, 24, 4), (36, 24, 4),
                                                 (11, 34, 12), (25, 34, 12))), STONE),
    "badge-shell": seal(shape("M10,34 C6,18 16,8 26,10 C38,12 42,24 36,36Z", "#D8C8B0") +
                        line("M30,34 C36,24 26,16 20,22 S24,34 27,28", BARK, 3.5), "#D8C8B0"),
    "badge-glow": seal("".join(put(box(-2, -18, 4, 8, AMBER, 2), 24, 24, 1, a) for a in range(0, 360, 45)) +
                       disc(24, 24, 9, CREAM), "#FFF0A0"),
    "badge-brine": seal(shape("M24,8 C34,22 37,27 34,34 C30,42 18,42 14,34 C11,27 14,22 24,8Z", TEAL) +
                        line("M19,30 q1,6 6,7", WHITE, 3), LAGOON),
    "badge-hull": seal(shape("M6,18 H42 C40,32 34,38 28,38 H20 C14,38 8,32 6,18Z", "#C98A54") +
                       line("M9,26 H39 M13,33 H35", BARK, 2.5) + box(5, 14, 38, 6, CREAM, 2), "#D9A56A"),
    "badge-thorn": seal(line("M12,40 Q26,28 34,8", MOSS, 5) + poly(((16, 34), (9, 20), (24, 28)), LEAF) +
                        poly(((24, 27), (40, 30), (28, 19)), LEAF) +
                                poly(((30, 18), (18, 10), (33, 10)), LEAF), LEAF),
    "badge-ripen": seal(line("M16,40 V26", MOSS, 4) + leaf(16, 30, .42, LEAF, -56) +
            leaf(16, 30, .42, LEAF, 50) +
                        poly(((33, 8), (42, 22), (24, 22)), AMBER) + box(29.5, 20, 7, 19, AMBER, 2), MOSS),
    "badge-doze": seal(line("M9,27 q8,9 16,0", CREAM, 4.5) + line("M27,11 H38 L27,25 H38", LILAC, 4.5) +
                       line("M12,31l-2,4M17,33v4M22,31l2,4", CREAM, 2.5), LILAC),
    "badge-shy": seal(shape("M6,24 Q24,6 42,24 Q24,42 6,24Z", WHITE) + disc(22, 24, 8, INK) +
            disc(24, 21, 2.5, WHITE) +
                      put(leaf(0, 0, .95, MOSS), 40, 42, 1, -24), LEAF),
    "badge-haul": seal(shape("M12,8 H36 V13 L27,24 L36,35 V40 H12 V35 L21,24 L12,13Z", CREAM) +
                       shape("M16,13 H32 L24,23Z", INK) + shape("M24,25 L33,37 H15Z", AMBER), BRASS),
    "badge-lamp": seal(flame(24, 27, .92), AMBER),
    "badge-tide": seal("".join(line(f"M8,{y} q4,-7 8,0 t8,0 t8,0 t8,0", c, 5)
                for y, c in ((17, WHITE), (26, TEAL), (35, LAGOON))), TEAL),
    "badge-wind": seal(shape("M11,38 C10,20 22,8 38,8 C40,24 30,36 14,35Z", LILAC) +
            line("M10,40 L32,14 M17,32 L16,22 M22,26 L21,16 M19,31 L30,29", PLUM, 2.5), LILAC),
    "badge-root": seal(put(leaf(0, 0, .86, LEAF), 24, 42), LEAF),
    "badge-uncommon": seal(disc(24, 24, 14, STEEL) + disc(24, 24, 9, "#E6EDF3") +
            shape("M17,27 A9,9 0 0 1 27,17", None, None, WHITE, 3), "#8FA3B3"),
    "badge-rare": seal(star(24, 25, 18, AMBER, 5, .46) + star(24, 25, 8, "#FFF1B8", 5, .46), GOLD),
    "badge-hum": seal(note(23, 24, .95, LEAF), LEAF),
}

ICONS = {
    "magiccost": shape("M16,1 C26,14 29,18 27,24 C24,33 8,33 5,24 C3,18 6,14 16,1Z", "#3E7FA8") +
                 shape("M16,10 C22,17 23,20 22,24 C20,29 12,29 10,24 C9,20 10,17 16,10Z", AMBER) +
                 shape("M16,17 C19,20 19,22 18.4,24 C17.6,26 14.4,26 13.6,24 C13,22 14,20 16,17Z", WHITE),
    "monstercost": shape("M4,20 C2,10 10,4 18,5 C28,6 31,14 28,21 C27,28 20,29 15,27 C10,29 5,26 4,20Z",
            "#D9914A") +
                   shape("M8,18 C8,11 13,8 18,9 C24,10 26,14 24,18 C20,13 13,13 8,18Z", CREAM, .8) +
                   disc(13, 21, 1.8, BARK) + disc(19, 22, 1.8, BARK) + disc(29, 28, 2.2, "#D9914A") +
                       disc(3, 28, 1.8, "#D9914A"),
    "heartcost": heart(16, 17, 1.3, RED) + oval(9.5, 10, 3, 2, ROSE, -30),
}


def wickwater_banner():
    b = '<rect width="600" height="120" fill="#16224A"/>' + \
        shape("M0,66 Q150,50 300,66 T600,66 V120 H0Z", "#1E2F60") + \
            shape("M0,92 Q150,78 300,92 T600,92 V120 H0Z", "#2A4078")
    b += "".join(disc(x, y, r, CREAM, .8) for x, y, r in
                 ((24, 22, 1.6), (128, 14, 1.3), (150, 74, 1.4), (232, 14, 1.4), (300, 10, 1.6), (372, 14, 1.3),
                  (452, 74, 1.5), (476, 14, 1.4), (578, 24, 1.6)))
    b += shape("M66,40 L330,-30 V110Z", AMBER, .35) + shape("M66,40 L330,10 V72Z", CREAM, .35)
    b += shape("M534,40 L270,-30 V110Z", VIOLET, .35) + shape("M534,40 L270,10 V72Z", LILAC, .35)
    b += glow(66, 40, 46, AMBER, 4, .2) + glow(534, 40, 46, LILAC, 4, .2)
    houses = "".join(house_front(x, y, s, CREAM, c) for x, y, s, c in
                     ((140, 112, .62, RUST), (206, 116, .5, MOSS), (394, 116, .5, LAGOON),
                             (460, 112, .62, VIOLET)))
    boat = put(shape("M-24,0 H24 L16,13 H-16Z", WOOD) + line("M0,0V-26", BARK, 3) +
        shape("M2,-26 L20,-4 H2Z", WHITE) +
               shape("M-2,-22 L-14,-4 H-2Z", AMBER), 300, 101, .95)
    b += inked(tower(66, 114, .66) + tower(534, 114, .66, True, "#E9E0FA", VIOLET, PLUM) + houses + boat)
    for y, c, shift in ((104, "#24406A", 0), (110, "#1B3158", 12), (116, "#142446", 5)):
        b += shape(f"M{-40 + shift},{y}" + " q9,-6 18,0 q9,6 18,0" * 19 + " V130H-50Z", c)
    b += title("wickwater", 300, 32, 1.3, "#FFE3A0")
    return svg(600, 120, "0 0 600 120", b, ink_filter(1.6).replace(
        'x="-120" y="-120" width="510" height="660"', 'x="-60" y="-60" width="800" height="300"'))


def player_thumb(roof, sky, light, stripe):
    b = box(0, 0, 65, 100, sky) + glow(32, 34, 34, light, 4, .16) + \
        tower(32, 94, .5, True, CREAM, stripe, roof) + \
        shape("M-5,90 q8,-6 16,0 t16,0 t16,0 t16,0 t16,0 V105H-5Z", INK) + \
            box(1, 1, 63, 98, None, 4, None, light, 2)
    return svg(65, 100, "0 0 65 100", b)


LETTERS = {  # strokes on a grid of 20 by 30, y downwards
    "i": ("M2,0 V30", 10), "c": ("M20,4 C-6,-10 -6,40 20,26", 26),
        "k": ("M0,0 V30 M18,0 L0,17 M6,13 L18,30", 24),
    "t": ("M0,0 H20 M10,0 V30", 25), "e": ("M17,0 H0 V30 H17 M0,15 H13", 23),
        "r": ("M0,30 V0 C22,-2 22,17 0,16 M8,16 L18,30", 24),
    "y": ("M0,0 L10,14 L20,0 M10,14 V30", 24), "a": ("M0,30 L10,0 L20,30 M4,20 H16", 25),
    "w": ("M0,0 L6,30 L13,8 L20,30 L26,0", 31), "n": ("M0,30 V0 L18,30 V0", 24),
    "o": ("M10,0 C-4,0 -4,30 10,30 C24,30 24,0 10,0Z", 25), "d": ("M0,0 V30 C26,30 26,0 0,0Z", 25)}


def title(word, x, y, s, fill):
    """A word drawn with strokes, so that it looks the same wherever it is drawn."""
    width = sum(LETTERS[c][1] for c in word) - 5
    body, at = "", -width / 2
    for c in word:
        strokes, advance = LETTERS[c]
        body += put(line(strokes, INK, 10) + line(strokes, fill, 5.5), at, 0)
        at += advance
    return put(body, x, y, s)


def yawnwood_banner():
    night = '<g transform="translate(0 -250)">' + "".join(put(wood(), x, 0) for x in (0, 300)) + "</g>"
    b = f'<rect width="600" height="120" fill="#123A48"/>{night}' + disc(300, 30, 74, "#F4F1D8", .18)
    b += box(48, 94, 82, 40, "#6E4A30", 6) + oval(89, 96, 45, 10, MOSS) + inked(dormouse_body(46, -4, .31))
    b += taper(((470, 108), (540, 104), (620, 110)), 14, 12, "#5F4028") + inked(put(owl_body(), 474, 0, .32))
    b += title("yawnwood", 300, 40, 1.35, "#FFE3A0")
    b += note(168, 30, .8, CREAM, -8) + note(448, 34, .8, CREAM, 8) + zed(150, 56, .5, CREAM) + \
        zed(466, 66, .5, CREAM)
    b += "".join(disc(x, y, 3.5, "#F6FF9E") + disc(x, y, 9, "#F6FF9E", .25)
        for x, y in ((206, 98), (276, 106), (356, 100), (410, 108)))
    return svg(600, 120, "0 0 600 120", b,
        ink_filter(2.6).replace('x="-120" y="-120" width="510" height="660"',
            'x="-60" y="-60" width="1000" height="500"'))


BACKS = {  # of each house: plank, other plank, metal
    "generic": (DUSK, "#1B2A4A", BRASS), "lamp": ("#4A2436", "#3A1B30", GOLD),
    "tide": ("#0F4A58", "#0B3C4A", TEAL), "wind": ("#43398A", "#372E75", LILAC),
    "root": ("#2A5636", "#1F4A33", LEAF), "home": ("#24345F", "#1B284C", "#FFE3A0"),
    "wood": ("#17453A", "#123A38", "#9CE07A")}


def card_back(house):
    """What shows around the picture of a composed card: planks of a hull, metal in the corners."""
    width, height, plank = 300, 450, 30
    first, second, metal = BACKS[house]
    body = box(0, 0, width, height, INK)
    for row in range(height // plank):
        body += box(0, row * plank, width, plank - 2, (first, second)[row % 2])
    body += box(3, 3, width - 6, height - 6, None, r=10, stroke=metal, width=3)
    for x in (13, width - 13):
        for y in (13, height - 13):
            body += star(x, y, 10, metal, points=8, inner=0.45)
    return svg(width, height, f"0 0 {width} {height}", body)


BANNERS = {"wickwater-banner": wickwater_banner, "yawnwood-banner": yawnwood_banner}
