"""Creatures and keepers of ROOT: green, the ones that grow."""
from .shapes import *
from .scene import Scene, bands


def root_dusk():
    """The garden at evening, for what is itself green."""
    return bands(("#F0B98A", "#F4CC9A", "#F7DEB0"), 110, 90) + \
        shape(f"M{-FAR},330 Q40,276 135,326 T{W + FAR},310 V{H + FAR} H{-FAR}Z", "#7A9A5E") + \
        shape(f"M{-FAR},376 Q30,346 120,372 T{W + FAR},362 V{H + FAR} H{-FAR}Z", "#587A4A")


def moss_hedgehog():
    spikes = "".join(put(shape("M-13,0 L0,-44 L13,0Z", c), x, y, 1, t + 90) for (x, y, t), c in zip(
        [(118 + 92 * math.cos(math.radians(a)), 250 + 84 * math.sin(math.radians(a)), a)
         for a in range(-205, 12, 18)], [MOSS, FERN] * 7))
    b = spikes + shape("M22,290 C10,190 60,150 120,150 C190,150 226,210 216,300 Z", FERN)
    b += "".join(put(shape("M-10,0 L0,-32 L10,0Z", c), x, y, 1, t) for x, y, t, c in (
        (66, 232, -40, MOSS), (96, 204, -20, LEAF), (134, 200, 4, MOSS), (168, 222, 20, LEAF),
        (60, 276, -40, LEAF), (96, 256, -24, MOSS), (132, 250, 0, LEAF), (166, 268, 12, MOSS)))
    b += shape("M150,296 C150,250 178,226 206,232 C226,238 236,262 262,278 C258,296 236,306 200,308Z",
               "#E8C79A") + disc(262, 281, 9, INK) + eye(212, 262, 7)
    b += disc(184, 238, 13, "#C99A68") + shape("M40,290 Q130,330 214,296 L206,318 H46Z", "#E8C79A")
    b += "".join(oval(x, 322, 17, 9, "#B98552") for x in (74, 116, 176, 208))
    flowers = "".join("".join(disc(x + dx, y + dy, 6, c) for dx, dy in
                              ((0, -7), (7, 0), (0, 7), (-7, 0))) + disc(x, y, 5, AMBER)
                      for x, y, c in ((84, 178, WHITE), (150, 170, ROSE), (46, 232, ROSE)))
    return Scene(put(b + flowers, 2, 20, .93), focus=(138, 236, 290), backdrop=root_dusk())


def hive_hat():
    post = box(122, 330, 26, 120, WOOD) + box(122, 330, 9, 120, BARK)
    b = post + shape("M82,308 L70,126 Q135,106 200,126 L188,308Z", "#3B3350")
    b += shape("M70,126 Q135,106 200,126 Q135,146 70,126Z", "#554A73")
    b += shape("M77,262 Q135,282 193,262 L190,294 Q135,314 81,294Z", AMBER)
    b += shape("M28,312 Q135,352 242,312 Q250,292 232,296 Q190,318 135,318 Q80,318 38,296 Q20,292 28,312Z",
               "#3B3350") + shape("M86,140 L94,256 L108,260 L102,142Z", "#6A5D8C")
    b += oval(138, 216, 22, 17, INK) + oval(138, 214, 16, 11, AMBER)
    b += bee(64, 190, .62, 10) + bee(222, 176, .66, -8, -1) + bee(206, 84, .56, -20, -1) + \
        bee(74, 86, .6, 20)
    trail = "".join(disc(x, y, 3, CREAM, .9) for x, y in
                    ((20, 160), (28, 176), (104, 66), (118, 60), (174, 66), (160, 60)))
    return Scene(b, trail, focus=(138, 205, 290))


