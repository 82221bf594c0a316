"""Lights, fittings and lighthouses of TIDE: teal, the wet ones."""
from .lamp_creatures import mouse
from .tide_creatures import CRAB, DARK_CRAB, crab_body
from .shapes import *
from .scene import Scene, bands, full, tide_top


def high_water():
    b = shape("M-120,480 V240 C10,120 90,60 166,76 C224,90 240,146 210,172 C190,188 164,176 166,156 C146,156"
            " 128,186 140,224 C156,270 220,296 390,292 V480Z", LAGOON)
    b += shape("M-120,480 V290 C14,170 70,116 120,116 C96,160 92,220 122,262 C160,310 220,322 390,316 V480Z",
        PINE) + line("M22,262 C34,186 70,136 112,128 M40,330 C36,250 58,190 92,160", TEAL, 9)
    b += "".join(disc(x, y, r, WHITE)
        for x, y, r in ((142, 76, 12), (166, 74, 17), (190, 82, 19), (212, 98, 19), (226, 120, 18),
            (226, 144, 16), (216, 164, 14), (198, 178, 13), (182, 180, 10)))
    roof = house_front(226, 330, 1.15)
    return Scene(b, "", inked(roof) + disc(244, 88, 6, WHITE) + disc(252, 130, 5, WHITE) +
        waves(332, "#0F4558", 24, 9, 8) + waves(362, "#0B3444", 28, 9), focus=(136, 206, 280),
        backdrop=tide_top())


def mirror_pool():
    clip = '<clipPath id="pool"><ellipse cx="135" cy="208" rx="104" ry="144"/></clipPath>'
    top = box(0, 40, W, 170, "#F2CF8E") + put(mouse(candle=False), 14, -10, .76, 0)
    low = box(0, 208, W, 200, "#17707E") + \
        put(mouse(TEAL, LAGOON, "#D9FFF7", False), 14, 426, .76, 0, 1, -1) + \
        "".join(line(f"M{x},{y} h{w}", "#D9FFF7", 4, .7)
        for x, y, w in ((50, 232, 50), (176, 244, 44), (64, 282, 30), (186, 290, 26)))
    frame = oval(135, 208, 118, 160, BRASS)
    pool = f'{clip}<g clip-path="url(#pool)">{top}{low}{box(20, 205, 230, 7, WHITE)}</g>'
    knobs = "".join(disc(x, y, 11, GOLD) for x, y, _ in around(8, 118, 135, 208, 22.5, 160 / 118))
    return Scene(frame + knobs + pool, focus=(135, 208, 330))


def coral_piano():
    b = box(30, 96, 196, 270, "#6E3F2E", 6) + box(22, 84, 212, 22, "#8F5A40", 5) + \
        box(44, 118, 168, 84, "#573022", 5) + box(94, 120, 68, 56, CREAM, 2) + \
        line("M102,134h52M102,146h52M102,158h52", SLATE, 3)
    b += shape("M22,214 H234 L246,256 H10Z", "#8F5A40") + shape("M30,218 H226 L234,246 H22Z", WHITE) + \
        "".join(line(f"M{x},220 L{x - (135 - x) * .05:.0f},246", SLATE, 2.5) for x in range(46, 226, 16)) + \
        "".join(box(x, 218, 9, 16, INK, 1) for x in (42, 58, 90, 106, 122, 154, 170, 202))
    b += box(10, 254, 236, 14, "#573022", 4) + box(30, 268, 16, 100, "#8F5A40") + \
        box(210, 268, 16, 100, "#8F5A40") + oval(112, 358, 13, 6, GOLD) + oval(146, 358, 13, 6, GOLD)
    def coral(x, y, s, c):
        return put(taper(((0, 0), (-4, -30), (-2, -62)), 16, 9, c) +
            taper(((-3, -26), (-26, -42), (-28, -66)), 12, 8, c) +
            taper(((-2, -36), (20, -50), (24, -76)), 12, 8, c), x, y, s)
    cor = coral(52, 92, 1.2, "#FF8FA8") + coral(212, 94, 1.05, TEAL) + coral(180, 92, .7, "#FF8FA8") + \
        coral(20, 368, 1.2, TEAL) + coral(246, 372, 1.3, "#FF8FA8") + coral(222, 300, .6, AMBER) + \
        coral(46, 330, .6, AMBER) + coral(100, 88, .6, AMBER)
    return Scene(b + cor + fish(84, 200, 1.1, AMBER, RUST, 60) + fish(176, 198, 1.1, ORANGE, RED, 120, 1),
        focus=(135, 216, 330))


