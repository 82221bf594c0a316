#!/usr/bin/env python3
"""Draws every picture of Wickwater: card pictures, thumbnails, badges, icons, portraits, banner.

Writes them beside this file. Needs rsvg-convert (librsvg2-bin) and convert (imagemagick):
    python3 draw.py            all pictures
    python3 draw.py spark      only those whose name contains "spark"
"""
import math
import os
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
W, H = 270, 405

INK, NIGHT, CREAM, WHITE = "#0B1524", "#10233A", "#FFF1D0", "#FFFDF4"
AMBER, ORANGE, RUST, GOLD = "#FFC35A", "#F58A3C", "#C9502E", "#E2A93B"
TEAL, LAGOON, PINE, ABYSS = "#62D9CF", "#2FA9A8", "#146C74", "#0B3C4A"
LILAC, VIOLET, PLUM, DUSK = "#CDB2FF", "#9779E2", "#5C459C", "#2D2359"
BRASS, BRONZE, WOOD, BARK = "#DDA945", "#A6752A", "#94623F", "#5F3D2C"
ROSE, RED, SLATE, STONE = "#F2A09A", "#DD5A50", "#53677D", "#8FA3B3"
HOUSE = {"lamp": AMBER, "tide": TEAL, "wind": LILAC, "home": "#FFE3A0"}


# ---- shapes -------------------------------------------------------------------------------------

def paint(fill=None, stroke=None, width=0, alpha=None, extra=""):
    s = f' fill="{fill or "none"}"'
    if stroke:
        s += (f' stroke="{stroke}" stroke-width="{width}" stroke-linecap="round"'
              ' stroke-linejoin="round"')
    if alpha is not None:
        s += f' opacity="{alpha}"'
    return s + (" " + extra if extra else "")


def disc(x, y, r, fill, alpha=None, stroke=None, width=0):
    return f'<circle cx="{x}" cy="{y}" r="{r}"{paint(fill, stroke, width, alpha)}/>'


def oval(x, y, rx, ry, fill, turn=0, alpha=None):
    return (f'<ellipse cx="{x}" cy="{y}" rx="{rx}" ry="{ry}"{paint(fill, alpha=alpha)}'
            f' transform="rotate({turn} {x} {y})"/>')


def box(x, y, w, h, fill, r=0, alpha=None, stroke=None, width=0):
    return (f'<rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{r}"'
            f'{paint(fill, stroke, width, alpha)}/>')


def shape(d, fill, alpha=None, stroke=None, width=0):
    return f'<path d="{d}"{paint(fill, stroke, width, alpha)}/>'


def line(d, stroke, width, alpha=None):
    return f'<path d="{d}"{paint(None, stroke, width, alpha)}/>'


def put(body, x=0, y=0, scale=1.0, turn=0, flip=1, squash=1):
    return (f'<g transform="translate({x} {y}) rotate({turn})'
            f' scale({scale * flip} {scale * squash})">{body}</g>')


def mirror(body, axis=W / 2):
    return body + f'<g transform="translate({2 * axis} 0) scale(-1 1)">{body}</g>'


def glow(x, y, r, color=AMBER, steps=4, alpha=0.14):
    return "".join(disc(x, y, round(r * (steps - i) / steps, 1), color, alpha) for i in range(steps))


def star(x, y, r, fill, points=4, inner=0.32, turn=0):
    pts = []
    for i in range(points * 2):
        a = math.radians(turn - 90 + i * 180 / points)
        q = r if i % 2 == 0 else r * inner
        pts.append(f"{x + q * math.cos(a):.1f},{y + q * math.sin(a):.1f}")
    return f'<polygon points="{" ".join(pts)}"{paint(fill)}/>'


def flame(x, y, s=1.0):
    return put(shape("M0,-34 C14,-16 18,-6 14,6 C11,15 -11,15 -14,6 C-18,-6 -6,-12 0,-34Z", ORANGE) +
               shape("M0,-18 C8,-8 10,-2 8,4 C6,10 -6,10 -8,4 C-10,-3 -3,-6 0,-18Z", CREAM), x, y, s)


def heart(x, y, s, fill):
    return put(shape("M0,10 C-16,-2 -12,-14 -5,-13 C-2,-13 0,-10 0,-8 C0,-10 2,-13 5,-13"
                     " C12,-14 16,-2 0,10Z", fill), x, y, s)


def waves(y, fill, size=18, depth=9, shift=0, alpha=None):
    d = f"M{-40 + shift},{y}"
    x = -40 + shift
    while x < W + 60:
        d += f" q{size / 2},{-depth} {size},0 q{size / 2},{depth} {size},0"
        x += 2 * size
    return shape(d + f" V{H + 10} H-50 Z", fill, alpha)


def eye(x, y, r=4, look=1):
    return disc(x, y, r, INK) + disc(x + r * 0.3 * look, y - r * 0.35, r * 0.35, WHITE)


def specks(color, spots, alpha=0.8):
    return "".join(disc(x, y, r, color, alpha) for x, y, r in spots)


STARS = [(34, 48, 1.6), (78, 86, 1.2), (58, 130, 1.8), (214, 42, 1.4), (236, 104, 1.8),
         (190, 78, 1.2), (120, 36, 1.5), (152, 98, 1.1), (26, 186, 1.3), (246, 170, 1.2)]
BUBBLES = [(40, 90, 5), (52, 66, 3), (226, 130, 6), (238, 104, 3.5), (210, 60, 4), (70, 320, 4),
           (58, 300, 6), (222, 300, 4), (30, 220, 3), (244, 230, 3)]


# ---- backgrounds --------------------------------------------------------------------------------

def lamp_sky(gx=135, gy=210):
    return (box(0, 0, W, H, "#1B1B36") + shape("M0,0H270V150Q135,210 0,150Z", "#161830") +
            specks(CREAM, STARS, 0.7) + glow(gx, gy, 190, AMBER, 5, 0.085) +
            waves(330, "#24304E", 22, 7) + waves(352, "#1A2644", 26, 8, 14) +
            waves(376, "#131D36", 30, 8, 4))


def tide_deep():
    rays = "".join(shape(f"M{x},0 L{x + 26},0 L{x - 70},405 L{x - 130},405Z", TEAL, 0.07)
                   for x in (70, 150, 250, 340))
    return (box(0, 0, W, H, "#0E4653") + shape("M0,150 Q135,100 270,160 V405H0Z", "#0C3B49") +
            shape("M0,270 Q120,230 270,280 V405H0Z", "#0A303D") + rays +
            specks(TEAL, BUBBLES, 0.35) +
            shape("M0,405V372Q40,352 80,372T160,370T270,366V405Z", "#07222D"))


def tide_night():
    return (box(0, 0, W, H, "#0F2F45") + disc(204, 76, 34, "#CDEFE9", 0.9) +
            disc(192, 68, 30, "#0F2F45") + specks("#CDEFE9", STARS, 0.6) +
            waves(318, "#13546A", 22, 8) + waves(344, "#0F4558", 26, 8, 12) +
            waves(370, "#0B3444", 30, 9))