def bean_sprout():
    tiles = "".join(shape(f"M{x},{y} h60 v34 q-30,26 -60,0z", c) for y, c, s in
                    ((300, "#C9694A", 0), (336, "#A84F38", -30), (376, "#8A3D2E", 0))
                    for x in range(-120 + s, 400, 60))
    crack = poly(((62, 330), (96, 298), (112, 318), (142, 290), (162, 320), (196, 300), (212, 336),
                  (170, 352), (106, 350)), INK)
    b = blob(((96, 330), (78, 270), (96, 206), (140, 190), (180, 212), (190, 262), (172, 332)), LEAF)
    b += shape("M92,322 C84,280 92,236 112,216 C100,250 104,296 118,336Z", WHITE, .35)
    b += taper(((140, 196), (138, 160), (134, 128)), 14, 10, FERN)
    b += put(leaf(0, 0, 2.3, MOSS), 134, 132, 1, -62) + put(leaf(0, 0, 2.3, MOSS), 134, 132, 1, 58)
    b += eye(118, 252, 9) + eye(158, 252, 9) + smile(138, 274, 16, FOREST, 5) + \
        oval(102, 272, 9, 6, ROSE) + oval(174, 272, 9, 6, ROSE)
    shards = poly(((30, 250), (58, 240), (50, 272)), "#A84F38") + \
        poly(((220, 238), (246, 256), (218, 270)), "#A84F38")
    front = shape("M62,340 L100,318 L120,344 L146,322 L164,346 L194,324 L214,344 L196,372 H80Z", "#A84F38")
    return Scene(b + shards, tiles + crack, front, focus=(138, 212, 280))


def gutter_frog():
    rain = "".join(line(f"M{x},{y} l-10,34", SNOW, 4, .8) for x, y in
                   ((30, 30), (84, 4), (140, 36), (206, 8), (254, 50), (20, 130), (256, 150), (60, 84),
                    (232, 96)))
    b = oval(64, 282, 44, 40, FERN) + oval(206, 282, 44, 40, FERN)
    b += blob(((50, 300), (52, 210), (80, 160), (135, 146), (190, 160), (218, 210), (220, 300)), MOSS)
    b += oval(135, 270, 58, 46, "#D7EFAE")
    b += disc(86, 142, 31, MOSS) + disc(184, 142, 31, MOSS) + big_eye(86, 140, 21, 3, 2, AMBER) + \
        big_eye(184, 140, 21, -3, 2, AMBER)
    b += line("M70,206 Q135,250 200,206", FOREST, 6) + oval(66, 190, 10, 7, ROSE) + \
        oval(204, 190, 10, 7, ROSE)
    gutter = shape("M-120,296 H390 V316 Q390,366 340,366 H-70 Q-120,366 -120,316Z", "#7D93A6") + \
        box(-120, 290, 510, 16, "#B9C9D6", 6) + box(40, 296, 14, 70, SLATE) + box(214, 296, 14, 70, SLATE)
    toes = "".join(oval(x, 300, 9, 13, MOSS) for x in (84, 102, 120, 150, 168, 186))
    return Scene(b + gutter + toes, rain, focus=(135, 222, 290))


def rooftop_goat():
    roof = shape("M-120,470 L-20,330 H390 V470Z", "#A84F38") + box(-40, 322, 430, 22, "#C9694A", 8) + \
        "".join(line(f"M{x},350 l-30,80", "#8A3D2E", 4) for x in range(20, 400, 44))
    vane = line("M40,330 V120", SLATE, 7) + line("M2,176 H84", SLATE, 6) + \
        shape("M-4,176 l16,-14 v28z", SLATE) + \
            shape("M22,122 C14,96 30,84 42,94 C44,78 62,74 70,92 L84,90 L72,104"
                                                     " C70,126 40,136 22,122Z", GOLD)
    b = shape("M112,196 C140,178 210,178 236,200 C250,222 246,262 232,276 H128 C112,262 104,226 112,196Z",
        WHITE)
    b += "".join(shape(f"M{x},250 L{x + 20},250 L{x + 16},326 H{x + 4}Z", c) for x, c in
                 ((146, STEEL), (196, STEEL), (124, WHITE), (216, WHITE)))
    b += "".join(box(x, 314, 18, 12, INK, 3) for x in (126, 148, 198, 218))
    b += shape("M236,200 C252,190 258,178 262,164 C244,170 232,182 230,196Z", WHITE)
    b += shape("M150,204 C140,190 144,156 128,140 C108,128 88,148 72,168 C66,184 78,196 96,192"
               " C104,208 116,232 134,232Z", WHITE)
    b += shape("M92,190 C88,210 92,228 104,238 C108,222 110,208 106,194Z", STEEL)
    b += shape("M118,138 C120,104 148,88 172,96 C152,104 142,120 138,146Z", "#6E5B48") + \
        shape("M104,140 C100,112 118,92 140,88 C124,104 120,120 122,140Z", "#8A745C")
    b += oval(142, 158, 20, 9, STEEL, 24) + eye(104, 156, 6, -1) + line("M72,180 q12,8 22,2", INK, 3)
    return Scene(vane + b, roof, focus=(138, 210, 286))