def undertow():
    w = full("#12505E")
    rings = ""
    for i, c in enumerate(("#1A6874", "#238A90", "#1A6E7A", "#2FA9A8", "#155A66", "#1E8088", "#0D3A48",
            "#0A2A36")):
        rings += oval(135 + i * 2, 216 + i * 9, 196 - i * 25, 168 - i * 22, c, -10)
    swirl = "".join(curve([(143 + (172 - t * 4.6) * math.cos(t * .28 + p), 244 - t * -.9 - 30 +
                (140 - t * 3.9) * math.sin(t * .28 + p)) for t in range(0, 34)], "#CFF5EC", wd)
        for p, wd in ((0, 6), (2.1, 5), (4.2, 5)))
    chair = put(box(-26, -4, 58, 13, WOOD, 3) +
        line("M-24,-2 V-70 M-24,6 V56 M28,6 V56 M-10,8V40 M-24,-66 H-4 M-4,-66 V0 M-24,-44H-4 M-24,-24 H-4",
            WOOD, 10), 78, 138, 1.0, -34)
    hat = put(shape("M-44,8 Q0,24 44,8 Q34,-4 24,-6 Q22,-40 0,-40 Q-22,-40 -24,-6 Q-34,-4 -44,8Z", AMBER) +
        shape("M-24,-6 Q0,4 24,-6 L24,-16 Q0,-6 -24,-16Z", RUST), 206, 312, 1.1, 28)
    return Scene(chair + hat, rings + swirl, focus=(135, 222, 310), backdrop=w)


def salt_rain():
    cloud = "".join(oval(x, y, rx, ry, c)
        for x, y, rx, ry, c in ((60, 116, 64, 46, "#8FA9B8"), (206, 118, 60, 44, "#8FA9B8"),
            (132, 96, 76, 58, "#B9CEDA"), (90, 130, 70, 40, "#B9CEDA"), (176, 132, 74, 40, "#B9CEDA"),
            (120, 82, 44, 30, SNOW)))
    salt = "".join(put(box(-9, -9, 18, 18, WHITE, 2) + poly(((-9, -9), (9, -9), (-9, 9)), "#CDE4F0"), x, y, s,
            20 + x % 50) for x, y, s in
                   ((50, 196, 1), (96, 210, 1.2), (146, 192, 1), (196, 208, 1.2), (236, 190, .9),
                           (30, 246, 1.2), (76, 262, .9), (124, 250, 1.2), (172, 262, 1), (218, 252, 1.1),
                           (52, 302, 1), (150, 300, .9), (196, 304, 1.1), (246, 300, 1)))
    streak = "".join(line(f"M{x + 14},{y - 40} l-8,24", WHITE, 3, .6)
        for x, y in ((96, 210), (196, 208), (30, 246), (124, 250), (218, 252), (196, 304)))
    houses = house_front(60, 392, 1.25, "#E9D6AE", "#3A6E86") + house_front(210, 398, 1.3, CREAM, RUST) + \
        house_front(136, 404, 1.1, "#D8C9A6", "#4E5C8A")
    return Scene(cloud + salt, streak, inked(houses) + waves(396, "#0B3444", 28, 7), focus=(135, 232, 320),
        backdrop=tide_top())


def fishing_line():
    wall = box(-120, -120, 510, 270, "#E9D6AE") + box(40, 6, 190, 116, BARK, 4) + \
        box(52, 14, 166, 96, AMBER) + line("M135,14V110", BARK, 8) + box(24, 112, 222, 20, "#94623F", 4)
    water = box(-120, 156, 510, 400, "#17707E") + \
        shape("M-120,156 q20,-12 40,0 t40,0 t40,0 t40,0 t40,0 t40,0 t40,0 t40,0 t40,0 t40,0 t40,0 t40,0 t40,0"
                " V180 H-120Z", TEAL) + \
                    specks(TEAL, ((40, 250, 6), (232, 230, 5), (226, 330, 7), (50, 350, 5)), .6)
    rod = line("M70,92 L190,46", WOOD, 8) + line("M190,46 C200,90 150,150 140,226", WHITE, 3.5)
    card = put(box(-46, -62, 92, 128, CREAM, 8) + box(-37, -53, 74, 110, PLUM, 5) +
        star(0, 2, 36, AMBER, 4, .38) + disc(0, 2, 9, WHITE), 142, 312, 1, 12)
    hook = line("M140,226 V252 C140,284 100,280 104,256 L112,264", STEEL, 8) + disc(140, 226, 8, STEEL)
    return Scene(rod + card + hook + fish(50, 292, .9, ORANGE, RED), wall + water, focus=(138, 246, 300),
        backdrop=full("#17707E"))


