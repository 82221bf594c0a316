"""Creatures and keepers of LAMP: amber, the warm ones."""
from .shapes import *
from .scene import Scene

COPPER, DARK_COPPER = "#D9824A", "#A4562B"


def mouse(fur="#C99468", dark="#96653F", inner=ROSE, candle=True):
    b = line("M78,286 C30,300 26,240 56,236 S70,262 56,262", dark, 8)
    b += oval(128, 258, 62, 56, fur) + oval(140, 274, 40, 36, CREAM)
    b += disc(136, 166, 29, dark) + disc(136, 167, 18, inner)
    b += disc(192, 172, 25, fur) + disc(192, 173, 16, inner)
    b += oval(166, 208, 46, 38, fur) + oval(204, 220, 16, 12, fur)
    b += disc(217, 217, 7, "#5A2D2D") + eye(176, 202, 7)
    b += line("M200,226 L226,234 M200,230 L220,244", CREAM, 2, 0.8)
    b += oval(100, 312, 26, 11, dark) + oval(158, 312, 26, 11, dark)
    if candle:
        b += box(196, 240, 22, 66, CREAM, 4) + shape("M196,246q5,14 8,2q4,10 14,0v-6h-22z", WHITE)
        b += flame(207, 230, 1.4)
    return b + oval(190, 266, 18, 10, fur, -16) + oval(184, 284, 18, 10, dark, -10)


def wick_mouse():
    sill = box(-120, 320, 510, 26, WOOD) + box(-120, 320, 510, 9, "#B98552") + box(-120, 346, 510, 200, BARK)
    return Scene(mouse(), glow(207, 222, 110, AMBER, 4, .16) + sill, focus=(134, 226, 270))


def lamp_moth():
    wing = shape("M135,196 C150,110 226,84 246,120 C262,160 214,212 140,214Z", AMBER)
    wing += shape("M138,196 C156,132 214,108 230,128 C238,160 196,194 142,204Z", CREAM)
    wing += disc(204, 146, 20, RUST) + disc(204, 146, 10, AMBER)
    wing += shape("M138,212 C200,212 232,250 214,282 C190,304 146,268 137,226Z", GOLD)
    wing += shape("M140,218 C186,222 212,250 202,270 C184,284 152,256 140,228Z", ORANGE)
    wing += disc(186, 250, 12, CREAM) + line("M140,166 C150,128 170,112 188,98", BARK, 5) + \
        disc(189, 97, 6, GOLD)
    body = oval(135, 226, 18, 58, BARK) + "".join(oval(135, y, 18, 5, AMBER) for y in (224, 242, 260))
    body += disc(135, 178, 24, WOOD) + oval(135, 198, 23, 13, CREAM) + eye(126, 174, 6) + eye(144, 174, 6)
    return Scene(mirror(wing) + body, glow(135, 196, 150, AMBER, 4, .12), focus=(135, 196, 270))


def brass_tortoise():
    b = oval(84, 308, 24, 26, "#6E8B5A") + oval(176, 308, 24, 26, "#6E8B5A")
    b += oval(218, 258, 34, 27, "#97B67C") + oval(206, 278, 28, 20, "#97B67C") + eye(228, 250, 7)
    b += line("M230,270 q10,0 14,-6", "#51693F", 4) + line("M50,290 q-20,4 -26,16", "#6E8B5A", 10)
    b += shape("M40,292 C40,200 80,156 128,156 C178,156 214,204 214,292Z", BRASS)
    b += shape("M40,292 C40,260 46,234 56,214 C90,250 160,250 198,214 C208,236 214,262 214,292Z", BRONZE)
    b += "".join(disc(x, y, 6, CREAM) for x, y in ((64, 240), (90, 258), (127, 264), (164, 258), (190, 240)))
    b += shape("M84,206 C94,180 110,170 128,170 C120,184 104,200 96,216Z", CREAM)
    b += box(34, 284, 186, 18, BRONZE, 9) + box(34, 284, 186, 7, GOLD, 4)
    b += line("M88,162 C88,98 168,98 168,162", BARK, 11) + disc(128, 152, 12, BRONZE)
    steam = line("M112,90 q-14,-16 0,-32 q12,-14 0,-30 M150,88 q-14,-16 0,-32 q12,-14 0,-30", CREAM, 7, .6)
    return Scene(b, steam, shape("M-120,345 Q40,312 84,326 T190,322 T390,345 V540H-120Z", "#2A1530"),
        focus=(134, 226, 270))