def seedling():
    b = taper(((124, 290), (106, 326), (110, 358), (86, 372)), 22, 10, "#C9A46E")
    b += taper(((148, 290), (172, 320), (168, 350), (198, 362)), 22, 10, "#C9A46E")
    b += blob(((96, 290), (84, 240), (104, 200), (136, 192), (170, 202), (188, 244), (174, 290), (136, 304)),
        "#D9B884")
    b += taper(((136, 200), (140, 160), (134, 128)), 15, 11, MOSS)
    b += leaf(134, 134, 2.6, LEAF, -50) + leaf(136, 134, 2.6, MOSS, 56)
    b += taper(((92, 250), (64, 240), (46, 216)), 12, 7, "#C9A46E") + \
        taper(((180, 250), (208, 262), (226, 246)), 12, 7, "#C9A46E")
    b += eye(118, 246, 8) + eye(154, 246, 8) + smile(136, 264, 12, BARK, 5)
    return Scene(b, "", oval(96, 384, 40, 8, "#2A5636", 0, .6) + oval(190, 376, 36, 7, "#2A5636", 0, .6),
                 focus=(136, 222, 300))


def roof_bee():
    b = bee(132, 232, 2.6)
    b += line("M184,204 L214,216", INK, 9) + disc(192, 222, 5, WHITE)
    trail = "".join(disc(x, y, 4, "#2A5636", .8) for x, y in
                    ((4, 300), (14, 322), (34, 334), (56, 330)))
    return Scene(b, trail, roofs(396, "#A84F38", 2), focus=(128, 212, 270))


def bee_queen():
    cells = "".join(poly([(x + 26 * math.cos(math.radians(a)), y + 26 * math.sin(math.radians(a)))
                          for a in range(30, 390, 60)], c) + poly(
        [(x + 18 * math.cos(math.radians(a)), y + 18 * math.sin(math.radians(a)))
                    for a in range(30, 390, 60)], d)
        for x, y, c, d in [(135 + dx * 46 + (r % 2) * 23, 108 + r * 40, GOLD,
                    "#B87A1E" if (dx + r) % 2 else AMBER)
                           for r in range(8) for dx in (-2, -1, 0, 1, 2)])
    wings = mirror(oval(56, 226, 30, 70, SNOW, 40) + oval(62, 290, 22, 50, WHITE, 60))
    b = wings + oval(135, 296, 62, 76, AMBER) + "".join(
        shape(f"M{135 - w},{y} Q135,{y + 22} {135 + w},{y}"
              f" L{135 + w - 3},{y + 20} Q135,{y + 44} {138 - w},{y + 20}Z", INK)
        for y, w in ((268, 59), (306, 61), (340, 47)))
    b += disc(135, 196, 50, "#5A4026") + oval(135, 208, 38, 32, AMBER)
    b += big_eye(115, 198, 13, 2, 2) + big_eye(155, 198, 13, -2, 2) + smile(135, 220, 12, RUST, 5)
    b += shape("M90,158 L82,92 L110,126 L135,80 L160,126 L188,92 L180,158 Q135,142 90,158Z", "#FFE9A8") + \
        disc(135, 126, 8, RED) + disc(135, 78, 7, RED) + disc(82, 90, 6, RED) + disc(188, 90, 6, RED)
    b += mirror(line("M176,280 Q216,262 208,236", INK, 8))
    return Scene(b, cells, focus=(135, 216, 290))