def sluice_gate():
    posts = "".join(box(x, 40, 54, 440, "#8D9AA3", 4) +
        "".join(line(f"M{x},{y} h54", "#66747D", 4) for y in range(80, 420, 42)) +
        box(x - 6, 26, 66, 24, "#B5C1C9", 4) for x in (4, 212))
    gate = box(56, 128, 158, 232, "#3F4C5E", 3) + \
        "".join(box(x, 128, 12, 232, "#5C6C82") for x in (74, 104, 134, 164, 188)) + \
        "".join(box(52, y, 166, 20, "#2C3646", 3) for y in (140, 230, 326)) + \
        "".join(disc(x, y, 4.5, BRASS) for y in (150, 240, 336) for x in (66, 96, 126, 156, 186, 206))
    wheel = box(124, 62, 22, 74, BRONZE) + disc(135, 72, 42, None, None, RED, 11) + \
        line("M135,32V112M95,72H175M107,44L163,100M163,44L107,100", RED, 7) + disc(135, 72, 11, AMBER) + \
        box(50, 116, 170, 16, "#B5C1C9", 4)
    water = box(-120, 176, 510, 380, LAGOON) + waves(180, "#1E8A90", 22, 8) + \
        waves(250, "#19767F", 26, 8, 10) + waves(320, "#13606C", 28, 8)
    jets = "".join(taper(((x, 354), (x + d, 384), (x + 1.6 * d, 420)), 10, 26, WHITE)
        for x, d in ((84, -8), (186, 8)))
    return Scene(posts + gate + wheel + jets, water, waves(392, "#0B3444", 28, 8), focus=(135, 204, 320),
        backdrop=bands(("#123C55", "#17506A", "#1E6A7E"), 90, 80))


def spring_tide():
    moon = disc(140, 150, 122, "#F4F1D8") + \
        "".join(disc(x, y, r, "#D9D8BC")
        for x, y, r in ((96, 110, 20), (176, 84, 14), (200, 150, 22), (120, 70, 10))) + \
        disc(140, 150, 146, "#F4F1D8", .22)
    wave = shape("M-120,420 C-40,300 40,232 134,226 C220,222 300,290 390,420 V560 H-120Z", LAGOON) + \
        shape("M-120,470 C0,340 60,290 134,284 C210,284 280,350 390,480 V560 H-120Z", PINE) + \
        "".join(disc(x, y, r, WHITE)
        for x, y, r in ((90, 238, 13), (112, 230, 15), (136, 226, 16), (160, 230, 15), (182, 240, 12)))
    houses = put(house_front(0, 0, .95, "#E9D6AE", RUST), 66, 240, 1, -24) + \
        put(house_front(0, 0, 1.15, CREAM, "#8A4AA0"), 134, 216) + \
        put(house_front(0, 0, .95, "#E9D6AE", "#3A6E86"), 204, 244, 1, 24)
    return Scene(houses + wave, moon, line("M40,340 Q134,270 230,344 M90,390 Q134,350 186,392", TEAL, 7),
        focus=(136, 200, 290), backdrop=bands(("#0F2F4A", "#143C58", "#1B5068"), 110, 90))


