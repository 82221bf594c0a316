"""The cards of no house: the first lighthouse, chests, stores, and what lies deepest."""
from .shapes import *
from .scene import Scene, bands


def attic_light():
    beam = shape("M135,138 L-120,10 V260Z", AMBER, .5) + shape("M135,138 L390,10 V260Z", AMBER, .5) + \
        shape("M135,138 L-120,80 V200Z M135,138 L390,80 V200Z", CREAM, .5)
    b = box(108, 98, 54, 70, INK, 5) + box(115, 108, 40, 52, "#FFF6C8", 4) + \
        line("M135,108V160M115,134H155", BRONZE, 4) + shape("M94,102 L135,52 L176,102Z", RUST) + \
        disc(135, 48, 8, GOLD)
    b += shape("M60,480 V262 L135,176 L210,262 V480Z", "#F1E0B8") + \
        shape("M135,176 L210,262 V480 H135Z", "#D3BB8C") + \
        shape("M34,280 L135,156 L236,280 L216,294 L135,194 L54,294Z", RUST) + box(96, 162, 78, 13, INK, 4)
    b += disc(135, 268, 31, BARK) + disc(135, 268, 24, AMBER) + line("M135,244V292M111,268H159", BARK, 5) + \
        box(80, 318, 32, 40, AMBER, 3) + box(158, 318, 32, 40, AMBER, 3) + \
        line("M96,318V358M174,318V358", BARK, 4) + box(188, 186, 20, 50, BARK) + box(183, 180, 30, 11, WOOD, 3)
    return Scene(b, beam + glow(135, 134, 70, AMBER, 3, .2), waves(366, "#24406A", 24, 8) +
        waves(390, "#142446", 28, 8, 12), focus=(135, 206, 320))


def starter_chest():
    back = shape("M60,232 L0,-40 H270 L210,232Z", AMBER, .45) + \
        shape("M90,232 L64,20 H206 L180,232Z", CREAM, .5)
    b = shape("M30,190 C30,118 58,100 88,96 H182 C212,100 240,118 240,190 L216,210 H54Z", "#94623F") + \
        shape("M54,206 C56,150 76,128 96,126 H174 C194,128 214,150 216,206Z", INK)
    cards = "".join(put(box(-27, -40, 54, 80, CREAM, 6) + box(-20, -33, 40, 66, d, 4) + star(0, 0, 18, CREAM),
            x, y, 1, t) for x, y, t,
        d in ((88, 210, -24, RUST), (182, 210, 24, PLUM), (135, 192, 0, "#D9902B")))
    b += cards + box(28, 240, 214, 116, "#B5763E", 6) + box(28, 240, 214, 20, WOOD, 5) + \
        "".join(box(x, 240, 24, 116, GOLD, 3) for x in (46, 200)) + box(28, 336, 214, 20, WOOD, 5) + \
        disc(135, 276, 26, GOLD) + disc(135, 271, 8, INK) + shape("M131,271h8l4,22h-16z", INK)
    return Scene(b, back, "".join(star(x, y, r, WHITE)
            for x, y, r in ((64, 76, 15), (206, 66, 18), (135, 50, 12))), focus=(135, 218, 310),
        backdrop=bands(("#3B2350", "#56305A", "#74405C"), 110, 90))


def wick_shop():
    b = box(56, 178, 158, 140, "#A8714A") + box(72, 214, 76, 66, INK, 4) + box(77, 219, 66, 56, AMBER, 3) + \
        "".join(box(x, 242, 11, 33, CREAM, 2) + flame(x + 5.5, 240, .45) for x in (84, 105, 126)) + \
        box(70, 274, 80, 11, WOOD)
    b += box(160, 222, 42, 96, "#5B3A8C", 4) + disc(194, 270, 5, GOLD) + \
        shape("M40,188 L66,132 H204 L230,188Z", RED) + \
        "".join(shape(f"M{66 + i * 39.4:.0f},132 h20 l{-4 + i * 3},56 h-24z", WHITE) for i in range(4))
    b += "".join(disc(52 + i * 23.6, 190, 12, RED if i % 2 else WHITE) for i in range(8)) + \
        line("M135,120V52", INK, 6) + lantern(135, 58, 1.3)
    b += shape("M8,314 H262 C254,352 232,374 202,374 H68 C38,374 16,352 8,314Z", WOOD) + \
        box(2, 304, 266, 18, BARK, 6) + line("M34,344 H236", BARK, 5)
    return Scene(b, glow(135, 108, 90, AMBER, 4, .18), waves(366, "#1B3158", 26, 9, 14) +
        waves(392, "#142446", 30, 8, 4), focus=(135, 218, 330))