def walking_chimney():
    smoke = "".join(disc(x, y, r, c)
        for x, y, r, c in ((150, 84, 18, "#E7EEF0"), (176, 62, 22, WHITE), (206, 36, 26, "#E7EEF0")))
    b = "".join(box(x, y, w, 26, "#A84F38", 4)
        for x, y, w in ((76, 306, 36, ), (66, 332, 36), (58, 356, 62), (160, 306, 36), (176, 330, 36),
            (184, 356, 64)))
    b += box(70, 132, 130, 178, "#8E4A3C", 5)
    for row in range(6):
        for col in range(3):
            x = 76 + col * 42 - (row % 2) * 14
            b += box(max(x, 74), 138 + row * 28, min(38, 196 - max(x, 74)), 23,
                ("#C9694A", "#B5654E")[(row + col) % 2], 3)
    b += box(58, 108, 154, 32, "#B5654E", 5) + box(58, 128, 154, 12, "#8E4A3C", 4)
    b += big_eye(112, 206, 17, 4, 2) + big_eye(162, 206, 17, 4, 2) + line("M114,250 q24,16 48,-2", INK, 6)
    fern = "".join(curve(((84, 112), (84 + dx * .5, 84), (84 + dx, 74 + abs(dx) * .5)), c, 9) for dx, c in
                   ((-34, FERN), (-12, MOSS), (12, LEAF), (36, MOSS)))
    return Scene(fern + b, smoke, focus=(138, 222, 310))


def bookworm():
    books = "".join(box(x, y, w, 34, c, 4) + box(x + w - 34, y + 6, 30, 22, CREAM, 2) +
        box(x + 18, y, 9, 34, AMBER)
                    for x, y, w, c in ((22, 352, 222, "#7E3B5C"), (40, 318, 196, "#2F6F8A"),
                            (18, 284, 214, RUST),
                                       (44, 250, 188, PLUM)))
    worm = taper(((60, 300), (30, 250), (60, 206), (116, 214), (140, 172), (130, 130)), 46, 58, LEAF)
    worm += line("M34,270 L62,256 M52,210 L76,236 M96,190 L102,232 M116,184 L160,190", MOSS, 6)
    worm += disc(134, 124, 46, LEAF) + disc(116, 122, 22, WHITE) + disc(162, 122, 22, WHITE) + \
        disc(116, 122, 22, None, None, INK, 6) + disc(162, 122, 22, None, None, INK, 6) + \
            line("M138,120 h2", INK, 6) + \
        disc(119, 126, 8, INK) + disc(159, 126, 8, INK) + smile(139, 150, 11, FOREST, 5)
    front = put(box(-52, -62, 104, 76, "#C9502E", 5) + box(-46, -58, 92, 66, CREAM, 3) +
        line("M0,-58V8", "#C9B68A", 4) +
                line("M-36,-44h26M-36,-30h26M-36,-16h20M12,-44h26M12,-30h26M12,-16h18", SLATE, 4), 196, 240,
                    1, 12)
    return Scene(books + worm + front, focus=(135, 232, 310))


def mossback():
    trees = "".join(box(x - 5, y - 30, 10, 34, BARK) + disc(x, y - 46, r, c) for x, y, r, c in
                    ((76, 166, 26, FERN), (118, 142, 32, MOSS), (164, 148, 28, FERN), (200, 180, 22, MOSS)))
    hill = shape("M14,286 C14,190 70,140 132,140 C200,140 240,196 238,286Z", FOREST) + \
        shape("M14,286 C14,190 70,140 132,140 C176,140 208,164 224,204 C180,190 150,214 120,206 C84,198"
                " 60,240 14,286Z", FERN)
    hill += "".join(poly(((x, y), (x + 22, y - 18), (x + 44, y), (x + 36, y + 26), (x + 8, y + 26)), MOSS)
        for x, y in ((58, 236), (110, 230), (162, 236)))
    legs = "".join(shape(f"M{x},276 h44 l6,84 h-56z", "#8A8F62") for x in (32, 158))
    head = blob(((206, 250), (240, 216), (272, 222), (284, 250), (268, 276), (226, 292), (200, 286)),
        "#A6AB78") + eye(262, 242, 7) + line("M258,268 q14,0 24,-10", "#5D6244", 5) + \
        line("M252,228 l18,-3", "#5D6244", 5)
    rim = box(6, 274, 234, 20, "#6E7350", 10)
    return Scene(put(trees + legs + head + hill + rim, 0, 24, .92), "", waves(338, "#5CB3B0", 26, 8) +
        waves(364, "#3C8F98", 28, 8, 12), focus=(135, 226, 310), backdrop=root_dusk())