def wind_sky():
    swirl = "".join(line(d, VIOLET, w, 0.35) for d, w in (
        ("M-10,120 C70,80 150,140 204,104 S250,84 280,92", 5),
        ("M-10,270 C60,300 120,240 280,268", 5), ("M280,200 C200,230 120,180 -10,214", 4)))
    clouds = "".join(oval(x, y, rx, ry, "#4A3A86", 0, 0.8) for x, y, rx, ry in (
        (40, 372, 70, 34), (120, 388, 90, 36), (220, 374, 84, 38)))
    return (box(0, 0, W, H, "#2B2459") + shape("M0,0H270V120Q120,190 0,110Z", "#231D4B") +
            shape("M0,300Q140,250 270,310V405H0Z", "#352C6B") + specks("#EADFFF", STARS, 0.75) +
            swirl + clouds)


# ---- subjects -----------------------------------------------------------------------------------

def mouse(fur="#B9835A", dark="#8B5B3D", inner=ROSE, candle=True):
    b = line("M78,286 C30,300 26,240 56,236 S70,262 56,262", dark, 7)
    b += oval(128, 258, 62, 56, fur) + oval(140, 274, 40, 36, CREAM, 0, 0.85)
    b += disc(136, 166, 27, dark) + disc(136, 167, 17, inner)
    b += disc(192, 172, 24, fur) + disc(192, 173, 15, inner)
    b += oval(166, 208, 46, 38, fur) + oval(204, 220, 16, 12, fur)
    b += disc(217, 217, 6, "#5A2D2D") + eye(176, 202, 6)
    b += line("M200,226 L226,234 M200,230 L220,244", CREAM, 1.6, 0.8)
    b += oval(100, 312, 26, 11, dark) + oval(158, 312, 26, 11, dark)
    if candle:
        b += box(196, 240, 20, 66, CREAM, 4) + shape("M196,246q5,14 8,2q4,10 12,0v-6h-20z", WHITE)
        b += flame(206, 232, 1.15)
    b += oval(190, 266, 18, 10, fur, -16) + oval(184, 284, 18, 10, dark, -10)
    return b


def wick_mouse():
    return lamp_sky(206, 210) + glow(206, 216, 110, ORANGE, 4, 0.10) + \
        box(40, 318, 190, 20, BARK, 4) + box(40, 318, 190, 7, WOOD, 3) + mouse()


def lamp_moth():
    wing = shape("M135,196 C150,110 226,84 246,120 C262,160 214,212 140,214Z", AMBER)
    wing += shape("M138,196 C156,132 214,108 230,128 C238,160 196,194 142,204Z", ORANGE)
    wing += disc(204, 146, 19, CREAM) + disc(204, 146, 10, RUST)
    wing += shape("M138,212 C200,212 232,250 214,282 C190,304 146,268 137,226Z", GOLD)
    wing += shape("M140,218 C186,222 212,250 202,270 C184,284 152,256 140,228Z", RUST)
    wing += disc(186, 250, 11, CREAM)
    wing += line("M140,166 C150,128 170,112 188,98", BARK, 4) + disc(189, 97, 5, GOLD)
    body = oval(135, 222, 17, 56, BARK) + "".join(
        oval(135, y, 17, 5, AMBER, 0, 0.85) for y in (222, 238, 254)) + \
        disc(135, 178, 22, WOOD) + oval(135, 196, 22, 12, CREAM) + eye(127, 174, 5) + eye(143, 174, 5)
    return lamp_sky(135, 196) + glow(135, 196, 130, AMBER, 4, 0.09) + mirror(wing) + body


def brass_tortoise():
    b = oval(84, 308, 22, 24, "#6E8B5A") + oval(176, 308, 22, 24, "#6E8B5A")
    b += oval(218, 258, 30, 24, "#86A56C") + oval(206, 276, 26, 20, "#86A56C") + eye(226, 252, 6)
    b += line("M228,270 q10,0 14,-6", "#51693F", 3)
    b += line("M50,290 q-20,4 -26,16", "#6E8B5A", 9)
    b += shape("M40,292 C40,200 80,156 128,156 C178,156 214,204 214,292Z", BRASS)
    b += shape("M40,292 C40,260 46,234 56,214 C90,250 160,250 198,214 C208,236 214,262 214,292Z",
               BRONZE)
    b += "".join(disc(x, y, 5, CREAM, 0.75) for x, y in
                 ((64, 240), (90, 258), (127, 264), (164, 258), (190, 240)))
    b += shape("M84,206 C94,180 110,170 128,170 C120,184 104,200 96,216Z", CREAM, 0.45)
    b += box(34, 284, 186, 18, BRONZE, 9) + box(34, 284, 186, 7, GOLD, 4)
    b += line("M88,162 C88,102 168,102 168,162", BARK, 9) + disc(128, 152, 10, BRONZE)
    steam = line("M112,92 q-12,-14 0,-28 q10,-12 0,-26", CREAM, 5, 0.4) + \
        line("M146,90 q-12,-14 0,-28 q10,-12 0,-26", CREAM, 5, 0.4)
    rock = shape("M10,345 Q40,312 84,322 T190,318 T264,345 V405H10Z", "#2B2440")
    return lamp_sky(130, 230) + rock + steam + b


def tower(x, y, s=1.0, lit=True, body=CREAM, stripe=RED, roof=RUST):
    b = shape("M-24,0 L-16,-110 H16 L24,0Z", body)
    b += shape("M-22,-26 L-20.5,-50 H20.5 L22,-26Z", stripe) + \
        shape("M-18.6,-74 L-17,-96 H17 L18.6,-74Z", stripe)
    b += box(-22, -118, 44, 9, INK, 3) + box(-14, -142, 28, 26, AMBER if lit else SLATE, 2)
    b += line("M-5,-142V-117M5,-142V-117", INK, 2) + shape("M-20,-141 L0,-166 L20,-141Z", roof)
    b += disc(0, -169, 4, roof) + box(-6, -16, 12, 16, BARK, 5)
    return put(b, x, y, s)


def bright_beam():
    b = shape("M78,152 L290,54 L290,300 L78,166Z", AMBER, 0.28)
    b += shape("M78,154 L290,98 L290,250 L78,164Z", CREAM, 0.45)
    b += shape("M78,157 L290,140 L290,200 L78,161Z", WHITE, 0.8)
    b += glow(78, 159, 74, AMBER, 4, 0.2) + tower(78, 330, 1.3)
    b += shape("M8,345 Q40,312 80,320 T160,345 V405H8Z", "#2B2440")
    fin = shape("M170,342 C176,296 206,280 226,290 C214,302 216,322 228,342Z", INK) + \
        disc(206, 306, 5, CREAM) + disc(208, 306, 2.5, RUST)
    return lamp_sky(78, 150) + b + fin + waves(346, "#1A2644", 26, 7, 10) + waves(372, "#131D36", 30)


def handful_of_sparks():
    hand = shape("M60,300 C56,262 70,250 92,252 L184,252 C206,250 216,262 212,300 C208,332 180,352"
                 " 136,352 C92,352 64,332 60,300Z", "#C98A5E")
    hand += shape("M76,300 C78,276 92,268 136,268 C180,268 194,276 196,300 C178,286 96,286 76,300Z",
                  "#8F5638")
    hand += "".join(oval(x, y, 12, r, "#D89A6C", t) for x, y, r, t in
                    ((56, 268, 38, -34), (90, 244, 42, -14), (120, 236, 46, -4), (152, 238, 44, 6),
                     (182, 248, 38, 18)))
    hand += shape("M92,340 H180 L192,405 H80Z", PLUM) + box(84, 338, 104, 16, VIOLET, 6)
    sparks = "".join(glow(x, y, r * 2, AMBER, 3, 0.16) + star(x, y, r, c, 4, 0.3, t) + disc(x, y, r * .26, WHITE)
                     for x, y, r, c, t in ((136, 190, 46, AMBER, 0), (78, 150, 26, ORANGE, 20),
                                           (198, 154, 28, ORANGE, -15), (104, 92, 20, AMBER, 10),
                                           (172, 78, 24, AMBER, -8), (138, 40, 13, ORANGE, 0)))
    return lamp_sky(136, 190) + sparks + hand


