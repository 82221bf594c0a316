"""Lights, fittings and lighthouses of WIND: lilac, the ones that come and go."""
from .tide_creatures import crab_body
from .shapes import *
from .scene import Scene, bands, full


def letter_in_a_bottle():
    glass = shape("M-30,-60 C-30,-78 -14,-82 -14,-96 V-124 H14 V-96 C14,-82 30,-78 30,-60 V88 Q30,100 18,100"
            " H-18 Q-30,100 -30,88Z", "#9FE0D4", .55)
    scroll = box(-19, -50, 38, 132, CREAM, 8) + box(-24, -58, 48, 14, "#E8D2A4", 6) + \
        box(-24, 74, 48, 14, "#E8D2A4", 6) + \
        "".join(line(f"M-12,{y} q4,-4 8,0 t8,0 t8,0", PLUM, 3) for y in (-28, -12, 34, 50)) + \
        heart(0, 12, 1.1, RED)
    base = shape("M-30,-60 C-30,-78 -14,-82 -14,-96 V-124 H14 V-96 C14,-82 30,-78 30,-60 V88 Q30,100 18,100"
            " H-18 Q-30,100 -30,88Z", "#3E8F8A")
    bottle = put(base + scroll + glass.replace('opacity="0.55"', 'opacity="0.3"') +
        line("M-21,-50 V70", WHITE, 5) + box(-17, -150, 34, 30, WOOD, 5) +
        box(-19, -126, 38, 9, "#CFF5EC", 3), 140, 206, 1.28, 24)
    return Scene(bottle, waves(300, "#6C8FD8", 24, 9), waves(338, "#4F72C2", 26, 11, 12) +
        waves(372, "#3A57A0", 30, 10), focus=(136, 206, 320))


def pot_of_tea():
    steam = curve(((98, 128), (84, 100), (102, 74), (88, 44)), WHITE, 9, .8) + \
        curve(((170, 128), (184, 100), (166, 74), (182, 44)), WHITE, 9, .8)
    b = line("M200,200 C256,188 252,274 194,274", RED, 18) + \
        shape("M76,216 C50,214 46,178 20,166 L10,184 C32,196 34,248 80,262Z", RED)
    b += shape("M62,228 C62,170 98,150 136,150 C174,150 210,170 210,228 C210,286 176,308 136,308 C96,308"
            " 62,286 62,228Z", RED) + shape("M62,228 C88,250 184,250 210,228 C210,286 176,308 136,308 C96,308"
                    " 62,286 62,228Z", "#B8403E")
    b += "".join(disc(x, y, 12, CREAM) for x, y in ((90, 208), (121, 196), (153, 196), (184, 208))) + \
        oval(136, 152, 50, 13, "#B8403E") + oval(136, 147, 42, 9, ROSE) + disc(136, 132, 14, GOLD) + \
        box(92, 302, 88, 14, "#8F2E30", 5)
    cup = shape("M178,322 h66 q-2,46 -33,46 q-31,0 -33,-46z", WHITE) + line("M242,330 q22,2 4,24", WHITE, 7) + \
        oval(211, 323, 33, 8, BRONZE)
    return Scene(b + cup, steam + put(heart(0, 0, 2.4, RED), 136, 70), box(-120, 366, 510, 200, WOOD) +
        box(-120, 362, 510, 14, "#B98552"), focus=(134, 222, 310))


def warm_bread():
    steam = "".join(curve(((x, y), (x - 14, y - 28), (x + 10, y - 56), (x - 8, y - 88)), WHITE, 10, .8)
        for x, y in ((82, 160), (136, 150), (190, 160)))
    b = shape("M34,306 C8,240 42,172 136,172 C230,172 262,240 238,306Z", "#E0A052") + \
        shape("M34,306 C24,280 24,254 36,232 C68,280 202,280 238,232 C248,256 248,280 238,306Z", "#B26A30")
    b += "".join(put(shape("M-9,-38 C9,-34 18,12 12,40 C-4,34 -16,-10 -9,-38Z", CREAM), x, y, 1, t)
        for x, y, t in ((76, 230, 18), (136, 216, 6), (196, 228, -10)))
    board = box(10, 302, 252, 20, BARK, 8) + shape("M20,318 H252 L236,340 H36Z", WOOD)
    cloth = "".join(box(x, 340, 22, 200, RED if i % 2 else WHITE) for i, x in enumerate(range(26, 246, 22)))
    return Scene(b + board, steam + cloth, focus=(136, 222, 290))


