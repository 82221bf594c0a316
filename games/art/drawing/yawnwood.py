"""The cards of the tutorial's game: a wood at night and its sleepy singers."""
from .shapes import *
from .scene import Scene, bands


def dormouse_body(x=0, y=0, s=1.0):
    fur, dark = "#C48A58", "#8E5E38"
    b = taper(((184, 300), (232, 310), (246, 262), (226, 226)), 26, 34, dark) + oval(132, 276, 70, 64, fur) + \
        oval(132, 292, 46, 44, CREAM)
    b += disc(80, 172, 28, dark) + disc(80, 173, 17, ROSE) + disc(186, 172, 28, dark) + \
        disc(186, 173, 17, ROSE) + oval(132, 206, 72, 58, fur) + oval(132, 228, 38, 26, CREAM) + \
        oval(132, 214, 11, 8, "#5A2D2D")
    b += big_eye(102, 194, 17, 2, 3) + line("M148,196 q15,14 32,0", INK, 6) + \
        smile(132, 232, 9, "#5A2D2D", 4) + oval(78, 222, 13, 9, ROSE) + oval(188, 222, 13, 9, ROSE)
    cap = shape("M72,176 C76,110 150,84 222,110 C246,118 252,150 246,164 C226,136 200,136 192,176 Q132,150"
            " 72,176Z", "#3F6FC4") + \
                line("M106,128 L120,160 M140,110 L152,156 M176,106 L178,160", CREAM, 7) + \
                shape("M64,170 Q132,140 200,170 L198,188 Q132,158 66,188Z", WHITE) + disc(246, 172, 16, WHITE)
    return put(b + cap + oval(104, 334, 26, 11, dark) + oval(162, 334, 26, 11, dark) +
        oval(96, 272, 14, 20, fur, 24) + oval(168, 272, 14, 20, fur, -24), x, y, s)


def owl_body():
    b = blob(((135, 84), (206, 110), (224, 200), (206, 296), (135, 336), (64, 296), (46, 200), (64, 110)),
        "#A8744A") + poly(((66, 122), (52, 54), (112, 92)), "#8A5A36") + \
        poly(((204, 122), (218, 54), (158, 92)), "#8A5A36")
    b += mirror(blob(((206, 190), (236, 230), (222, 300), (194, 318), (182, 250)), "#7A4E30")) + \
        oval(135, 286, 52, 44, "#E9D0A0") + \
        "".join(line(f"M{x},{y} q8,8 16,0", "#B58A58", 4)
        for x, y in ((100, 280), (126, 280), (152, 280), (112, 300), (140, 300)))
    b += disc(94, 168, 50, "#F4E4C0") + disc(176, 168, 50, "#F4E4C0") + disc(94, 172, 32, AMBER) + \
        disc(176, 172, 32, AMBER) + disc(94, 180, 17, INK) + disc(176, 180, 17, INK) + \
        shape("M44,166 A50,50 0 0 1 144,166 Q94,176 44,166Z", "#8A5A36") + \
        shape("M126,166 A50,50 0 0 1 226,166 Q176,176 126,166Z", "#8A5A36") + \
        poly(((121, 194), (149, 194), (135, 224)), ORANGE)
    return b


def dormouse_watch():
    stump = box(46, 334, 178, 160, "#6E4A30", 10) + oval(135, 338, 98, 24, MOSS) + oval(135, 336, 72, 14, LEAF)
    lamp_ = lantern(38, 258, 1.35)
    return Scene(dormouse_body(14, 6, 1.0) + lamp_, inked(stump) + glow(38, 306, 84, AMBER, 4, .2),
        focus=(140, 226, 310))


def old_hoot():
    branch = taper(((-60, 372), (90, 352), (330, 366)), 36, 30, "#5F4028") + leaf(226, 352, 1.2, FERN, 30) + \
        leaf(12, 352, 1.1, MOSS, -30)
    scarf = shape("M60,230 Q135,268 210,230 L206,256 Q135,292 64,256Z", RED) + \
        shape("M90,256 L76,344 L112,340 L118,266Z", "#B8403E") + \
        line("M80,326 L114,322 M64,244 Q135,280 206,244", CREAM, 5)
    feet = "".join(oval(x, 340, 8, 13, ORANGE) for x in (104, 120, 150, 166))
    cup = box(196, 284, 50, 48, WHITE, 8) + line("M246,296 q18,2 0,24", WHITE, 7) + oval(221, 286, 25, 6, BARK)
    steam = curve(((212, 270), (204, 250), (218, 232), (208, 210)), WHITE, 6, .8) + \
        curve(((232, 270), (240, 250), (228, 234), (238, 214)), WHITE, 6, .8)
    return Scene(branch + owl_body() + scarf + feet + cup, "", steam, focus=(138, 214, 320))