def great_lens():
    b = shape("M78,330 L100,300 H170 L192,330Z", BRONZE) + box(66, 328, 138, 18, BRASS, 5)
    b += shape("M70,190 C70,90 110,62 135,62 C160,62 200,90 200,190 C200,270 166,306 135,306"
               " C104,306 70,270 70,190Z", BRASS)
    b += shape("M82,190 C82,102 114,76 135,76 C156,76 188,102 188,190 C188,260 160,292 135,292"
               " C110,292 82,260 82,190Z", "#3C6C86")
    for i, c in enumerate(("#5E97AE", "#8CC3CC", "#C6E9E0", CREAM)):
        r = 46 - 12 * i
        b += oval(135, 186, r, r * 1.9, c)
    b += line("M82,150 Q135,138 188,150 M78,190 H192 M82,232 Q135,244 188,232", BRASS, 4)
    b += line("M112,78 Q92,186 112,292 M158,78 Q178,186 158,292", BRASS, 3)
    b += disc(135, 186, 15, WHITE) + shape("M108,100 Q90,150 94,196 Q104,140 122,96Z", WHITE, 0.5)
    b += disc(135, 54, 10, BRASS)
    return lamp_sky(135, 186) + glow(135, 186, 150, AMBER, 4, 0.08) + b


def puddle_otter():
    fur, belly = "#8A6748", "#E7CFA6"
    b = line("M176,330 C226,350 246,300 228,270", fur, 20)
    b += shape("M82,350 C70,270 84,210 134,208 C186,210 198,272 188,350Z", fur)
    b += shape("M102,350 C96,286 106,246 135,246 C164,246 174,286 168,350Z", belly)
    b += disc(96, 142, 14, fur) + disc(174, 142, 14, fur) + disc(96, 143, 7, ROSE) + disc(174, 143, 7, ROSE)
    b += oval(135, 172, 54, 48, fur) + oval(135, 192, 33, 25, belly)
    b += oval(135, 180, 11, 8, INK) + eye(112, 164, 7) + eye(158, 164, 7)
    b += line("M135,188 V198 M135,198 q-9,8 -16,0 M135,198 q9,8 16,0", BARK, 3)
    b += line("M104,192 L74,186 M104,198 L76,202 M166,192 L196,186 M166,198 L194,202", CREAM, 2, .7)
    card = box(-22, -31, 44, 62, CREAM, 5) + box(-17, -26, 34, 52, LAGOON, 3) + star(0, 0, 14, AMBER)
    b += put(card, 135, 278, 1, -8)
    b += oval(100, 280, 22, 12, fur, 22) + oval(170, 280, 22, 12, fur, -22)
    b += "".join(shape(f"M{x},{y}c8,10 6,16 0,16s-8,-6 0,-16z", TEAL) for x, y in
                 ((64, 230), (206, 214), (52, 270), (216, 256)))
    rings = "".join(oval(135, 346, rx, ry, c, 0, a) for rx, ry, c, a in
                    ((126, 30, LAGOON, 1), (100, 22, TEAL, .8), (78, 16, LAGOON, 1)))
    return tide_night() + rings + b + oval(135, 350, 62, 10, LAGOON)


def bell_jelly():
    b = ""
    for x, s, c in ((86, 14, LAGOON), (110, -12, TEAL), (135, 14, LAGOON), (160, -14, TEAL), (184, 12, LAGOON)):
        b += line(f"M{x},222 q{s},26 0,50 q{-s},26 0,50 q{s},22 0,40", c, 7, 0.9)
    b += disc(135, 244, 15, GOLD) + box(131, 214, 8, 24, BRONZE)
    b += shape("M56,228 C78,214 72,160 84,126 C94,96 116,84 135,84 C154,84 176,96 186,126"
               " C198,160 192,214 214,228 Q135,250 56,228Z", TEAL)
    b += shape("M76,218 C92,200 88,156 98,130 C104,112 118,102 130,100 C112,128 112,190 104,226Z",
               "#D9FFF7", 0.6)
    b += shape("M56,228 Q135,250 214,228 Q210,220 204,214 Q135,234 66,214 Q60,220 56,228Z", PINE)
    b += eye(118, 172, 7) + eye(152, 172, 7) + line("M126,190 q9,8 18,0", PINE, 4)
    b += disc(135, 78, 10, LAGOON) + line("M135,70 V52", LAGOON, 5)
    return tide_deep() + glow(135, 170, 130, TEAL, 4, 0.09) + b


def attic_whale():
    house = shape("M18,405 V306 L92,224 L166,306 V405Z", "#132433") + \
        shape("M4,318 L92,214 L180,318 L166,328 L92,240 L18,328Z", RUST) + \
        box(74, 282, 36, 36, AMBER, 3) + line("M92,282V318M74,300H110", BARK, 4) + glow(92, 300, 52, AMBER, 3, .12)
    w = shape("M34,176 C34,106 98,84 150,96 C196,106 216,140 222,158 C236,150 240,128 236,110"
              " C252,114 262,128 260,144 C272,142 280,150 280,160 C258,164 244,176 230,196"
              " C206,236 150,252 104,240 C62,230 34,212 34,176Z", LAGOON)
    w += shape("M40,194 C70,214 130,214 176,190 C190,182 204,172 214,162 C226,184 180,250 104,240"
               " C70,232 46,216 40,194Z", "#BDEBE4")
    w += "".join(line(f"M{60 + i * 20},{212 + (i % 3) * 2} q10,14 26,18", PINE, 2.5, .6) for i in range(5))
    w += shape("M120,214 C128,250 150,262 168,258 C166,240 152,220 146,210Z", PINE)
    w += eye(72, 168, 7, -1) + line("M58,158 q10,-10 22,-6", PINE, 3.5) + line("M40,190 q24,14 46,6", PINE, 4)
    w += line("M118,92 C118,64 92,66 92,48 M118,92 C118,62 146,66 146,46", "#CDEFE9", 6, .9)
    return tide_night() + put(w, 0, 8, 0.97) + house + waves(376, "#0B3444", 30, 8, 10)