def crab_creel():
    b = line("M135,110 C120,70 150,40 136,-120", CREAM, 9) + \
        shape("M60,124 H210 L234,330 Q135,362 36,330Z", "#C99C5E")
    for r in range(7):
        for c in range(8):
            y, w0 = 138 + r * 28, 75 + r * 4 + 4
            x = 135 - w0 + c * (2 * w0 / 8)
            b += box(x + 1, y, 2 * w0 / 8 - 3, 24, ("#A87B45", "#DDB878")[(r + c) % 2], 6)
    b += oval(135, 124, 80, 24, "#8A5E30") + oval(135, 124, 62, 15, INK) + disc(112, 122, 9, WHITE) + \
        disc(114, 122, 4.5, INK) + disc(150, 124, 9, WHITE) + disc(148, 124, 4.5, INK)
    b += line("M60,128 C60,60 210,60 210,128", "#8A5E30", 10)
    claw = line("M176,122 C212,112 216,84 208,66", DARK_CRAB, 17) + \
        shape("M192,76 C172,44 188,2 224,-4 C214,16 218,24 230,34 C240,20 242,8 240,-2 C266,18 264,62 228,78"
                " C214,84 200,84 192,76Z", CRAB)
    return Scene(b + put(claw, 6, 14), "", waves(356, "#0A303D", 40, 10) +
        specks("#DCC9A0", ((40, 380, 5), (90, 396, 4), (220, 388, 6)), .7), focus=(140, 192, 330))


def old_anchor():
    a = disc(0, -148, 26, None, None, "#7C8C99", 15) + box(-13, -124, 26, 270, "#7C8C99", 6) + \
        box(-70, -100, 140, 22, "#7C8C99", 9) + disc(-70, -89, 15, "#7C8C99") + disc(70, -89, 15, "#7C8C99")
    a += line("M-108,62 C-92,128 -40,148 0,150 C40,148 92,128 108,62", "#7C8C99", 28) + \
        poly(((-136, 78), (-104, 22), (-78, 82)), "#7C8C99") + \
        poly(((136, 78), (104, 22), (78, 82)), "#7C8C99") + line("M-6,-116V140", "#B5C4CF", 6)
    a += "".join(disc(x, y, r, "#E9E0CC") + disc(x, y, r * .45, "#6E6558")
        for x, y, r in ((-70, 124, 14), (-44, 138, 10), (8, 60, 12), (-6, 84, 9), (62, 128, 13), (40, 140, 9),
            (-54, -92, 11), (6, -20, 8)))
    chain = "".join(oval(x, y, 10, 16, None, t).replace('fill="none"',
            'fill="none" stroke="#B5C4CF" stroke-width="7"')
        for x, y, t in ((196, 62, 30), (208, 38, 20), (214, 12, 10), (218, -16, 6)))
    return Scene((chain + put(a, 128, 222, .98, 24)).replace("#7C8C99", "#A9BAC6").replace("#B5C4CF",
            "#E6EEF3"), "", shape("M-120,372 Q40,340 135,362 T390,352 V540 H-120Z", "#C9B68A") +
        specks("#9C8A60", ((30, 390, 5), (90, 400, 4), (180, 384, 5), (236, 396, 6)), .8),
        focus=(136, 222, 360))


def tide_table():
    b = box(52, 46, 166, 290, "#7E4A36", 14) + shape("M46,60 L135,8 L224,60Z", "#94623F") + \
        disc(135, 24, 9, GOLD) + disc(135, 158, 84, BRASS) + disc(135, 158, 72, "#DFF5F2")
    b += '<clipPath id="dial"><circle cx="135" cy="158" r="72"/></clipPath><g clip-path="url(#dial)">' + \
        shape("M60,166 q12,-14 25,0 t25,0 t25,0 t25,0 t25,0 t25,0 V240 H60Z", TEAL) + \
        shape("M50,192 q12,-14 25,0 t25,0 t25,0 t25,0 t25,0 t25,0 t25,0 V250 H50Z", LAGOON) + "</g>"
    b += "".join(line(f"M{on(135, 158, 60, a)} L{on(135, 158, 69, a)}", INK, 5) for a in range(0, 360, 30))
    b += line("M135,158 L135,110 M135,158 L170,140", INK, 8) + disc(135, 158, 8, RED) + \
        box(92, 256, 86, 68, INK, 6) + line("M135,256V296", GOLD, 5) + disc(135, 300, 15, GOLD)
    b += shape("M72,336 H198 L186,366 C188,390 176,398 172,384 C168,366 158,376 158,398 C156,420 140,420"
            " 138,396 C136,376 124,372 120,388 C114,404 102,396 104,378 L84,366Z", TEAL) + \
                drop(150, 412, .9, TEAL)
    return Scene(b, "", focus=(135, 210, 370))