def contrary_wind():
    s = "".join(line(d, c, w)
        for d, c, w in (("M-120,310 C60,340 210,330 232,238 S176,112 112,146 S92,250 150,244 S176,192 146,186", WHITE, 20),
                        ("M-120,352 C90,396 272,360 284,226", "#EADFFF", 14),
                        ("M20,104 C70,70 160,60 216,90 S262,140 240,156", WHITE, 12)))
    hat = put(shape("M-34,8 Q0,20 34,8 Q24,-2 18,-4 Q16,-30 0,-30 Q-16,-30 -18,-4 Q-24,-2 -34,8Z", AMBER) +
        shape("M-18,-4 Q0,4 18,-4 L18,-12 Q0,-4 -18,-12Z", RUST), 196, 66, 1.2, 24)
    leaves = leaf(44, 268, .9, MOSS, 60) + leaf(230, 310, 1, ORANGE, 120) + leaf(90, 100, .8, ORANGE, -40)
    return Scene(hat + put(crab_body(), 60, 112, .6, -22) + leaves, s, focus=(138, 214, 290),
        backdrop=bands(("#3D3180", "#4E4096", "#6252AC"), 120, 80))


def lullaby():
    moon = shape("M214,34 A52,52 0 1 0 250,128 A62,62 0 0 1 214,34Z", "#FFF3C4")
    b = poly(((32, 262), (56, 190), (214, 190), (238, 262)), "#A8527A") + \
        poly(((50, 252), (68, 200), (202, 200), (220, 252)), "#F4B9D6") + \
        box(26, 262, 218, 92, "#C9668E", 8) + box(26, 262, 218, 16, "#A8527A", 4) + \
        box(26, 340, 218, 16, "#A8527A", 6) + heart(134, 316, 2.1, CREAM)
    b += line("M244,312 h22 v-30", BRASS, 9) + disc(266, 276, 9, GOLD) + box(88, 240, 92, 24, BRASS, 12) + \
        "".join(disc(x, 252, 3, INK) for x in range(98, 176, 12))
    dancer = line("M134,240 V204", PLUM, 6) + shape("M134,160 L166,208 Q134,222 102,208Z", WHITE) + \
        disc(134, 146, 16, SKIN) + shape("M116,144 A18,18 0 0 1 152,144 Q134,132 116,144Z", BARK) + \
        line("M134,172 Q100,160 112,128 M134,172 Q168,160 156,128", SKIN, 7)
    notes = note(66, 128, 1.7, WHITE, -10) + note(40, 62, 1.3, WHITE, 8) + zed(120, 70, 1.5, WHITE, -8) + \
        zed(162, 30, 1.1, WHITE, 8)
    return Scene(b + dancer, moon + notes, focus=(140, 206, 330),
        backdrop=bands(("#2E2768", "#3D3480", "#514799"), 110, 90))


def great_yawn():
    b = "".join(disc(x, y, r, c)
        for x, y, r, c in ((58, 248, 64, "#DCCEF8"), (212, 248, 64, "#DCCEF8"), (135, 268, 84, "#DCCEF8"),
            (70, 176, 64, WHITE), (200, 176, 64, WHITE), (135, 140, 74, WHITE), (135, 230, 96, WHITE)))
    b += line("M66,176 q24,20 48,2", INK, 7) + line("M156,178 q24,18 48,-2", INK, 7) + \
        line("M60,148 q22,-20 44,-14 M166,134 q22,-6 44,14", "#8673CC", 6)
    b += oval(135, 256, 54, 62, "#7A1F46") + oval(135, 296, 38, 24, ROSE) + oval(76, 236, 20, 12, ROSE) + \
        oval(196, 236, 20, 12, ROSE) + drop(216, 206, 1.0, "#6C8FD8")
    zs = zed(222, 78, 1.8, INK, 8) + zed(250, 36, 1.3, INK, -6)
    return Scene(b, zs, focus=(135, 216, 320))