def scarecrow():
    post = box(126, 230, 18, 240, BARK) + box(4, 214, 262, 16, WOOD, 6)
    hay = "".join(line(f"M{x},222 l{d},{e}", AMBER, 6)
        for x, d, e in ((14, -16, -16), (12, -18, 6), (16, -12, 24), (256, 16, -16), (258, 18, 6),
            (254, 12, 24)))
    coat = shape("M84,196 H186 L262,206 L260,240 L192,244 L206,368 H64 L78,244 L10,240 L8,206Z", "#F0C53A")
    coat += line("M135,200V366", "#C29420", 5) + \
        "".join(disc(150, y, 6, BARK) for y in (236, 272, 308, 344)) + box(84, 300, 34, 30, "#C29420", 4) + \
        put(box(-15, -14, 30, 28, RED, 3) + line("M-15,-5l6,0M9,5l6,0", CREAM, 3), 176, 296, 1, 12)
    head = disc(135, 156, 50, "#E6CFA0") + \
        line("M112,150l14,-12M126,150l-14,-12M146,150l14,-12M160,150l-14,-12", INK, 5) + \
        line("M108,176q27,20 54,0 M116,174v12M135,178v12M154,174v12", INK, 4)
    hat = shape("M52,130 Q135,96 218,130 Q226,142 210,142 H60 Q44,142 52,130Z", "#8A6A44") + \
        shape("M88,120 C90,80 180,80 182,120Z", "#A3804F")
    return Scene(post + hay + coat + head + hat + fish(136, 92, 1.7, "#7FC6D6", "#3E8FA8", -14),
        focus=(135, 212, 300))


def fenn_mossop():
    can = put(box(-30, -26, 60, 56, "#6FA6A0", 8) + line("M-28,-6 L-66,-34 L-70,-26", "#6FA6A0", 12) +
        line("M-10,-26 q18,-40 40,0 M30,-14 q30,6 8,34", "#3F7670", 8) +
        shape("M-80,-38 l16,-12 l4,26z", "#3F7670"), 226, 330, .9)
    b = shape("M14,470 C14,330 70,300 135,300 C200,300 256,330 256,470Z", "#B5763E") + \
        shape("M86,306 V470 H70 V320Z M184,306 V470 H200 V320Z", "#7A4A2A")
    b += oval(135, 220, 72, 70, SKIN) + oval(84, 232, 18, 12, ROSE, 0, .8) + \
        oval(186, 232, 18, 12, ROSE, 0, .8) + eye(108, 210, 8) + eye(162, 210, 8)
    b += shape("M122,222 q13,-10 26,0 q8,22 -13,22 q-21,0 -13,-22z", "#D08F63")
    b += blob(((66, 236), (92, 252), (135, 248), (178, 252), (204, 236), (212, 290), (186, 346), (135, 372),
            (84, 346), (58, 290)), FERN)
    b += "".join(disc(x, y, r, c)
        for x, y, r, c in ((82, 286, 20, MOSS), (120, 300, 24, LEAF), (164, 292, 24, MOSS),
            (190, 276, 14, LEAF), (110, 340, 18, MOSS), (152, 336, 18, LEAF), (96, 262, 12, LEAF)))
    b += smile(135, 262, 20, "#5A2D2D", 6) + disc(100, 308, 5, WHITE) + disc(170, 320, 5, ROSE) + \
        disc(140, 352, 5, WHITE)
    b += shape("M20,186 Q135,142 250,186 Q262,200 240,204 Q135,172 30,204 Q8,200 20,186Z", "#E8C25A") + \
        shape("M74,170 C78,104 192,104 196,170 Q135,150 74,170Z", "#F2D479") + \
        line("M76,164 Q135,146 194,164", RUST, 9)
    snail = disc(156, 92, 30, "#C98F5A") + line("M170,98 C172,78 148,74 146,90 S160,104 160,94", BARK, 5) + \
        taper(((190, 120), (150, 122), (112, 116), (96, 92)), 8, 18, "#E9D6A8") + \
        line("M92,86 L84,64 M100,84 L102,62", "#E9D6A8", 5) + disc(84, 62, 4, INK) + disc(102, 60, 4, INK)
    return Scene(b + snail + can, focus=(135, 212, 300))


ALL = {"root": [moss_hedgehog, hive_hat, bean_sprout, gutter_frog, rooftop_goat, seedling, roof_bee,
                bee_queen, walking_chimney, bookworm, mossback, scarecrow, fenn_mossop]}