def cricket():
    moon = disc(150, 130, 92, "#F4F1D8") + disc(150, 130, 112, "#F4F1D8", .25)
    blade = taper(((-40, 420), (80, 356), (200, 340), (300, 366)), 40, 18, MOSS)
    c, d = "#8ED04A", "#5A9A2E"
    b = line("M96,306 L34,190 L24,340 M124,310 L84,204 L66,348", d, 12) + \
        blob(((44, 330), (70, 286), (130, 268), (176, 286), (170, 322), (110, 340)), c) + \
        line("M60,322 Q110,296 162,300", d, 6)
    b += disc(196, 236, 46, c) + big_eye(182, 226, 17, 2, 2) + big_eye(218, 226, 17, 2, 2) + \
        smile(204, 254, 13, FOREST, 5) + curve(((186, 194), (176, 140), (128, 108)), d, 6) + \
        curve(((208, 192), (218, 140), (262, 112)), d, 6) + line("M170,322 L176,352 M192,280 L206,350", d, 11)
    fiddle = put(oval(0, 26, 27, 24, "#C9662E") + oval(0, -6, 20, 19, "#C9662E") +
        box(-5, -76, 10, 64, BARK, 3) + disc(0, -80, 9, BARK) + line("M-3,-70V34M3,-70V34", CREAM, 2) +
        oval(0, 8, 5, 8, INK), 160, 292, 1.1, 62)
    bow = line("M120,220 L236,330", CREAM, 6) + line("M126,214 L242,324", WOOD, 6)
    return Scene(blade + b + fiddle + bow + taper(((150, 280), (170, 250), (166, 262)), 10, 9, d), moon,
        note(46, 120, 1.5, CREAM, -8) + note(74, 70, 1.1, CREAM, 10), focus=(140, 220, 310))


def frog(x, y, s, c, belly):
    return put(oval(-46, 30, 30, 22, c) + oval(46, 30, 30, 22, c) + oval(0, 4, 56, 48, c) +
        disc(-32, -40, 20, c) + disc(32, -40, 20, c) + oval(0, 30, 34, 22, belly) +
        big_eye(-32, -42, 13, 0, -3) + big_eye(32, -42, 13, 0, -3) + oval(0, -6, 34, 21, "#7A1F36") +
        oval(0, 6, 22, 9, ROSE), x, y, s)


def frog_choir():
    log = box(-60, 340, 400, 54, "#6E4A30", 26) + oval(258, 367, 26, 27, "#B58A58") + \
        oval(258, 367, 14, 15, "#8A6238") + blob(((-40, 346), (40, 334), (100, 350), (40, 362)), MOSS)
    b = log + frog(138, 240, 1.45, "#6FB04A", "#D7EFAE") + frog(54, 300, 1.0, "#A6D24E", "#F0F5C0") + \
        frog(222, 312, .82, "#3E9A6A", "#BFEBD0")
    return Scene(b, note(50, 130, 2.0, CREAM, -10) + note(136, 76, 1.5, CREAM, 4) +
        note(216, 140, 1.9, CREAM, 12), focus=(138, 232, 320))


def firefly():
    ferns = "".join(curve(((x, 470), (x + d * .4, 380), (x + d, 310)), FERN, 10) +
        "".join(leaf(x + d * t, 470 - 160 * t, .9, MOSS, a) for t in (.4, .6, .8, 1)
            for a in (-70 + d * .4, 70 + d * .4)) for x, d in ((14, 20), (256, -20), (-30, 10), (300, -10)))
    wings = oval(74, 148, 62, 26, SNOW, 34) + oval(196, 148, 62, 26, SNOW, -34) + \
        oval(78, 200, 46, 18, WHITE, -8) + oval(192, 200, 46, 18, WHITE, 8)
    b = wings + oval(135, 290, 54, 66, "#F6FF9E") + \
        shape("M83,272 Q135,292 187,272 M82,300 Q135,322 188,300 M92,328 Q135,346 178,328", None, None,
        "#D9C83A", 5) + oval(135, 210, 36, 46, "#4A3A5E") + oval(135, 196, 44, 26, RED)
    b += disc(135, 136, 44, "#4A3A5E") + big_eye(116, 134, 17, 2, 2) + big_eye(154, 134, 17, -2, 2) + \
        smile(135, 158, 9, WHITE, 4) + line("M118,98 Q112,66 84,58 M152,98 Q158,66 186,58", INK, 6) + \
        disc(84, 58, 7, AMBER) + disc(186, 58, 7, AMBER)
    return Scene(b, glow(135, 296, 170, "#F6FF9E", 5, .13) + ferns, focus=(135, 222, 330))