def kite_string():
    string = curve(((150, 232), (196, 170), (180, 110), (232, 50), (250, -60)), WHITE, 6)
    kite = put(poly(((0, -46), (32, 0), (0, 56), (-32, 0)), RED) + poly(((0, -46), (32, 0), (0, 0)), AMBER) +
        line("M0,-46V56M-32,0H32", CREAM, 3), 226, 44, .9, 24)
    reel = put(box(-46, -60, 92, 18, WOOD, 6) + box(-46, 42, 92, 18, WOOD, 6) +
        box(-30, -44, 60, 88, "#FFF1D0", 8) +
        "".join(line(f"M-30,{y} L30,{y - 8}", "#CDB78A", 4) for y in range(-30, 46, 13)) +
        box(-8, -84, 16, 26, BARK, 4) + box(-8, 58, 16, 26, BARK, 4), 140, 232, .92, 32)
    hand = shape("M-20,470 L28,386 L96,432 L60,520Z", "#3A57A0") + \
        blob(((28, 396), (40, 340), (78, 318), (120, 332), (126, 370), (96, 410), (62, 428)), SKIN) + \
        taper(((60, 342), (54, 296), (66, 262)), 24, 17, SKIN) + \
            taper(((84, 334), (88, 290), (92, 262)), 24, 17, SKIN) + \
            taper(((104, 340), (124, 316), (126, 296)), 24, 17, SKIN) + \
            taper(((116, 362), (156, 352), (172, 332)), 24, 17, SKIN) + \
            taper(((44, 366), (22, 340), (18, 312)), 24, 17, SKIN)
    motion = line("M196,268 l20,18 M176,292 l14,22 M212,238 l26,8", WHITE, 6, .8)
    return Scene(hand + reel, string + inked(kite) + motion, focus=(128, 226, 340))


def storm_glass():
    b = box(56, 346, 158, 26, BARK, 6) + box(76, 322, 118, 28, BRASS, 8) + \
        shape("M96,330 C30,300 26,236 26,206 A109,109 0 0 1 244,206 C244,236 240,300 174,330Z", "#3D3480")
    b += shape("M135,112 A94,94 0 0 0 42,206 C42,232 48,270 82,300 H188 C222,270 228,232 228,206 A94,94 0 0 0"
            " 135,112Z", "#57489E")
    b += "".join(oval(x, y, rx, ry, c)
        for x, y, rx, ry, c in ((90, 184, 46, 30, "#CBD0E6"), (178, 184, 46, 30, "#CBD0E6"),
            (134, 166, 52, 34, "#E6E9F6"))) + \
        shape("M146,196 L104,258 H134 L112,312 L178,236 H146 L170,196Z", AMBER) + \
        shape("M86,212 l-20,32 h14 l-10,26 l32,-38 h-16 l12,-20z", "#FFE9A0") + \
        line("M190,218l-8,22M206,222l-8,24M196,252l-7,20", "#9FB8FF", 5)
    b += box(112, 70, 46, 34, BRASS, 6) + disc(135, 62, 16, BRONZE) + \
        line("M58,196 A80,80 0 0 1 92,136", WHITE, 10)
    return Scene(b, "", box(-120, 368, 510, 200, WOOD) + box(-120, 366, 510, 12, "#B98552"),
        focus=(135, 212, 340))


def wind_chime():
    eave = box(-120, -120, 510, 166, "#7E3B5C") + \
        "".join(shape(f"M{x},30 h44 v16 q-22,26 -44,0z", c)
        for x, c in zip(range(-100, 380, 44), ("#9C4A72", "#B85A86") * 6)) + line("M135,60V104", INK, 5)
    tubes = "".join(line(f"M{x},120 L{x + d},{150 + e}", INK, 3) +
        put(box(-9, 0, 18, h, STEEL, 7) + box(-9, 0, 7, h, WHITE, 4), x + d, 148 + e, 1, t)
        for x, d, e, h, t in ((66, -12, 0, 130, 10), (100, -6, 4, 180, 6), (135, 0, 4, 216, -2),
            (170, 6, 4, 180, -6), (204, 12, 0, 130, -11)))
    top = box(44, 102, 182, 24, WOOD, 10)
    def shell(x, y, s, c, t=0):
        return put(shape("M0,24 C-34,14 -34,-22 0,-24 C34,-22 34,14 0,24Z", c) +
            line("M0,22V-22M-3,22L-20,-12M3,22L20,-12", WHITE, 3), x, y, s, t)
    shells = line("M84,126V204M152,126 L158,236 M188,126 L192,206", INK, 3) + shell(82, 222, .85, ROSE) + \
        shell(160, 252, .9, "#F2C98A") + shell(194, 224, .75, ROSE, 12)
    return Scene(top + tubes + shells, eave +
        line("M14,200 q26,-16 48,0 M220,300 q20,-14 40,0 M20,330 q22,-14 44,0", WHITE, 6, .8),
        focus=(135, 216, 330))