def matchbox_beetle():
    b = "".join(taper(((x, 262), (x - 22, 300), (x - 14, 338)), 13, 9, INK) for x in (84, 126, 168))
    b += put(box(-88, -58, 176, 110, "#D9442E", 6) + box(-88, -58, 176, 24, "#F1D9A6", 4) +
        box(-88, 28, 176, 24, "#5B3A36", 4) +
             oval(0, -4, 50, 24, CREAM) + flame(0, 2, .72), 122, 218, 1, -4)
    b += blob(((196, 180), (232, 178), (254, 208), (250, 246), (222, 264), (194, 254)), "#2C2440") + \
        big_eye(232, 210, 13, 2, 0, AMBER) + \
        line("M228,180 q4,-26 24,-32 M244,188 q12,-20 30,-18", INK, 5) + smile(236, 238, 9, CREAM, 4)
    b += taper(((190, 172), (186, 130), (168, 104)), 12, 9, INK) + line("M176,112 L98,66", "#E6C48A", 10) + \
        disc(96, 65, 10, RUST) + flame(86, 46, 1.2)
    return Scene(b, glow(90, 56, 84, AMBER, 4, .2), roofs(372, "#2A1530", 3), focus=(138, 200, 300))


def soot_cat():
    chimney = box(30, 300, 210, 240, "#8E4A3C") + box(14, 286, 242, 28, "#B5654E", 5) + \
        "".join(box(x, y, 58, 24, "#A85844", 3)
        for x, y in ((40, 324), (106, 324), (172, 324), (62, 356), (130, 356), (40, 388), (106, 388),
            (172, 388)))
    moon = disc(135, 180, 122, "#FFD98A") + disc(135, 180, 142, "#FFD98A", .3)
    cat = "#17131F"
    b = taper(((190, 270), (244, 276), (258, 226), (238, 180), (252, 150)), 24, 14, cat)
    b += blob(((70, 288), (74, 220), (108, 176), (160, 176), (194, 222), (200, 288)), cat)
    b += oval(135, 150, 60, 50, cat) + poly(((78, 140), (80, 66), (124, 108)), cat) + \
        poly(((192, 140), (190, 66), (146, 108)), cat) + poly(((88, 112), (89, 84), (108, 104)), ROSE) + \
        poly(((182, 112), (181, 84), (162, 104)), ROSE)
    b += "".join(oval(x, 148, 17, 15, "#D9F06A") + oval(x, 148, 5, 14, INK) + disc(x + 4, 142, 3, WHITE)
        for x in (110, 160))
    b += oval(135, 172, 7, 5, ROSE) + \
        line("M100,172 L40,160 M100,180 L42,186 M170,172 L230,160 M170,180 L228,186", WHITE, 3.5)
    b += oval(108, 286, 20, 12, cat) + oval(160, 286, 20, 12, cat) + \
        line("M102,290v-7M112,290v-7M156,290v-7M166,290v-7", "#5A5068", 3)
    prints = "".join(oval(x, y, 8, 7, cat) + disc(x - 8, y - 9, 3.5, cat) + disc(x, y - 12, 3.5, cat) +
        disc(x + 8, y - 9, 3.5, cat) for x, y in ((70, 346), (190, 372), (96, 404)))
    return Scene(b, moon + chimney, prints, focus=(135, 196, 290))