def high_water():
    b = shape("M-10,405 V230 C10,120 90,60 166,76 C224,90 240,146 210,172 C190,188 164,176 166,156"
              " C146,156 128,186 140,224 C156,270 220,286 290,282 V405Z", LAGOON)
    b += shape("M-10,405 V280 C14,170 70,116 120,116 C96,160 92,220 122,262 C160,310 220,312 290,306"
               " V405Z", PINE)
    b += line("M22,262 C34,186 70,136 112,128 M40,330 C36,250 58,190 92,160", TEAL, 6, .8)
    b += "".join(disc(x, y, r, "#D9FFF7") for x, y, r in
                 ((166, 78, 13), (188, 84, 15), (208, 98, 15), (220, 118, 14), (222, 140, 13),
                  (214, 158, 11), (200, 172, 10), (142, 76, 9), (184, 176, 8), (238, 100, 5),
                  (246, 128, 4), (230, 176, 4)))
    roof = box(196, 296, 52, 40, CREAM) + shape("M186,300 L222,262 L258,300Z", RUST) + \
        box(214, 306, 16, 16, AMBER, 2) + box(236, 262, 10, 24, BARK)
    return tide_night() + b + roof + waves(328, "#0F4558", 24, 9, 8) + waves(356, "#0B3444", 28, 9)


def mirror_pool():
    frame = oval(135, 208, 112, 150, BRASS) + oval(135, 208, 102, 140, ABYSS)
    clip = '<clipPath id="pool"><ellipse cx="135" cy="208" rx="102" ry="140"/></clipPath>'
    top = box(0, 0, W, 210, "#1B4A63") + disc(82, 128, 15, "#CDEFE9", .9) + \
        put(mouse(), 26, 14, 0.62)
    low = box(0, 210, W, 200, PINE) + \
        put(mouse(TEAL, LAGOON, "#D9FFF7"), 26, 404, 0.62, 0, 1, -1) + \
        disc(82, 290, 15, "#CDEFE9", .4) + \
        "".join(line(f"M{x},{y} h{w}", "#D9FFF7", 3, .5) for x, y, w in
                ((50, 226, 60), (150, 236, 64), (74, 268, 30), (180, 280, 26), (96, 316, 70)))
    pool = f'{clip}<g clip-path="url(#pool)">{top}{low}{box(30, 206, 210, 6, "#D9FFF7", 3)}</g>'
    knobs = "".join(disc(135 + 112 * math.cos(a), 208 + 150 * math.sin(a), 9, GOLD)
                    for a in (i * math.pi / 4 for i in range(8)))
    return tide_deep() + frame + pool + knobs


def kite_gull():
    b = line("M120,282 C110,330 60,330 40,400", CREAM, 2.5)
    b += line("M120,282 C124,316 150,322 156,350 S140,380 150,398", LILAC, 4)
    b += "".join(put(shape("M0,0 L-15,-8 V8Z M0,0 L15,-8 V8Z", c), x, y, 1, t) for x, y, t, c in
                 ((126, 302, 30, RED), (152, 336, 50, AMBER), (148, 372, 10, RED)))
    wing = shape("M150,170 C186,100 236,92 262,110 C246,116 250,126 240,134 C240,144 226,150 218,154"
                 " C214,170 180,188 152,196Z", WHITE)
    wing += shape("M262,110 C246,116 250,126 240,134 C250,140 264,124 262,110Z", SLATE)
    b += put(wing, 0, 0) + put(wing, 246, -6, 1, 0, -1)
    b += shape("M128,118 L170,190 L120,286 L80,190Z", VIOLET)
    b += shape("M128,118 L170,190 L124,190Z", LILAC) + shape("M80,190 H124 L120,286Z", PLUM)
    b += line("M128,118 L120,286 M80,190 H170", CREAM, 3)
    b += disc(128, 108, 27, WHITE) + eye(138, 102, 5.5) + shape("M150,106 L182,114 L150,122Z", ORANGE)
    return wind_sky() + b


def weathercock():
    b = line("M135,405 V206", STONE, 10) + line("M66,312 H204", STONE, 6)
    b += disc(66, 312, 9, GOLD) + disc(204, 312, 9, GOLD) + disc(135, 312, 13, SLATE)
    b += line("M34,262 H226", BRASS, 9) + shape("M222,240 L256,262 L222,284Z", BRASS) + \
        shape("M48,262 L22,238 H48 L60,262 L48,286 H22Z", BRONZE)
    r = shape("M70,206 C36,180 24,130 44,92 C52,120 66,132 76,140 C66,112 72,88 90,74 C88,112 106,144"
              " 126,158 C150,166 164,150 166,120 C166,96 184,82 202,88 C216,94 222,110 216,124"
              " C214,186 184,244 128,246 C98,246 76,228 70,206Z", GOLD)
    r += shape("M70,206 C98,232 150,226 190,176 C176,226 156,246 128,246 C98,246 76,228 70,206Z", BRONZE)
    r += shape("M84,196 C100,176 132,176 150,190 C136,214 102,216 84,196Z", CREAM, .8)
    r += shape("M176,92 C168,70 180,62 188,74 C190,56 206,56 206,72 C218,62 226,76 214,92Z", RED)
    r += shape("M216,108 L242,114 L216,124Z", ORANGE) + shape("M206,126c10,6 10,22 2,24c-8,-2 -10,-16 -2,-24z", RED)
    r += eye(202, 104, 5)
    return wind_sky() + line("M110,246 V262 M146,240 V262", BRONZE, 6) + b + r


def letter_in_a_bottle():
    glass = shape("M-30,-60 C-30,-78 -14,-82 -14,-96 V-124 H14 V-96 C14,-82 30,-78 30,-60 V88"
                  " Q30,100 18,100 H-18 Q-30,100 -30,88Z", "#9FE0D4", .55)
    scroll = box(-19, -50, 38, 132, CREAM, 8) + box(-23, -56, 46, 12, "#E8D2A4", 6) + \
        box(-23, 76, 46, 12, "#E8D2A4", 6) + \
        "".join(line(f"M-12,{y} q4,-4 8,0 t8,0 t8,0", PLUM, 2.4, .8) for y in (-28, -14, 0, 28, 42)) + \
        heart(0, 16, .9, RED)
    shine = line("M-21,-50 V70", WHITE, 5, .8) + box(-17, -146, 34, 26, WOOD, 5) + box(-18, -126, 36, 8, "#CFF5EC", 3)
    bottle = put(scroll + glass + shine, 136, 196, 1.14, 24)
    return wind_sky() + glow(140, 190, 140, LILAC, 4, .08) + waves(300, "#3F5FA0", 24, 9) + bottle + \
        waves(322, "#34508C", 26, 10, 12) + waves(352, "#2A4278", 30, 10)


def pot_of_tea():
    b = "".join(line(f"M{x},{y} q-16,-18 0,-36 q14,-16 0,-34", CREAM, 6, .55) for x, y in
                ((104, 128), (164, 126)))
    b += heart(136, 66, 2.2, RED)
    b += line("M200,196 C252,186 250,268 194,270", RED, 14)
    b += shape("M76,216 C50,214 46,178 22,168 L14,182 C34,194 34,244 80,258Z", RED)
    b += shape("M66,226 C66,170 98,150 136,150 C174,150 206,170 206,226 C206,282 176,304 136,304"
               " C96,304 66,282 66,226Z", RED)
    b += shape("M66,226 C92,246 180,246 206,226 C206,282 176,304 136,304 C96,304 66,282 66,226Z", "#B8403E")
    b += "".join(disc(x, y, 9, CREAM) for x, y in ((92, 212), (122, 200), (152, 200), (182, 212)))
    b += oval(136, 152, 48, 13, "#B8403E") + oval(136, 148, 40, 9, ROSE) + disc(136, 134, 11, GOLD)
    b += box(92, 300, 88, 12, "#8F2E30", 5)
    b += shape("M186,316 h54 q-2,38 -27,38 q-25,0 -27,-38z", CREAM) + line("M238,322 q20,2 4,22", CREAM, 6) + \
        oval(213, 317, 27, 6, BRONZE)
    table = box(0, 350, W, 60, BARK) + box(0, 350, W, 10, WOOD)
    return wind_sky() + glow(136, 220, 150, AMBER, 4, .07) + table + b