def goodbye_song():
    sky = bands(("#2E2768", "#43398A", "#6453A8", "#8A70BE"), 90, 66)
    moon = disc(196, 130, 58, "#FFF3C4") + disc(196, 130, 78, "#FFF3C4", .25)
    sea = box(-120, 232, 510, 310, "#3A57A0") + \
        "".join(line(f"M{196 - w},{y} h{2 * w}", "#FFF3C4", 5, .8)
        for y, w in ((248, 40), (266, 28), (284, 34), (302, 20)))
    boat = put(shape("M-40,0 H40 L28,22 H-28Z", "#5F3322") + line("M0,0V-62", "#5F3322", 5) +
        shape("M4,-60 L38,-6 H4Z", WHITE) + shape("M-4,-52 L-28,-6 H-4Z", AMBER), 196, 226)
    rail = box(-120, 346, 510, 18, WHITE, 4) + \
        "".join(box(x, 360, 14, 120, "#CBB9F2") for x in range(-110, 380, 44))
    arm = taper(((40, 430), (58, 330), (72, 250)), 62, 36, "#B84A6A") + disc(76, 230, 24, SKIN)
    cloth = blob(((74, 214), (56, 168), (70, 120), (40, 84), (84, 60), (112, 92), (108, 140), (126, 176),
            (98, 210)), WHITE) + line("M78,96 q12,30 4,60 M98,110 q6,30 0,60", "#C9B6F0", 5)
    return Scene(boat + arm + cloth, moon + sea, rail, focus=(132, 206, 320), backdrop=sky)


def eye_of_the_storm():
    w = full("#2B2459")
    arms = "".join(curve([(135 + (92 + t * 9) * math.cos(t * .2 + p), 210 +
                (92 + t * 9) * math.sin(t * .2 + p)) for t in range(0, 14)], c, 42 - i * 5)
        for i, (p, c) in enumerate([(k * 1.047, ("#7C6CB8", "#A597D8", "#CBC0EE")[k % 3])
                for k in range(6)] * 1))
    ring = disc(135, 210, 112, "#E6DFF8") + disc(135, 210, 96, "#8FC7EE")
    sea = '<clipPath id="hole"><circle cx="135" cy="210" r="96"/></clipPath><g clip-path="url(#hole)">' + \
        disc(184, 152, 22, "#FFF3C4") + box(20, 262, 240, 60, "#3A6EA8") + \
        shape("M80,276 Q135,236 190,276 Z", "#4A3A5E") + '</g>'
    return Scene(tower(135, 264, .82), arms + ring + sea, focus=(135, 210, 310), backdrop=w)