def goodnight_song():
    ribbon = curve(((150, 262), (186, 250), (206, 220), (172, 182), (96, 176), (62, 126), (110, 76),
            (210, 70), (300, 30)), "#BFE0FF", 30) + \
        curve(((150, 262), (186, 250), (206, 220), (172, 182), (96, 176), (62, 126), (110, 76), (210, 70),
            (300, 30)), "#9FD8FF", 16)
    horn = taper(((112, 296), (60, 340), (30, 380)), 30, 14, GOLD) + \
        poly(((84, 292), (112, 326), (164, 282), (134, 238)), AMBER) + \
        oval(149, 260, 14, 27, "#8A5A1E", -40) + disc(26, 384, 12, BRONZE) + \
            line("M70,330 q-22,-34 10,-46 q30,-4 28,22", GOLD, 10) + line("M98,326 L74,354", CREAM, 4)
    notes = note(176, 236, 1.3, INK, 8) + note(84, 150, 1.3, INK, -8) + zed(136, 182, 1.2, INK, 6) + \
        note(150, 80, 1.3, INK, 6) + zed(216, 66, 1.4, INK, -6) + zed(212, 130, 1.6, CREAM, 8) + \
        zed(40, 76, 1.4, CREAM, -8)
    return Scene(ribbon + horn, "", notes, focus=(128, 212, 320))


def full_moon():
    moon = disc(135, 190, 120, "#FFF3C4") + \
        "".join(disc(x, y, r, "#E9D9A0")
        for x, y, r in ((86, 146, 20), (180, 128, 14), (196, 216, 24), (112, 240, 16))) + \
        lids(100, 186, 14, "#B59A52", 5) + lids(166, 186, 14, "#B59A52", 5) + smile(134, 216, 13, "#B59A52", 5)
    pillows = "".join(blob(((x - w, y + 14), (x - w + 8, y - 22), (x, y - 30), (x + w - 8, y - 22),
                (x + w, y + 14), (x, y + 24)), c)
        for x, y, w, c in ((52, 296, 76, WHITE), (220, 282, 72, "#DCE9F2"), (140, 326, 84, "#EAF4FA")))
    trees = "".join(poly(((x - 30, 480), (x - 30, 420), (x - 40, 420), (x - 20, 386), (x - 30, 386), (x, 340),
                (x + 30, 386), (x + 20, 386), (x + 40, 420), (x + 30, 420), (x + 30, 480)), "#0E2E2E")
        for x in (-30, 28, 88, 150, 208, 266))
    return Scene(moon + pillows, glow(135, 190, 170, "#FFF3C4", 3, .12), trees, focus=(135, 226, 320),
        backdrop=bands(("#15234F", "#1C3163", "#254377"), 120, 90))


def cold_puddle():
    pud = oval(135, 320, 150, 70, "#7FC4E8") + oval(135, 320, 132, 58, "#1E3C74") + \
        oval(135, 322, 58, 22, None).replace('fill="none"', 'fill="none" stroke="#BFE6F7" stroke-width="6"') + \
        oval(135, 322, 96, 40, None).replace('fill="none"', 'fill="none" stroke="#5C95C8" stroke-width="5"')
    stars = "".join(star(x, y, r, "#FFF6C8")
        for x, y, r in ((48, 318, 11), (88, 352, 9), (190, 350, 11), (222, 312, 9), (170, 282, 7)))
    paw = taper(((236, -60), (206, 60), (150, 176)), 104, 84, "#C48A58") + \
        oval(138, 208, 62, 54, "#C48A58", 20) + \
        "".join(oval(x, y, 21, 25, "#C48A58", t)
        for x, y, t in ((82, 218, 34), (112, 250, 14), (152, 258, -8), (188, 238, -30))) + \
        oval(136, 214, 32, 25, ROSE, 16) + \
        "".join(disc(x, y, 11, ROSE) for x, y in ((86, 224), (113, 252), (151, 260), (184, 242)))
    return Scene(paw, pud + stars, line("M40,238 l-16,-12 M232,262 l20,-10 M58,214l-8,-16", WHITE, 6),
        focus=(138, 226, 320))