def night_barge():
    mast = box(128, 60, 12, 240, BARK, 4) + \
        curve(((-30, 150), (50, 108), (134, 70), (216, 108), (300, 150)), INK, 4)
    lamps = "".join(line(f"M{x},{y - 28}v12", INK, 4) + disc(x, y, 24, c) +
        box(x - 11, y - 27, 22, 7, INK, 2) + box(x - 11, y + 20, 22, 7, INK, 2) +
        line(f"M{x - 8},{y - 20}q-8,20 0,40M{x + 8},{y - 20}q8,20 0,40", WHITE, 3, .8)
                    for x, y, c in ((28, 160, RED), (80, 142, AMBER), (188, 142, TEAL), (242, 160, LILAC),
                            (134, 118, LEAF)))
    crates = "".join(box(x, y, 60, 52, "#C08A54", 4) + box(x, y, 60, 11, "#94623F", 3) +
        star(x + 30, y + 32, 14, c, 4, .4)
        for x, y, c in ((36, 250, AMBER), (104, 250, TEAL), (172, 250, LILAC), (70, 200, RED),
            (140, 200, LEAF)))
    hull = shape("M-14,298 H284 L262,356 H10Z", "#7E4A36") + box(-20, 290, 310, 18, WOOD, 6) + \
        line("M10,330 H262", "#5F3322", 5)
    refl = "".join(oval(x, 388, 16, 5, c)
        for x, c in ((28, RED), (80, AMBER), (134, LEAF), (188, TEAL), (242, LILAC)))
    return Scene(mast + crates + hull + lamps,
        "".join(glow(x, y, 52, c, 3, .14)
            for x, y, c in ((28, 160, RED), (80, 142, AMBER), (188, 142, TEAL), (242, 160, LILAC),
                (134, 118, LEAF))),
                 waves(352, "#1B3158", 26, 7) + refl + waves(398, "#142446", 30, 8, 4), focus=(135, 222, 300))


def mother_fathom():
    hair = "#16305F"
    locks = "".join(taper(pts, 50, 10, c) for pts, c in (
        (((100, 70), (40, 110), (36, 190), (8, 250), (26, 330)), "#1D3C74"),
                (((170, 70), (230, 110), (234, 190), (262, 250), (244, 330)), "#1D3C74"),
        (((112, 90), (66, 150), (70, 230), (40, 300), (56, 380)), hair),
                (((158, 90), (204, 150), (200, 230), (230, 300), (214, 380)), hair)))
    b = locks + disc(135, 92, 66, hair) + \
        shape("M58,480 C56,340 74,262 116,236 H154 C196,262 214,340 212,480Z", "#2E62B0") + \
        box(119, 186, 32, 56, "#6FA6E0", 12) + \
        shape("M106,238 L135,296 L164,238Z", "#6FA6E0")
    b += oval(135, 134, 52, 66, "#7FB4EA") + \
        shape("M82,126 C84,64 186,64 188,126 C170,92 150,84 135,98 C120,84 100,92 82,126Z", hair)
    b += lids(112, 138, 12, INK, 5) + lids(158, 138, 12, INK, 5) + \
        line("M135,142 q5,12 -2,17", "#4A7EC0", 4) + smile(135, 172, 12, "#1B2E5E", 5)
    b += "".join(disc(x, y, 8, c)
        for x, y, c in ((94, 84, AMBER), (120, 68, TEAL), (150, 68, LILAC), (176, 84, LEAF)))
    hands = taper(((78, 300), (74, 352), (116, 366)), 34, 26, "#7FB4EA") + \
        taper(((192, 300), (196, 352), (154, 366)), 34, 26, "#7FB4EA") + \
        shape("M84,350 Q135,384 186,350 Q180,398 135,398 Q90,398 84,350Z", "#7FB4EA")
    return Scene(b + glow(135, 262, 70, "#FFE9A0", 3, .3) + tower(135, 362, .82) + hands,
        glow(135, 250, 150, AMBER, 3, .16), focus=(135, 222, 340),
                 backdrop=bands(("#1890A0", "#127888", "#0E5E72"), 120, 110) + "".join(
                     shape(f"M{x},-120 L{x + 34},-120 L{x - 120},540 L{x - 210},540Z", TEAL, .12)
                             for x in (60, 210, 360)))


def deep_door():
    light = shape("M98,92 L-60,-60 L-120,200 L-120,480 L98,364Z", "#FFE9A0", .30) + \
        shape("M98,360 L186,360 L330,480 H-60Z", "#FFE9A0", .6)
    frame = box(70, 64, 140, 306, "#6D4A8C", 8) + box(88, 82, 104, 288, "#FFF6C8", 3) + \
        box(56, 50, 168, 24, "#8A63AE", 6) + shape("M110,50 Q140,16 170,50Z", "#8A63AE") + \
        disc(140, 42, 9, AMBER)
    door = poly(((192, 82), (248, 108), (248, 404), (192, 370)), "#2F8A8A") + \
        poly(((200, 112), (238, 130), (238, 230), (200, 214)), "#1D6468") + \
        poly(((200, 244), (238, 260), (238, 370), (200, 344)), "#1D6468") + disc(204, 234, 7, GOLD)
    figure = star(140, 196, 30, AMBER, 4, .32) + disc(140, 196, 9, WHITE)
    return Scene(frame + door + figure, light + glow(140, 226, 150, "#FFF6C8", 4, .10),
        shape("M-120,388 Q40,366 135,380 T390,384 V540 H-120Z", "#C9B68A") +
        shape("M92,370 L188,370 L250,440 H40Z", "#FFF1C0", .8), focus=(142, 214, 340),
        backdrop=bands(("#10305A", "#0E2A50", "#0A2040"), 120, 100) +
        specks("#5FA7C8", ((34, 84, 6), (30, 150, 4), (240, 40, 6), (256, 90, 4)), .7))


ALL = {"home": [attic_light, starter_chest, wick_shop, night_barge, mother_fathom, deep_door]}