def second_wind():
    def shoe(c, d):
        return shape("M-80,30 C-84,-6 -70,-34 -60,-44 C-40,-30 -16,-34 -10,-40 C6,-6 44,2 74,8 C92,14 92,36"
                " 86,44 H-74Z", c) + shape("M-80,38 H92 C94,58 84,62 70,62 H-64 C-78,62 -82,52 -80,38Z",
                    WHITE) + line("M-6,-20 L16,-34 M10,-8 L32,-22 M28,0 L48,-12", WHITE, 6) + \
                    shape("M-80,28 C-82,8 -76,-10 -70,-24 L-48,-14 L-54,32Z", d)
    wing = shape("M0,0 C-30,-10 -76,-40 -92,-84 C-60,-74 -40,-66 -24,-52 C-40,-76 -42,-96 -40,-108 C-12,-88"
            " 10,-50 14,-8Z", WHITE) + line("M-70,-66 Q-40,-36 -8,-16 M-30,-80 Q-14,-50 4,-22", "#CBB9F2", 5)
    a = put(wing, -52, -10) + shoe(RED, AMBER)
    lines = line("M-60,150 H60 M-60,240 H16 M-60,330 H40 M-60,190 H24", WHITE, 8, .9)
    dust = "".join(disc(x, y, r, "#EADFFF")
        for x, y, r in ((22, 384, 22), (52, 396, 18), (-6, 396, 20), (84, 402, 12)))
    return Scene(put(a, 164, 164, .9, -16) + put(a, 148, 322, .9, 8), lines + dust, focus=(140, 220, 330))


def gull_roost():
    b = shape("M66,540 L78,190 H192 L204,540Z", "#B9A4E8") + \
        shape("M135,540 V190 H192 L204,540Z", "#8F78CC") + shape("M56,196 L135,66 L214,196Z", "#7E3B5C") + \
        shape("M135,66 L214,196 H135Z", "#5E2A46") + line("M135,66 V40", GOLD, 6) + disc(135, 36, 8, GOLD)
    b += shape("M98,312 V250 Q135,204 172,250 V312Z", INK) + \
        shape("M110,296 C118,286 112,248 135,244 C158,248 152,286 160,296Z", AMBER) + \
        disc(135, 302, 8, BRONZE) + box(58, 308, 154, 15, WHITE, 4) + box(66, 188, 138, 12, WHITE, 4)
    b += bird(92, 296, 1.4) + bird(182, 296, 1.35, -1) + bird(84, 174, 1.4, -1) + bird(184, 174, 1.35) + \
        bird(222, 92, 1.2) + bird(44, 108, 1.1, -1)
    return Scene(b, focus=(135, 206, 320))


def iron_buoy():
    b = shape("M-58,20 H58 L40,84 H-40Z", "#7A2F2A") + box(-66, 0, 132, 26, RUST, 8) + \
        shape("M-36,4 L-17,-112 H17 L36,4Z", RED) + shape("M-28,-40 L-22,-78 H22 L28,-40Z", CREAM) + \
        box(-24, -124, 48, 14, INK, 4) + box(-14, -150, 28, 30, AMBER, 4) + \
        shape("M-22,-148 L0,-172 L22,-148Z", INK)
    b += disc(-14, -16, 11, WHITE) + disc(14, -16, 11, WHITE) + disc(-12, -14, 5.5, INK) + \
        disc(16, -14, 5.5, INK) + \
        "".join(disc(x, y, 7, WHITE) + disc(x, y, 3, INK)
        for x, y in ((-40, 44), (-22, 58), (36, 42), (20, 60)))
    return Scene(put(b, 132, 270, 1.25, 8), waves(296, "#6C8FD8", 24, 9) + glow(160, 92, 84, AMBER, 4, .2),
        waves(344, "#4F72C2", 26, 11, 12) + waves(376, "#3A57A0", 30, 10), focus=(138, 212, 320))


def kite_light():
    chimney = box(16, 352, 60, 200, "#A85844") + box(8, 338, 76, 22, "#C9694A", 4)
    string = curve(((46, 340), (110, 356), (150, 300), (138, 232)), CREAM, 6)
    kite = poly(((138, 20), (236, 118), (138, 240), (40, 118)), "#5C7AD8") + \
        poly(((138, 20), (236, 118), (138, 118)), "#F2C94A") + \
        poly(((40, 118), (138, 118), (138, 240)), "#E0679A") + line("M138,20V240M40,118H236", CREAM, 6)
    lamp_ = lantern(138, 226, 1.9)
    return Scene(kite + lamp_, inked(chimney) + string + glow(138, 296, 110, AMBER, 4, .26),
        focus=(135, 206, 350))


ALL = {"wind": [letter_in_a_bottle, pot_of_tea, warm_bread, contrary_wind, lullaby, great_yawn, kite_string,
                storm_glass, wind_chime, goodbye_song, eye_of_the_storm, second_wind, gull_roost, iron_buoy,
                kite_light]}