def crab_pot():
    b = shape("M44,330 V218 C44,150 88,116 135,116 C182,116 226,150 226,218 V330Z", "#123440")
    b += put(crab_body(), 52, 146, .62)
    bars = "".join(line(f"M{x},330 V{y}", "#E3BC7C", 8) for x, y in ((80, 142), (135, 116), (190, 142))) + \
        line("M50,206 H220", "#C99C5E", 9)
    b += bars + line("M44,330 V218 C44,150 88,116 135,116 C182,116 226,150 226,218 V330Z", "#E3BC7C", 14) + \
        box(28, 322, 214, 24, BARK, 7) + disc(135, 108, 13, BRASS)
    return Scene(b, line("M135,108 C120,60 150,40 140,-120", CREAM, 8),
        shape("M-120,372 Q40,346 135,362 T390,352 V540 H-120Z", "#C9B68A"), focus=(135, 222, 290))


def sunken_bell():
    b = '<g transform="rotate(-12 135 220)">' + \
        shape("M135,70 C196,72 200,150 206,232 C210,282 226,306 248,326 H22 C44,306 60,282 64,232 C70,150"
                " 74,72 135,70Z", "#C98A3A") + shape("M135,70 C164,72 150,180 156,326 H248 C226,306 210,282"
                        " 206,232 C200,150 196,72 135,70Z", "#9A6628")
    b += box(14, 316, 242, 26, "#E0B050", 10) + line("M70,210 H202 M66,236 H204", "#E9C878", 7) + \
        shape("M104,72 C104,36 166,36 166,72", None, None, "#9A6628", 15) + \
        line("M92,120 C84,170 84,220 74,290", "#F2D48A", 8)
    b += "".join(disc(x, y, r, c)
        for x, y, r, c in ((206, 292, 15, PINE), (190, 306, 11, MOSS), (60, 300, 12, MOSS),
            (184, 110, 9, MOSS))) + '</g>'
    light = shape("M50,366 L-40,470 H310 L236,330Z", "#FFE9A0", .75) + oval(142, 352, 112, 20, "#FFF6C8", -10)
    return Scene(put(light + b, 14, 24, .88), glow(142, 350, 150, "#FFE9A0", 4, .12),
        shape("M-120,392 Q40,366 135,386 T390,376 V540 H-120Z", "#C9B68A") , focus=(135, 222, 330))


def bathysphere_light():
    beam = shape("M110,206 L-120,80 L-120,330Z", "#FFF1B8", .7) + \
        shape("M110,206 L-120,140 L-120,270Z", WHITE, .8)
    b = line("M150,96 V-120", INK, 12) + disc(150, 84, 20, None, None, SLATE, 11) + \
        disc(150, 226, 120, "#6B7F92") + \
        shape("M150,106 A120,120 0 0 1 150,346 A150,150 0 0 0 150,106Z", "#4C5E70") + \
        box(110, 94, 80, 26, SLATE, 8)
    b += line("M36,190 Q150,140 266,192 M34,266 Q150,316 266,262", "#3B4A5A", 9) + \
        "".join(disc(150 + 107 * math.cos(math.radians(a)), 226 + 107 * math.sin(math.radians(a)), 6, BRASS)
        for a in range(0, 360, 24))
    b += disc(118, 216, 66, BRASS) + "".join(disc(x, y, 6, BRONZE) for x, y, _ in around(10, 58, 118, 216)) + \
        disc(118, 216, 50, AMBER) + disc(112, 212, 34, "#FFF6C8") + disc(106, 208, 17, WHITE)
    return Scene(put(b, 14, 16, .88), put(beam, 14, 16, .88), waves(300, TEAL, 26, 9, 0, .75) +
        waves(330, "#13596B", 24, 8) + waves(360, "#0F4558", 26, 8, 12) + waves(390, "#0B3444", 30, 9),
        focus=(138, 206, 310), backdrop=tide_top())


ALL = {"tide": [high_water, mirror_pool, coral_piano, undertow, salt_rain, fishing_line, sluice_gate,
                spring_tide, crab_creel, old_anchor, tide_table, crab_pot, sunken_bell, bathysphere_light]}