def warm_bread():
    b = "".join(line(f"M{x},{y} q-14,-18 0,-36 q14,-18 0,-36", CREAM, 6, .6) for x, y in
                ((92, 150), (136, 136), (180, 150)))
    b += shape("M22,312 H248 L230,338 H40Z", WOOD) + box(14, 302, 242, 14, BARK, 6)
    b += shape("M38,302 C14,240 46,176 136,176 C226,176 258,240 234,302Z", "#D9914A")
    b += shape("M38,302 C28,278 28,254 38,234 C70,280 200,280 236,234 C244,256 244,280 234,302Z", "#B26A30")
    b += "".join(put(shape("M-8,-34 C8,-30 16,10 10,36 C-4,30 -14,-10 -8,-34Z", CREAM), x, y, 1, t)
                 for x, y, t in ((80, 228, 16), (136, 216, 6), (192, 226, -8)))
    b += "".join(oval(x, y, 3, 2, CREAM) for x, y in ((60, 262), (110, 268), (160, 270), (212, 258), (120, 250)))
    cloth = "".join(box(x, 338, 22, 67, RED if i % 2 else CREAM, 0, .85) for i, x in enumerate(range(36, 236, 22)))
    return wind_sky() + glow(136, 230, 160, ORANGE, 4, .09) + cloth + b


def contrary_wind():
    s = "".join(line(d, c, w) for d, c, w in (
        ("M-10,300 C60,330 200,320 226,238 S176,120 118,150 S96,244 148,240 S172,196 146,190", LILAC, 15),
        ("M-10,336 C90,376 262,350 270,226", VIOLET, 11),
        ("M-10,262 C40,284 90,276 112,264", VIOLET, 9),
        ("M20,110 C70,80 150,70 206,96 S252,140 236,150", VIOLET, 8)))
    crab = put(crab_body(), 76, 148, 0.42, -26)
    hat = put(shape("M-34,8 Q0,20 34,8 Q24,-2 18,-4 Q16,-30 0,-30 Q-16,-30 -18,-4 Q-24,-2 -34,8Z", AMBER) +
              shape("M-18,-4 Q0,4 18,-4 L18,-12 Q0,-4 -18,-12Z", RUST), 204, 66, 1, 24)
    leaf = "".join(put(shape("M0,-9Q9,0 0,9Q-9,0 0,-9Z", c), x, y, 1, t) for x, y, t, c in
                   ((196, 186, 40, AMBER), (60, 236, -30, TEAL), (226, 300, 70, AMBER), (110, 92, 10, TEAL)))
    return wind_sky() + s + hat + crab + leaf


def spark():
    return lamp_sky(135, 200) + glow(135, 204, 150, ORANGE, 5, .10) + \
        star(135, 206, 120, RUST, 8, .5, 10) + star(135, 206, 108, ORANGE, 8, .55) + disc(135, 206, 62, AMBER) + \
        disc(135, 208, 46, CREAM, .8) + eye(118, 200, 8) + eye(152, 200, 8) + \
        line("M122,224 q13,14 26,0", RUST, 5) + oval(104, 218, 8, 5, ROSE) + oval(166, 218, 8, 5, ROSE) + \
        "".join(star(x, y, r, AMBER) for x, y, r in ((44, 110, 14), (230, 120, 11), (226, 300, 13), (52, 296, 10)))


def crab_body(shell="#E0764C", dark="#A8482F"):
    half = line("M184,222 C214,214 226,190 220,168", dark, 13)
    half += shape("M206,172 C190,142 204,108 236,104 C228,120 232,128 242,136 C250,124 252,114 250,106"
                  " C270,124 268,164 238,176 C226,180 214,180 206,172Z", shell)
    for y, dy in ((250, 22), (264, 34), (276, 46)):
        half += line(f"M180,{y} q34,-6 46,{dy}", dark, 9)
    half += line("M152,204 L160,172", dark, 7) + disc(161, 166, 12, WHITE) + disc(159, 166, 6, INK)
    body = oval(135, 244, 74, 54, shell) + shape("M61,250 Q135,300 209,250 Q206,298 135,298 Q64,298 61,250Z", dark)
    body += "".join(disc(x, y, r, ROSE, .7) for x, y, r in ((100, 222, 9), (126, 212, 6), (170, 226, 8)))
    return mirror(half) + body + line("M116,262 q19,14 38,0", INK, 4)


def rock_crab():
    rock = shape("M0,345 Q30,298 90,306 T190,302 T270,336 V405H0Z", "#0A2B37") + \
        specks(PINE, ((40, 350, 8), (90, 338, 5), (200, 340, 7), (236, 366, 10)), .8)
    return tide_deep() + rock + put(crab_body(), 0, 14)


def squall_gull():
    bolt = shape("M196,20 L160,92 H184 L164,150 L222,72 H196 L220,20Z", AMBER)
    wing = shape("M150,196 C186,134 232,118 266,150 C250,152 252,164 240,168 C238,182 222,186 214,190"
                 " C206,212 178,228 152,226Z", SLATE)
    wing += shape("M158,204 C190,156 226,140 252,156 C226,160 196,190 160,214Z", STONE)
    body = oval(135, 234, 42, 58, STONE) + oval(135, 250, 30, 40, CREAM)
    body += shape("M112,282 L100,330 L126,300 L135,336 L146,300 L170,330 L158,282Z", SLATE)
    body += disc(135, 172, 38, STONE) + shape("M99,164 C104,122 166,122 171,164 Q135,148 99,164Z", INK)
    body += line("M104,160 L126,170 M166,160 L144,170", INK, 6) + disc(118, 176, 6, AMBER) + disc(152, 176, 6, AMBER)
    body += disc(118, 176, 3, INK) + disc(152, 176, 3, INK) + shape("M121,186 H149 L135,218Z", ORANGE)
    clouds = "".join(oval(x, y, rx, 26, "#1B1740") for x, y, rx in ((60, 44, 80), (160, 30, 90), (240, 56, 60)))
    return wind_sky() + bolt + clouds + mirror(wing) + body


def crab_pot():
    b = shape("M44,330 V218 C44,150 88,116 135,116 C182,116 226,150 226,218 V330Z", "#123440")
    b += disc(104, 250, 13, WHITE) + disc(106, 252, 6, INK) + disc(160, 250, 13, WHITE) + disc(158, 252, 6, INK)
    b += "".join(line(f"M{x},330 V{y}", "#C99C5E", 7) for x, y in
                 ((44, 218), (80, 142), (116, 118), (154, 118), (190, 142), (226, 218)))
    b += "".join(line(f"M{a},{y} H{270 - a}", "#A87B45", 7) for a, y in ((72, 160), (50, 206), (44, 284)))
    b += line("M44,330 V218 C44,150 88,116 135,116 C182,116 226,150 226,218 V330Z", "#C99C5E", 10)
    b += box(34, 322, 202, 18, BARK, 7) + line("M135,112 C120,70 160,50 140,6", CREAM, 5) + disc(135, 112, 10, BRONZE)
    claw = put(shape("M-20,20 C-40,-14 -22,-46 12,-46 C2,-32 6,-24 16,-16 C26,-28 26,-38 24,-46 C46,-24 40,16 10,26Z",
                     "#E0764C"), 214, 184, 1.0, 24) + line("M186,236 L204,206", "#A8482F", 11)
    return tide_deep() + b + claw