def cog(x, y, r, fill, hole=INK, teeth=8):
    return "".join(put(box(-r * .2, -r * 1.25, r * .4, r * .5, fill, 2), x, y, 1, a)
        for a in range(0, 360, 360 // teeth)) + disc(x, y, r, fill) + disc(x, y, r * .36, hole)


def clockwork_heron():
    legs = line("M120,254 L106,320 L118,392", BRONZE, 9) + line("M152,254 L166,318 L150,392", BRONZE, 9) + \
        disc(106, 320, 9, BRASS) + disc(166, 318, 9, BRASS) + \
        line("M118,392 l-22,10 M118,392 l20,10 M150,392 l-20,10 M150,392 l22,10", BRONZE, 8)
    b = legs + blob(((50, 252), (70, 200), (120, 178), (176, 190), (206, 220), (180, 256), (130, 276),
            (80, 286), (20, 306)), BRASS)
    b += blob(((60, 256), (100, 222), (150, 220), (170, 240), (130, 262), (80, 278), (26, 300)), BRONZE) + \
        cog(134, 226, 28, GOLD) + cog(94, 252, 17, CREAM)
    b += taper(((186, 218), (222, 190), (200, 150), (178, 122), (190, 88)), 36, 20, BRASS) + \
        "".join(line(f"M{x},{y} l20,{d}", BRONZE, 4)
        for x, y, d in ((196, 178, -8), (184, 148, -10), (172, 118, 2)))
    b += oval(198, 80, 30, 23, BRASS) + shape("M220,68 L284,92 L218,96Z", ORANGE) + disc(204, 76, 11, WHITE) + \
        disc(206, 76, 6, INK) + line("M178,72 Q150,66 140,84", RUST, 8)
    b += line("M124,180 V150", BRONZE, 9) + disc(108, 138, 15, None, None, GOLD, 9) + \
        disc(140, 138, 15, None, None, GOLD, 9)
    return Scene(b, disc(134, 190, 128, "#FFE3B0", .9), waves(390, "#53304A", 26, 7), focus=(142, 222, 360))


def kettle_bear():
    steam = curve(((66, 84), (46, 60), (62, 34), (44, 4)), CREAM, 11, .8) + \
        curve(((204, 84), (224, 60), (208, 34), (226, 4)), CREAM, 11, .8)
    fur, dark = "#9A6848", "#6E4630"
    b = disc(76, 104, 28, fur) + disc(194, 104, 28, fur) + disc(76, 104, 15, dark) + disc(194, 104, 15, dark)
    b += oval(72, 376, 38, 28, dark) + oval(198, 376, 38, 28, dark)
    b += oval(135, 290, 108, 96, fur) + taper(((52, 240), (22, 276), (40, 316)), 42, 36, fur) + \
        taper(((218, 240), (248, 276), (230, 316)), 42, 36, fur)
    b += oval(135, 300, 74, 68, COPPER) + \
        shape("M66,320 Q135,360 204,320 Q190,366 135,368 Q80,366 66,320Z", DARK_COPPER) + \
        oval(135, 240, 34, 10, DARK_COPPER) + disc(135, 228, 11, BRASS)
    b += line("M92,276 Q84,300 92,320", CREAM, 8) + \
        shape("M196,286 C226,282 222,252 246,244 L252,258 C236,272 236,306 204,314Z", COPPER)
    b += oval(135, 154, 76, 66, fur) + oval(135, 178, 38, 30, "#E0B98C") + oval(135, 166, 15, 11, INK) + \
        eye(102, 144, 9) + eye(168, 144, 9) + \
        line("M135,176v10 M135,188q-10,9 -18,0 M135,188q10,9 18,0", INK, 4)
    return Scene(b, steam, focus=(135, 226, 320))


def tin_rooster():
    sun = "".join(shape(f"M135,330 L{on(135, 330, 400, a)} L{on(135, 330, 400, a + 9)}Z", AMBER, .5)
        for a in range(-180, 0, 20)) + disc(135, 330, 96, AMBER)
    b = "".join(taper(((86, 244), (x, y), (x2, y2)), 26, 16, c)
        for x, y, x2, y2, c in ((40, 226, 22, 268, "#2F8A8A"), (34, 190, 8, 216, "#E0B13A"),
            (44, 150, 16, 150, "#C9502E"), (66, 130, 46, 98, "#2F8A8A")))
    b += blob(((72, 250), (84, 206), (130, 214), (160, 176), (170, 122), (206, 110), (224, 140), (216, 200),
            (190, 260), (140, 288), (92, 280)), STEEL)
    b += blob(((92, 250), (120, 226), (160, 226), (172, 244), (140, 268), (104, 268)), "#2F8A8A") + \
        line("M112,250h46M118,238h40", CREAM, 4)
    b += shape("M170,116 C158,88 172,74 184,88 C186,66 204,66 206,84 C220,72 232,88 220,112Z", RED) + \
        shape("M216,116 L262,96 L236,128 L258,146 L214,146Z", AMBER) + \
        shape("M206,146 c16,8 14,34 0,36 c-12,-4 -14,-26 0,-36z", RED) + disc(196, 128, 10, WHITE) + \
        disc(198, 128, 5, INK)
    b += "".join(disc(x, y, 4, SLATE) for x, y in ((176, 172), (196, 190), (170, 200), (186, 220)))
    b += line("M124,284 V330 M158,278 V330", ORANGE, 9) + box(66, 324, 150, 22, "#C9502E", 6) + \
        "".join(disc(x, 354, 18, INK) + disc(x, 354, 7, AMBER) for x in (92, 190))
    b += line("M96,214 v-30", BRONZE, 7) + disc(88, 172, 11, None, None, GOLD, 7) + \
        disc(106, 172, 11, None, None, GOLD, 7)
    return Scene(b, sun, focus=(134, 220, 310))


def night_watchman():
    pole = line("M40,470 V60", BARK, 10) + shape("M40,30 L50,74 H30Z", STEEL) + \
        shape("M46,80 C84,70 88,128 60,150 L46,130Z", STEEL) + shape("M34,88 L10,100 L34,116Z", STEEL)
    b = pole + shape("M30,470 C30,320 76,232 135,232 C196,232 240,320 240,470Z", "#2E4A6B") + \
        shape("M106,470 L112,250 H160 L166,470Z", "#7E3B3B") + \
        "".join(disc(136, y, 6, AMBER) for y in (296, 330, 364, 398))
    b += oval(135, 198, 52, 52, SKIN) + \
        shape("M82,204 C88,276 182,276 188,204 C172,220 160,214 135,214 C110,214 98,220 82,204Z", "#D8D2C4") + \
        smile(135, 232, 13, RUST, 5) + disc(135, 204, 12, "#D98A66") + eye(112, 186, 7) + eye(158, 186, 7)
    b += shape("M60,160 Q135,128 210,160 L216,178 Q135,150 54,178Z", INK) + \
        shape("M82,152 C84,82 186,82 188,152 Q135,136 82,152Z", "#2E4A6B") + star(135, 122, 16, AMBER, 5, .45)
    b += disc(46, 286, 19, SKIN) + taper(((216, 300), (236, 320), (226, 340)), 30, 26, "#2E4A6B") + \
        disc(222, 330, 18, SKIN) + lantern(222, 334, 1.25)
    return Scene(b, glow(222, 372, 90, AMBER, 4, .2), focus=(135, 236, 330))


def last_lamplighter():
    pole = line("M226,420 L214,92", WOOD, 9) + flame(212, 70, 1.7)
    ghost = "#BFD6F2"
    b = pole + blob(((66, 190), (84, 134), (135, 116), (182, 138), (198, 200), (206, 300), (214, 372),
            (186, 350), (160, 384), (134, 352), (106, 388), (84, 352), (52, 374), (60, 290)), ghost)
    b += shape("M78,200 C70,270 66,320 66,354 C60,300 60,240 74,190Z", WHITE) + oval(112, 188, 11, 15, INK) + \
        oval(154, 188, 11, 15, INK) + oval(132, 222, 13, 9, "#5D7BA6") + oval(94, 214, 11, 7, ROSE, 0, .8) + \
        oval(174, 214, 11, 7, ROSE, 0, .8)
    b += shape("M72,140 Q135,118 198,140 L192,124 Q135,104 78,124Z", INK) + \
        shape("M92,124 L88,38 Q135,22 182,38 L178,124 Q135,106 92,124Z", "#2C2440") + \
        shape("M91,98 Q135,84 179,98 L178,116 Q135,100 92,116Z", AMBER)
    b += taper(((196, 250), (220, 258), (222, 236)), 30, 24, ghost) + \
        taper(((64, 256), (36, 276), (26, 256)), 28, 16, ghost)
    return Scene(b, glow(212, 66, 80, AMBER, 4, .2), roofs(404, "#2A1530", 5), focus=(136, 206, 350))


def old_flame():
    candle = shape("M66,320 H204 V470 H66Z", CREAM) + \
        shape("M56,312 H214 C222,340 206,350 206,376 Q204,400 194,376 C190,350 176,352 172,366 Q164,390"
                " 152,364 C140,346 116,350 110,384 Q102,410 92,380 C86,350 74,360 68,350 C52,346 50,326 56,312Z", WHITE) + \
        oval(135, 314, 78, 16, "#E6D2A8") + line("M135,318V290", INK, 9)
    b = candle + shape("M135,26 C150,78 226,128 220,214 C216,274 180,304 135,304 C90,304 54,274 50,214"
            " C46,160 88,140 98,96 C112,110 112,124 112,138 C134,112 140,66 135,26Z", ORANGE)
    b += shape("M136,96 C150,130 200,162 196,220 C192,266 168,290 135,290 C102,290 78,266 76,224 C76,186"
            " 104,176 114,150 C126,160 128,170 130,178 C142,152 142,122 136,96Z", AMBER) + \
                oval(135, 244, 48, 42, "#FFE9B0")
    b += lids(112, 222, 13, RUST, 6) + lids(158, 222, 13, RUST, 6) + smile(135, 254, 18, RUST, 6) + \
        oval(92, 246, 12, 8, ROSE) + oval(178, 246, 12, 8, ROSE)
    return Scene(b, glow(135, 200, 180, AMBER, 4, .12), focus=(135, 218, 350))


def spark():
    b = star(135, 206, 124, ORANGE, 8, .55) + star(135, 206, 92, AMBER, 8, .7, 22) + \
        disc(135, 208, 62, "#FFE9B0")
    b += eye(114, 200, 10) + eye(156, 200, 10) + line("M120,226 q15,16 30,0", RUST, 6) + \
        oval(98, 222, 9, 6, ROSE) + oval(172, 222, 9, 6, ROSE)
    return Scene(b, glow(135, 206, 180, ORANGE, 4, .14) +
        "".join(star(x, y, r, AMBER)
            for x, y, r in ((34, 70, 20), (236, 80, 16), (240, 350, 20), (40, 350, 16))), focus=(135, 206, 280))


def tilly_brass():
    cloth = put(blob(((-34, -20), (0, -30), (34, -18), (40, 16), (14, 34), (-10, 22), (-36, 32), (-44, 4)),
            WHITE) + line("M-20,-8 q20,10 40,-4 M-22,10 q20,8 36,0", STEEL, 4), 214, 352)
    b = shape("M30,470 C34,360 80,322 135,322 C190,322 236,360 240,470Z", "#6A3B66") + \
        shape("M92,330 L135,380 L178,330 L160,316 H110Z", CREAM) + disc(135, 352, 9, AMBER)
    b += disc(135, 96, 38, "#D9D6DE") + line("M112,88 q24,-18 46,2", STONE, 4) + \
        oval(135, 206, 96, 92, "#D9D6DE")
    b += oval(135, 228, 82, 84, "#F0C9A4") + \
        shape("M54,214 C58,150 96,140 135,140 C174,140 212,150 216,214 C190,180 160,170 135,170 C110,170"
                " 80,180 54,214Z", "#EDEAF0")
    b += "".join(disc(x, 222, 46, BRASS) + disc(x, 222, 36, "#FFF6C8") + disc(x, 224, 15, INK) +
        disc(x + 6, 217, 5, WHITE) +
        shape(f"M{x - 28},{212} A32,32 0 0 1 {x - 4},{192} A40,40 0 0 0 {x - 22},{222}Z", WHITE)
        for x in (88, 182)) + line("M130,218 q5,-8 10,0", BRASS, 9)
    b += oval(135, 262, 11, 9, "#D99A78") + smile(135, 282, 16, "#A24A3C", 5) + \
        oval(72, 276, 12, 8, ROSE, 0, .8) + oval(198, 276, 12, 8, ROSE, 0, .8)
    beams = shape("M88,222 L-120,60 L-120,300Z", "#FFE9A0", .4) + \
        shape("M182,222 L390,60 L390,300Z", "#FFE9A0", .4)
    return Scene(b + cloth + disc(232, 372, 18, "#F0C9A4"), beams, focus=(135, 222, 300))


ALL = {"lamp": [wick_mouse, lamp_moth, brass_tortoise, matchbox_beetle, soot_cat, clockwork_heron,
                kettle_bear, tin_rooster, night_watchman, last_lamplighter, old_flame, spark, tilly_brass]}