def pine_cone():
    branch = taper(((-60, 40), (80, 54), (330, 30)), 30, 22, "#6E4A30") + \
        "".join(line(f"M{x},50 l{d},{e}", "#5FAE6A", 6) for x in range(-20, 300, 26)
        for d, e in ((-12, 46), (8, 50), (-10, -34), (10, -32)))
    lines = line("M64,110 V186 M206,110 V186 M40,160 V220 M230,160 V220 M100,96V120 M170,96V120", WHITE, 7, .85)
    scales = ""
    for row, (y, n) in enumerate(((176, 3), (206, 4), (236, 5), (266, 5), (296, 4), (326, 3), (352, 2))):
        for i in range(n):
            x = 135 + (i - (n - 1) / 2) * 33
            scales += put(shape("M-24,-16 C-24,16 -8,26 0,30 C8,26 24,16 24,-16Z",
                    ("#B5763E", "#94592A")[(i + row) % 2]) + line("M-12,8 Q0,22 12,8", "#E0A868", 5), x, y)
    core = blob(((135, 140), (196, 180), (222, 246), (190, 320), (135, 384), (80, 320), (48, 246), (74, 180)),
        "#6E4426")
    return Scene(put(core + scales, -6, 22, 1, 6), branch + lines, focus=(130, 240, 320))


def hazelnuts():
    def nut(x, y, s, t):
        return put(blob(((0, -30), (26, -10), (22, 22), (0, 32), (-22, 22), (-26, -10)), "#C98044") +
            shape("M-25,10 Q0,-2 25,10 Q22,28 0,32 Q-22,28 -25,10Z", "#EBCB98") +
            line("M-10,-14 Q-16,-4 -14,4", "#F0B880", 6), x, y, s, t)
    bag = blob(((250, 190), (262, 280), (236, 356), (150, 370), (108, 330), (124, 290), (112, 250),
            (150, 206)), "#B84A6A") + oval(122, 292, 24, 48, INK, 14) + \
        line("M150,214 Q176,290 144,362", CREAM, 7) + \
        line("M186,210 Q204,270 190,340 M220,210 Q236,270 226,340", "#8F3350", 5) + \
        "".join(disc(x, y, 9, AMBER) for x, y in ((200, 262), (230, 300), (208, 322)))
    nuts = nut(70, 330, 1.25, -20) + nut(112, 366, 1.1, 40) + nut(34, 372, 1.15, 70) + \
        nut(128, 306, .95, -60) + nut(60, 262, 1.0, 16)
    bounces = line("M30,210 q20,10 30,26 M86,206 q-6,14 -10,24", WHITE, 5, .8)
    return Scene(bag + nuts, bounces, focus=(142, 292, 290))


def moss_basket():
    handle = shape("M36,226 C36,60 234,60 234,226", None, None, "#A87B45", 17)
    stuff = put(box(-32, -50, 64, 96, CREAM, 6) + box(-24, -42, 48, 80, "#2F6F8A", 4) +
        note(0, -2, 1.5, AMBER), 84, 176, 1, -14)
    cap = shape("M120,232 C124,150 190,120 236,160 C262,184 262,216 254,226 C240,196 224,196 214,236Z",
        "#3F6FC4") + line("M148,176 L164,224 M178,150 L190,220", CREAM, 8) + disc(254, 232, 16, WHITE)
    moss = blob(((18, 240), (40, 212), (90, 224), (135, 208), (180, 224), (232, 212), (254, 240), (226, 268),
            (135, 274), (44, 268)), MOSS) + \
        "".join(disc(x, y, 13, LEAF) for x, y in ((56, 236), (120, 238), (206, 240))) + toad(236, 226)
    body = ""
    for r in range(5):
        y, w = 254 + r * 26, 112 - r * 7
        for c in range(8):
            body += box(135 - w + c * 2 * w / 8, y, 2 * w / 8 - 2, 23, ("#C99C5E", "#A87B45")[(r + c) % 2], 6)
    return Scene(handle + stuff + cap + poly(((20, 252), (250, 252), (216, 386), (54, 386)), "#8A5E30") +
        body + moss, "", focus=(135, 232, 320))


def toad(x, y):
    return put(box(-6, -30, 12, 34, CREAM, 4) +
        shape("M-24,-26 C-22,-54 22,-54 24,-26 Q0,-18 -24,-26Z", RED) + disc(-6, -38, 4, WHITE) +
        disc(9, -34, 4, WHITE), x, y, .9)


ALL = {"wood": [dormouse_watch, old_hoot, cricket, frog_choir, firefly, goodnight_song, full_moon,
        cold_puddle, pine_cone, hazelnuts,
                moss_basket]}