def bird(x, y, s=1.0, flip=1):
    return put(shape("M-22,6 C-22,-10 -4,-16 10,-10 C16,-16 28,-12 26,-4 L34,0 L25,3 C20,16 -10,20 -32,14Z", CREAM) +
               shape("M-14,4 C-6,-4 6,-4 12,2 C4,12 -10,12 -26,12Z", STONE) + disc(20, -6, 2.4, INK), x, y, s, 0, flip)


def gull_roost():
    b = shape("M70,405 L78,190 H192 L200,405Z", "#6A5AA8") + shape("M135,405 V190 H192 L200,405Z", "#54458F")
    b += shape("M62,192 L135,76 L208,192Z", PLUM) + shape("M135,76 L208,192 H135Z", "#483682")
    b += line("M135,76 V46", GOLD, 5) + disc(135, 44, 7, GOLD)
    b += shape("M102,300 V246 Q135,204 168,246 V300Z", DUSK) + \
        shape("M114,284 C120,276 116,246 135,242 C154,246 150,276 156,284Z", BRASS) + disc(135, 288, 6, BRONZE)
    b += box(64, 300, 142, 13, LILAC, 4) + box(70, 186, 130, 10, LILAC, 4)
    b += shape("M86,334h24v30h-24zM160,334h24v30h-24z", DUSK)
    b += bird(96, 282, 1.15) + bird(178, 282, 1.05, -1) + bird(86, 172, 1.1, -1) + bird(178, 172, 1.0) + \
        bird(214, 96, .9) + bird(48, 116, .8, -1)
    return wind_sky() + b + waves(378, "#2A4278", 28, 9)


def iron_buoy():
    b = shape("M-58,20 H58 L40,84 H-40Z", "#7A4A44") + box(-66, 4, 132, 20, RUST, 8)
    b += shape("M-34,4 L-16,-112 H16 L34,4Z", RED) + shape("M-27,-40 L-21,-78 H21 L27,-40Z", CREAM)
    b += line("M-34,4 L20,-78 M34,4 L-20,-78", "#8F2E30", 4) + box(-22, -122, 44, 12, INK, 4)
    b += box(-13, -148, 26, 28, LILAC, 4) + shape("M-19,-148 L0,-168 L19,-148Z", INK)
    b += disc(-14, -18, 8, WHITE) + disc(14, -18, 8, WHITE) + disc(-12, -16, 4, INK) + disc(16, -16, 4, INK)
    b += "".join(disc(x, y, 6, STONE) + disc(x, y, 2.5, INK) for x, y in ((-40, 40), (-24, 52), (36, 38), (22, 58)))
    return wind_sky() + waves(286, "#3F5FA0", 24, 9) + glow(156, 106, 76, LILAC, 4, .14) + \
        put(b, 132, 258, 1.12, 8) + waves(326, "#34508C", 26, 11, 12) + waves(354, "#2A4278", 30, 10)


def attic_light():
    beam = shape("M135,138 L-20,60 V190Z", AMBER, .35) + shape("M135,138 L290,60 V190Z", AMBER, .35)
    b = box(110, 104, 50, 62, INK, 5) + box(116, 112, 38, 48, CREAM, 4) + glow(135, 138, 64, AMBER, 4, .3)
    b += line("M135,112V160M116,136H154", BRONZE, 3) + shape("M98,106 L135,62 L172,106Z", RUST) + disc(135, 58, 6, GOLD)
    b += shape("M60,360 V262 L135,176 L210,262 V360Z", "#E9D6AE") + shape("M135,176 L210,262 V360 H135Z", "#CDB588")
    b += shape("M38,276 L135,158 L232,276 L214,288 L135,192 L56,288Z", RUST)
    b += box(98, 164, 74, 10, INK, 4)
    b += disc(135, 264, 27, BARK) + disc(135, 264, 22, AMBER) + line("M135,242V286M113,264H157", BARK, 4)
    b += box(84, 312, 24, 30, AMBER, 3) + box(162, 312, 24, 30, AMBER, 3) + line("M96,312V342M174,312V342", BARK, 3)
    b += box(186, 196, 18, 44, BARK) + box(182, 190, 26, 9, WOOD, 3)
    boat = put(shape("M-30,0 H30 L20,16 H-20Z", WOOD) + line("M0,0V-26", BARK, 3) + shape("M2,-26 L22,-6 H2Z", CREAM), 222, 350)
    return lamp_sky(135, 138) + beam + b + waves(344, "#24304E", 22, 8) + boat + waves(360, "#1A2644", 26, 8, 14) + \
        waves(382, "#131D36", 30, 8, 4)


def oona_ebb():
    b = shape("M20,405 C26,330 84,308 135,308 C186,308 244,330 250,405Z", GOLD)
    b += shape("M104,300 H166 L156,350 Q135,362 114,350Z", "#D89A6C")
    b += line("M135,352 V405", BRONZE, 5) + disc(135, 376, 5, BARK) + disc(135, 396, 5, BARK)
    b += shape("M70,236 C60,300 82,330 94,322 L100,230Z", SLATE) + shape("M200,236 C210,300 188,330 176,322 L170,230Z", SLATE)
    b += oval(135, 246, 58, 68, "#E3AB7C") + oval(100, 268, 13, 9, ROSE, 0, .8) + oval(170, 268, 13, 9, ROSE, 0, .8)
    b += eye(114, 240, 6) + eye(156, 240, 6) + line("M104,224 q10,-8 20,-2 M146,222 q10,-6 20,2", BARK, 4)
    b += shape("M135,244 q12,18 0,22 q-8,0 -8,-4", "#C98A5E") + line("M116,286 q19,14 38,2", RUST, 5)
    b += shape("M78,206 C76,140 104,112 135,112 C166,112 194,140 192,206Z", GOLD)
    b += shape("M44,224 C70,196 100,190 135,190 C170,190 200,196 226,224 C240,214 214,178 192,178 H78 C56,178 30,214 44,224Z", BRASS)
    b += shape("M78,190 Q135,168 192,190 V178 Q135,158 78,178Z", BRONZE)
    crab = put(crab_body(), 160, 246, .38)
    return tide_night() + b + crab


def tamsin_squall():
    b = shape("M26,405 C34,336 90,316 135,316 C180,316 236,336 244,405Z", PLUM)
    b += shape("M112,300 H160 L154,346 H116Z", "#B97F5F")
    b += shape("M188,180 C236,172 268,196 276,230 C250,216 232,226 214,250 C222,222 204,212 186,222Z", "#6B4A8C")
    b += shape("M186,226 C222,232 244,260 240,296 C222,272 204,276 184,282Z", "#6B4A8C")
    b += shape("M80,190 C66,252 78,296 92,306 L96,190Z", "#6B4A8C")
    b += oval(134, 244, 50, 66, "#C98F6C")
    b += line("M102,226 L124,232 M168,226 L146,232", "#2A1F3E", 5) + eye(114, 244, 5.5) + eye(156, 244, 5.5)
    b += shape("M136,242 l10,26 l-14,2z", "#A87052") + line("M116,288 q20,6 36,-6", "#7E2F3C", 5)
    b += shape("M88,312 C110,334 164,334 184,308 C206,318 250,312 272,330 C250,338 226,350 186,346 C150,364 100,356 84,334Z", RED)
    b += line("M196,326 q30,-4 56,6", "#B8403E", 4)
    b += shape("M92,190 L84,60 Q136,44 190,60 L178,190Z", DUSK) + shape("M90,160 L180,160 L178,190 H92Z", VIOLET)
    b += oval(135, 190, 84, 17, "#1E173F") + shape("M84,60 Q136,44 190,60 Q136,76 84,60Z", PLUM)
    b += shape("M170,172 C196,140 206,106 198,72 C178,100 164,130 160,168Z", WHITE) + line("M166,170 C182,140 192,110 197,78", STONE, 3)
    return wind_sky() + b


def starter_chest():
    b = shape("M60,232 L26,60 H244 L210,232Z", AMBER, .3) + shape("M90,232 L74,90 H196 L180,232Z", CREAM, .4)
    b += shape("M36,180 C36,120 60,104 88,100 H182 C210,104 234,120 234,180 L214,196 H56Z", BARK)
    b += shape("M56,196 C58,150 76,130 96,128 H174 C194,130 212,150 214,196Z", INK)
    cards = "".join(put(box(-24, -36, 48, 72, c, 5) + box(-18, -30, 36, 60, d, 3) + star(0, 0, 13, CREAM), x, y, 1, t)
                    for x, y, t, c, d in ((92, 214, -22, CREAM, RUST), (180, 214, 22, CREAM, PLUM), (135, 196, 0, CREAM, PINE)))
    b += cards + box(34, 236, 202, 104, WOOD, 6) + box(34, 236, 202, 18, BARK, 5)
    b += "".join(box(x, 236, 20, 104, BRASS, 3) for x in (52, 198)) + box(34, 322, 202, 18, BARK, 5)
    b += disc(135, 266, 21, BRASS) + disc(135, 262, 6, INK) + shape("M132,262h6l3,18h-12z", INK)
    b += "".join(star(x, y, r, AMBER) for x, y, r in ((76, 96, 11), (194, 84, 14), (135, 64, 9), (110, 130, 7), (166, 128, 8)))
    return lamp_sky(135, 180) + b


def wick_shop():
    b = box(62, 178, 146, 132, "#7B5138") + box(76, 212, 70, 62, INK, 4) + box(80, 216, 62, 54, AMBER, 3)
    b += "".join(box(x, 238, 8, 30, CREAM, 2) + flame(x + 4, 235, .3) for x in (90, 107, 124)) + box(76, 266, 70, 9, WOOD)
    b += box(160, 218, 36, 92, BARK, 4) + disc(189, 266, 3.5, GOLD)
    b += shape("M52,184 L72,138 H198 L218,184Z", RED)
    b += "".join(shape(f"M{72 + i * 18},138 h9 l{-2.2 + i * .9},46 h-11z", CREAM) for i in range(7))
    b += "".join(disc(63 + i * 20.6, 186, 10.3, RED if i % 2 else CREAM) for i in range(8))
    b += box(120, 84, 30, 10, INK, 3) + line("M135,84V60", INK, 4) + box(122, 94, 26, 36, AMBER, 4) + \
        line("M135,94V130", BRONZE, 3) + box(120, 128, 30, 9, INK, 3) + glow(135, 112, 66, AMBER, 4, .18)
    b += shape("M22,308 H248 C240,344 222,362 198,362 H72 C48,362 30,344 22,308Z", WOOD) + box(16, 300, 238, 14, BARK, 6)
    b += line("M44,334 H226", BARK, 4, .7)
    return lamp_sky(135, 112) + waves(330, "#24304E", 22, 8) + b + waves(352, "#1A2644", 26, 9, 14) + \
        waves(378, "#131D36", 30, 8, 4)


CARDS = {
    "lamp": [wick_mouse, lamp_moth, brass_tortoise, bright_beam, handful_of_sparks, great_lens, spark],
    "tide": [puddle_otter, bell_jelly, attic_whale, high_water, mirror_pool, rock_crab, crab_pot, oona_ebb],
    "wind": [kite_gull, weathercock, letter_in_a_bottle, pot_of_tea, warm_bread, contrary_wind,
             squall_gull, gull_roost, iron_buoy, tamsin_squall],
    "home": [attic_light, starter_chest, wick_shop],
}


def svg(width, height, view, body):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}"'
            f' viewBox="{view}">{body}</svg>')


def framed(scene, color, view, width, height, border):
    """The scene inside a frame of the card's colour; view is the part of the scene that shows."""
    x, y, w, h = view
    k = w / width
    b = border * k
    clip = f'<clipPath id="card"><rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{3 * b}"/></clipPath>'
    rim = (f'<rect x="{x + b / 2}" y="{y + b / 2}" width="{w - b}" height="{h - b}" rx="{2.6 * b}"'
           f'{paint(None, color, b)}/>'
           f'<rect x="{x + 1.4 * b}" y="{y + 1.4 * b}" width="{w - 2.8 * b}" height="{h - 2.8 * b}"'
           f' rx="{1.9 * b}"{paint(None, INK, b * 0.8, 0.75)}/>')
    return svg(width, height, f"{x} {y} {w} {h}",
               f'<rect x="{x}" y="{y}" width="{w}" height="{h}" fill="#000"/>{clip}'
               f'<g clip-path="url(#card)">{scene}{rim}</g>')


# ---- badges and icons (24 x 24 and 32 x 32) -----------------------------------------------------

def seal(body, color):
    return svg(24, 24, "0 0 48 48", disc(24, 24, 23, color) + disc(24, 24, 19.5, INK) + body)


BADGES = {
    "badge-strike": seal(star(24, 24, 17, AMBER, 6, .42) + disc(24, 24, 6, RUST), AMBER),
    "badge-darting": seal(line("M13,13 L23,24 L13,35 M25,13 L35,24 L25,35", AMBER, 6), ORANGE),
    "badge-drift": seal(shape("M8,30 C14,14 24,10 40,12 C36,16 36,20 32,22 C32,26 26,28 22,29 C20,33 14,34 8,30Z", WHITE), LILAC),
    "badge-sting": seal(line("M15,12 q8,6 0,12 q-8,6 0,12 M33,12 q8,6 0,12 q-8,6 0,12", LILAC, 4.5) +
                        shape("M24,9 L28,36 L24,41 L20,36Z", ROSE), "#D98AD0"),
    "badge-breakwater": seal("".join(box(x, y, w, 8, STONE, 2) for x, y, w in
                                     ((10, 14, 13), (25, 14, 13), (14, 24, 20), (8, 24, 4), (36, 24, 4), (11, 34, 12), (25, 34, 12))), STONE),
    "badge-shell": seal(shape("M10,34 C6,18 16,8 26,10 C38,12 42,24 36,36Z", "#D8C8B0") +
                        line("M30,34 C36,24 26,16 20,22 S24,34 27,28", BARK, 3.5), "#D8C8B0"),
    "badge-glow": seal("".join(put(box(-2, -18, 4, 8, AMBER, 2), 24, 24, 1, a) for a in range(0, 360, 45)) +
                       disc(24, 24, 9, CREAM), "#FFF0A0"),
    "badge-brine": seal(shape("M24,8 C34,22 37,27 34,34 C30,42 18,42 14,34 C11,27 14,22 24,8Z", TEAL) +
                        line("M19,30 q1,6 6,7", WHITE, 3), LAGOON),
}

ICONS = {
    "magiccost": shape("M16,1 C26,14 29,18 27,24 C24,33 8,33 5,24 C3,18 6,14 16,1Z", "#3E7FA8") +
                 shape("M16,10 C22,17 23,20 22,24 C20,29 12,29 10,24 C9,20 10,17 16,10Z", AMBER) +
                 shape("M16,17 C19,20 19,22 18.4,24 C17.6,26 14.4,26 13.6,24 C13,22 14,20 16,17Z", WHITE),
    "monstercost": shape("M4,20 C2,10 10,4 18,5 C28,6 31,14 28,21 C27,28 20,29 15,27 C10,29 5,26 4,20Z", "#D9914A") +
                   shape("M8,18 C8,11 13,8 18,9 C24,10 26,14 24,18 C20,13 13,13 8,18Z", CREAM, .8) +
                   disc(13, 21, 1.8, BARK) + disc(19, 22, 1.8, BARK) + disc(29, 28, 2.2, "#D9914A") + disc(3, 28, 1.8, "#D9914A"),
    "heartcost": heart(16, 17, 1.3, RED) + oval(9.5, 10, 3, 2, ROSE, -30),
}


def banner():
    b = f'<rect width="600" height="120" fill="#151A34"/>'
    b += "".join(disc(x, y, r, CREAM, .7) for x, y, r in
                 ((40, 22, 1.4), (92, 48, 1), (150, 18, 1.5), (210, 40, 1), (268, 16, 1.3), (330, 34, 1),
                  (392, 18, 1.5), (452, 44, 1), (508, 20, 1.4), (560, 46, 1.1), (300, 62, 1)))
    b += disc(300, 44, 20, CREAM, .95) + disc(308, 39, 18, "#151A34")
    b += shape("M72,42 L300,-14 V98Z", AMBER, .22) + shape("M72,42 L300,14 V70Z", CREAM, .22)
    b += shape("M528,42 L300,-14 V98Z", VIOLET, .28) + shape("M528,42 L300,14 V70Z", LILAC, .2)
    b += glow(72, 42, 46, AMBER, 4, .2) + glow(528, 42, 46, LILAC, 4, .2)
    b += tower(72, 112, .62) + tower(528, 112, .62, True, "#DCD0F5", PLUM, DUSK)
    roofs = "".join(shape(f"M{x},{y} l{w},{-h} l{w},{h}z", c) + box(x + 5, y, 2 * w - 10, 30, "#E9D6AE") +
                    box(x + w - 4, y + 4, 8, 8, AMBER, 1) for x, y, w, h, c in
                    ((150, 94, 22, 20, RUST), (222, 100, 18, 15, "#A8482F"), (352, 98, 20, 17, PLUM), (420, 92, 24, 22, "#483682")))
    b += roofs
    for y, c, s in ((102, "#24406A", 0), (109, "#1B3158", 12), (116, "#142446", 5)):
        d = f"M{-40 + s},{y}" + "".join(" q9,-6 18,0 q9,6 18,0" for _ in range(19))
        b += shape(d + " V130H-50Z", c)
    b += put(shape("M-24,0 H24 L16,13 H-16Z", WOOD) + line("M0,0V-32", BARK, 3) + shape("M2,-32 L24,-6 H2Z", CREAM) +
             shape("M-2,-28 L-16,-6 H-2Z", AMBER), 296, 100)
    b += bird(250, 40, .7) + bird(364, 52, .6, -1) + bird(410, 30, .5)
    return svg(600, 120, "0 0 600 120", b)


def player_thumb(roof, sky, light, stripe):
    b = box(0, 0, 65, 100, sky) + glow(32, 34, 34, light, 4, .16) + tower(32, 94, .5, True, CREAM, stripe, roof) + \
        shape("M-5,90 q8,-6 16,0 t16,0 t16,0 t16,0 t16,0 V105H-5Z", INK) + box(1, 1, 63, 98, None, 4, None, light, 2)
    return svg(65, 100, "0 0 65 100", b)


# ---- writing ------------------------------------------------------------------------------------

def card_back():
    """What shows around the picture of a composed card: planks of a hull, brass in the corners."""
    width, height, plank = 300, 450, 30
    body = box(0, 0, width, height, NIGHT)
    for row in range(height // plank):
        y = row * plank
        body += box(0, y, width, plank - 2, DUSK if row % 2 else "#1B2A4A")
        for x in (9, width - 9):
            body += disc(x, y + plank / 2 - 1, 2.2, BRONZE)
    body += box(3, 3, width - 6, height - 6, None, r=10, stroke=BRASS, width=3)
    for x in (15, width - 15):
        for y in (15, height - 15):
            body += star(x, y, 11, BRASS, points=8, inner=0.45)
    return svg(width, height, f"0 0 {width} {height}", body)


def write(name, text, quality=None):
    target = os.path.join(HERE, name)
    with tempfile.TemporaryDirectory() as work:
        source, png = os.path.join(work, "a.svg"), os.path.join(work, "a.png")
        with open(source, "w", encoding="utf-8") as f:
            f.write(text)
        subprocess.run(["rsvg-convert", "-o", png, source], check=True)
        if name.endswith(".png"):
            options = ["-strip", "-define", "png:exclude-chunks=date,time"]
        elif name.endswith(".bmp"):
            options = ["-background", "black", "-flatten"]
            options += (["+dither", "-colors", "16", "-type", "Palette"] if name.startswith("backs-")
                        else ["-type", "TrueColor"])
        else:
            options = ["-background", "black", "-flatten", "-strip", "-quality", str(quality)]
            options += ["-sampling-factor", "1x1"]
        kind = "BMP3:" if name.endswith(".bmp") else ""
        subprocess.run(["convert", png, *options, kind + target], check=True)


def main():
    wanted = sys.argv[1] if len(sys.argv) > 1 else ""
    jobs = []
    for house, subjects in CARDS.items():
        for subject in subjects:
            name, scene = subject.__name__.replace("_", "-"), subject()
            jobs.append((name + ".jpg", framed(scene, HOUSE[house], (0, 0, W, H), W, H, 6), 88))
            jobs.append((name + "-mini.jpg",
                         framed(scene, HOUSE[house], (15, 22, 240, 362), 65, 98, 2.2), 90))
    jobs += [(name + ".png", text, None) for name, text in BADGES.items()]
    jobs += [(name + ".jpg", svg(32, 32, "0 0 32 32", body), 92) for name, body in ICONS.items()]
    jobs.append(("wickwater-banner.jpg", banner(), 88))
    jobs.append(("Player1thumb.bmp", player_thumb(RUST, "#1B1B36", AMBER, RED), None))
    jobs.append(("Player2thumb.bmp", player_thumb(DUSK, "#231D4B", LILAC, PLUM), None))
    jobs.append(("backs-generic.bmp", card_back(), None))
    for name, text, quality in jobs:
        if wanted in name:
            write(name, text, quality)


if __name__ == "__main__":
    main()
