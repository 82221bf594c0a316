"""Lights, fittings and lighthouses of ROOT: green, the ones that grow."""
from .root_creatures import root_dusk
from .shapes import *
from .scene import Scene


def ivy_wall():
    bricks = box(-120, -120, 510, 660, "#9E5542")
    for row in range(-3, 12):
        for col in range(-2, 5):
            x, y = col * 92 + (row % 2) * 46, row * 48
            bricks += box(x + 2, y + 2, 87, 43, ("#B5654E", "#BE6F55")[(row + col) % 2])
    window = shape("M94,262 V176 Q135,122 176,176 V262Z", BARK) + \
        shape("M104,254 V180 Q135,140 166,180 V254Z", AMBER) + line("M135,150V254M104,208H166", BARK, 6) + \
        box(84, 258, 102, 14, "#E5D3B0", 4)
    vines = curve(((30, 470), (44, 340), (26, 220), (50, 110), (40, -60)), FOREST, 9) + \
        curve(((220, 470), (236, 350), (216, 250), (238, 130), (214, 20), (220, -80)), FOREST, 9) + \
        curve(((44, 340), (100, 316), (170, 330), (236, 350)), FOREST, 8) + \
        curve(((50, 110), (100, 92), (160, 104), (238, 130)), FOREST, 8)
    spots = [(28, 390), (60, 360), (18, 330), (52, 300), (12, 270), (46, 240), (10, 200), (56, 180), (20, 150),
             (62, 120), (26, 90), (60, 60), (24, 30), (220, 386), (252, 360), (210, 330), (250, 300),
             (204, 280), (246, 250), (208, 222), (256, 200), (214, 170), (252, 140), (210, 110), (246, 80),
             (204, 60), (244, 24), (100, 330), (140, 308), (176, 340), (100, 84), (140, 112), (178, 88),
             (90, 370), (150, 380), (128, 346), (120, 50), (160, 60), (190, 34), (86, 20)]
    leaves = "".join(put(shape("M0,22 C-6,8 -26,8 -24,-8 C-14,-6 -12,-14 0,-26 C12,-14 14,-6 24,-8"
                               " C26,8 6,8 0,22Z", (MOSS, FERN, LEAF)[i % 3]), x, y, 1.05, i * 47 % 80 - 40)
                     for i, (x, y) in enumerate(spots) if i % 3)
    return Scene(window + vines + leaves, backdrop=bricks, focus=(135, 205, 250))


def pumpkin_boat():
    sail = curve(((150, 250), (152, 160), (140, 60)), BARK, 9) + \
        shape("M146,232 C56,214 36,124 130,44 C150,110 160,170 146,232Z", LEAF) + \
        shape("M150,216 C206,196 216,130 138,60 C154,120 160,170 150,216Z", MOSS) + \
        line("M142,214 C120,160 116,120 130,60 M138,170 L92,136 M134,130 L100,104", FERN, 4)
    b = shape("M20,262 C20,236 250,236 250,262 C256,330 206,366 135,366 C64,366 14,330 20,262Z", ORANGE)
    b += shape("M78,250 C60,290 70,340 104,364 C80,360 44,340 34,300 C30,280 30,262 40,252Z", "#D86F28")
    b += shape("M192,250 C210,290 200,340 166,364 C190,360 226,340 236,300 C240,280 240,262 230,252Z",
        "#D86F28")
    b += line("M135,256 C128,300 130,340 135,364", "#D86F28", 6)
    b += oval(135, 258, 104, 22, "#7E3B1A") + oval(135, 264, 90, 13, "#FFD48A")
    b += oval(178, 240, 18, 22, "#B9835A") + disc(166, 220, 9, "#B9835A") + disc(190, 220, 9, "#B9835A") + \
        eye(172, 238, 3.5) + eye(185, 238, 3.5) + oval(135, 274, 92, 12, ORANGE)
    return Scene(sail + b, "", waves(340, "#4FA7A0", 26, 9) + waves(372, "#2E7F86", 28, 9, 10),
                 focus=(135, 212, 310))


def toadstool(x, y, s, cap=RED):
    return put(shape("M-14,0 C-8,-20 -10,-30 -8,-44 H8 C10,-30 8,-20 14,0Z", CREAM) +
               shape("M-36,-40 C-34,-76 34,-76 36,-40 Q0,-28 -36,-40Z", cap) + disc(-14, -52, 6, WHITE) +
               disc(8, -58, 7, WHITE) + disc(22, -46, 4.5, WHITE), x, y, s)


def mushroom_ring():
    roof = shape("M-120,470 L0,262 H270 L390,470Z", "#6D7F8C") + box(-40, 250, 350, 16, "#93A6B2", 4)
    back = "".join(toadstool(x, y, s)
        for x, y, s in ((135, 258, .95), (88, 270, 1), (182, 270, 1), (52, 296, 1.1),
                                                      (218, 296, 1.1)))
    lights = "".join(disc(x, y, r, WHITE) for x, y, r in
                     ((112, 296, 6), (150, 306, 7), (134, 276, 5), (166, 290, 5), (108, 322, 5)))
    front = "".join(toadstool(x, y, s) for x, y, s in ((40, 344, 1.25), (230, 344, 1.25), (84, 382, 1.4),
                                                       (186, 382, 1.4), (135, 394, 1.5)))
    return Scene(back + lights + front, roof + glow(135, 300, 110, "#FFF6B8", 4, .25), focus=(135, 300, 250))


def compost():
    steam = "".join(curve(((x, 180), (x - 14, 140), (x + 12, 104), (x - 6, 62)), WHITE, 9, .6)
        for x in (74, 190))
    heap = blob(((34, 268), (50, 214), (100, 186), (135, 176), (186, 190), (226, 222), (238, 268)), "#6B4A32")
    bits = leaf(70, 240, 1.1, LEAF, -30) + leaf(210, 240, 1.2, MOSS, 24) + leaf(118, 214, 1, "#D9B23A", -12) + \
        shape("M164,214 q30,-20 46,8 q-20,8 -46,-8z", ORANGE) + line("M92,250 q20,-24 40,-6", AMBER, 9)
    worm = taper(((150, 262), (146, 214), (160, 176), (140, 142)), 30, 26, "#E79A9A") + \
        line("M136,206 L164,204 M142,188 L172,186", "#C97373", 4) + eye(132, 138, 6, -1) + \
            eye(150, 136, 6, -1) + \
        smile(140, 152, 7, "#8A4040", 3)
    b = heap + bits + worm
    b += "".join(box(22, y, 226, 34, c, 4) + line(f"M34,{y + 18} h90 M150,{y + 12} h70", BARK, 3)
                 for y, c in ((258, "#B9824E"), (294, "#A06C3C"), (330, "#B9824E")))
    b += box(14, 246, 24, 132, BARK, 4) + box(232, 246, 24, 132, BARK, 4)
    return Scene(b, steam, focus=(135, 238, 290))


def honey_jar():
    stick = line("M214,40 L168,120", WOOD, 12) + oval(160, 136, 24, 30, WOOD, 30) + \
        "".join(line(f"M{140 + i * 9},{122 + i * 9 - 8} l24,{14}", BARK, 4) for i in range(3))
    thread = taper(((154, 160), (150, 190), (150, 236)), 18, 7, AMBER)
    b = shape("M46,228 H224 C246,250 246,350 226,372 H44 C24,350 24,250 46,228Z", AMBER)
    b += shape("M46,228 H224 C230,236 236,248 238,260 Q135,280 32,260 C34,248 40,236 46,228Z", "#FFE3A0")
    b += shape("M32,318 Q135,338 238,318 C238,344 234,364 226,372 H44 C36,364 32,344 32,318Z", "#D98E2B")
    b += box(40, 206, 190, 28, CREAM, 10) + box(40, 222, 190, 10, "#E0C48A", 5)
    b += oval(135, 300, 58, 34, CREAM) + bee(136, 302, .74)
    b += line("M52,262 V350", WHITE, 8, .7)
    return Scene(stick + thread + b, focus=(138, 222, 310))


def oak_beam():
    wall = "".join(box(x, y, 62, 34, c, 4) for y in range(-120, 540, 38) for x, c in
                   ((-100 + (y // 38 % 2) * 30, "#98A7A0"), (-34 + (y // 38 % 2) * 30, "#B3C0B4")))
    wall = box(-120, -120, 190, 660, "#7B8C84") + wall
    b = poly(((52, 92), (98, 62), (262, 352), (206, 384)), "#9A6A3E") + \
        poly(((52, 92), (72, 79), (228, 371), (206, 384)), "#6E4828")
    b += line("M104,104 L208,286 M92,112 L180,272 M150,220 L230,350", "#6E4828", 4)
    b += oval(150, 196, 12, 18, "#6E4828", -30) + oval(150, 196, 6, 10, "#9A6A3E", -30)
    b += "".join(taper(((x, y), (x + 16, y - 20), (x + 34, y - 30)), 8, 5, FERN) +
        leaf(x + 32, y - 28, 1.3, LEAF, 10) +
                 leaf(x + 32, y - 28, 1.2, MOSS, 74) for x, y in ((136, 132), (176, 204), (214, 272)))
    b += leaf(104, 78, 1.4, LEAF, 16) + leaf(108, 82, 1.2, MOSS, 70)
    ground = box(150, 372, 240, 120, "#6B4A32") + box(150, 366, 240, 14, MOSS, 5)
    return Scene(b, wall + ground, focus=(142, 218, 290))


def graft():
    b = taper(((20, 470), (90, 330), (126, 262)), 62, 44, "#7A5638") + \
        line("M40,430 L108,300 M70,420 L126,300", BARK, 5)
    b += taper(((120, 276), (150, 196), (196, 110), (214, 50)), 32, 10, "#9FB04E")
    b += "".join(put(box(-30, -11, 60, 21, c, 6), x, y, 1, 28) for x, y, c in
                 ((102, 304, RED), (112, 282, "#F08A80"), (122, 260, RED), (132, 238, "#F08A80")))
    b += shape("M150,262 C190,250 206,270 200,292 C182,292 164,284 150,262Z M150,262 C176,284 180,310 166,322"
            " C150,310 144,288 150,262Z", RED)
    b += leaf(176, 160, 2.0, MOSS, 76) + leaf(158, 186, 2.0, LEAF, -56)
    b += put("".join(oval(x, y, 26, 20, WHITE, t) for x, y, t in around(5, 28, turn=-90)) +
             "".join(oval(x, y, 10, 7, ROSE, t) for x, y, t in around(5, 18, turn=-90)) +
                 disc(0, 0, 13, AMBER), 196, 92, 1.4)
    return Scene(b, focus=(146, 210, 310))


def family_pear():
    tub = shape("M40,300 H236 C232,352 206,376 182,376 H94 C70,376 44,352 40,300Z", WHITE) + \
        box(28, 288, 220, 20, STEEL, 10) + \
        shape("M88,372 q-18,8 -20,28 h18 q4,-14 18,-22z M188,372 q18,8 20,28 h-18 q-4,-14 -18,-22z", BRASS)
    trunk = shape("M110,296 C120,252 118,222 96,190 L112,180 L134,206 L160,170 L176,184 C156,220 156,256"
            " 168,296Z", "#7A5638") + \
        heart(138, 262, 1.25, CREAM) + line("M133,258 v9 M140,267 v-9 q5,0 5,4 t-5,3", BARK, 2.4)
    crown = "".join(disc(x, y, r, c) for x, y, r, c in
                    ((80, 154, 50, FERN), (196, 150, 50, FERN), (138, 110, 62, FERN), (100, 124, 44, MOSS),
                            (176, 120, 40, MOSS), (138, 84, 34, LEAF)))
    pear = shape("M150,146 C164,148 164,166 170,178 C182,200 168,222 148,222 C128,222 114,200 128,178"
            " C134,166 136,148 150,146Z", GOLD) + \
        shape("M134,182 C140,172 142,162 146,156 C140,180 136,196 144,212 C132,208 128,194 134,182Z", WHITE,
            .6) + line("M150,148 q0,-12 8,-18", BARK, 5) + leaf(154, 140, .8, LEAF, 60)
    return Scene(tub + trunk + crown + pear, "", focus=(138, 220, 310))


def garden_party():
    lamps = curve(((-20, 60), (60, 104), (135, 112), (210, 104), (290, 60)), INK, 3) + "".join(
        line(f"M{x},{y - 18}v10", INK, 3) + oval(x, y + 8, 20, 24, c) + box(x - 9, y - 18, 18, 6, INK, 2) +
            box(x - 9, y + 28, 18, 6, INK, 2) +
        line(f"M{x - 8},{y - 10}q-6,18 0,36M{x + 8},{y - 10}q6,18 0,36", WHITE, 2.5, .7) for x, y, c in
        ((24, 108, RED), (82, 132, AMBER), (142, 138, TEAL), (200, 130, LILAC), (252, 104, RED)))
    table = shape("M4,282 H266 L286,344 H-16Z", WHITE) + \
        "".join(shape(f"M{x},344 h40 q-20,26 -40,0z", (RED, WHITE)[i % 2])
        for i, x in enumerate(range(-16, 280, 40)))
    table += box(20, 344, 18, 90, WOOD) + box(232, 344, 18, 90, WOOD)
    cake = box(88, 236, 96, 56, "#E8A0A8", 8) + \
        shape("M88,244 h96 v12 q-12,16 -24,0 q-12,16 -24,0 q-12,16 -24,0 q-12,16 -24,0z", CREAM) + \
        box(106, 204, 60, 36, "#E8A0A8", 8) + \
            shape("M106,210 h60 v8 q-10,14 -20,0 q-10,14 -20,0 q-10,14 -20,0z", CREAM) + \
            disc(136, 196, 11, RED) + oval(136, 294, 66, 9, STEEL)
    cups = "".join(shape(f"M{x},264 h40 q0,34 -20,34 q-20,0 -20,-34z", c) +
        line(f"M{x + 40},270 q14,4 -2,18", c, 5) + oval(x + 20, 265, 19, 5, BRONZE)
                   for x, c in ((20, TEAL), (212, AMBER)))
    return Scene(lamps + table + cups + cake, "", focus=(135, 226, 280))


def strangling_vine():
    vine, dark = "#4E9A3E", "#2A6B34"
    rows = (262, 204, 146, 88)
    behind = "".join(taper(((218, y - 30), (140, y - 44), (58, y - 56)), 24, 24, dark) for y in rows)
    oar = box(120, -60, 32, 360, "#D9A468", 10) + box(120, -60, 12, 360, "#B9824E", 8)
    oar += shape("M120,262 C92,276 86,300 86,330 V404 H186 V330 C186,300 180,276 152,262Z", "#D9A468") + \
        shape("M120,262 C92,276 86,300 86,330 V404 H136 V262Z", "#B9824E") + box(86, 330, 100, 20, RED) + \
            box(86, 366, 100, 20, CREAM)
    coil = "".join(taper(((54, y + 6), (92, y + 20), (150, y + 2), (214, y - 24)), 27, 25, vine) +
                   line(f"M62,{y + 2} Q110,{y + 18} 204,{y - 26}", LEAF, 5) +
                   "".join(poly(((x, y + d), (x + 7, y + d - 24), (x + 15, y + d - 4)), vine)
                           for x, d in ((92, 6), (158, -12)))
                   for y in rows)
    leaves = "".join(leaf(216, y - 30, 1.5, LEAF, 62) + leaf(54, y - 6, 1.4, MOSS, -66) for y in rows)
    return Scene(behind + oar + leaves + coil, focus=(136, 236, 350), backdrop=root_dusk())


def moss_blanket():
    bed = box(14, 296, 242, 76, WOOD, 8) + box(4, 220, 24, 170, BARK, 8) + box(242, 270, 24, 120, BARK, 8)
    pillow = oval(74, 262, 60, 34, WHITE)
    m = disc(64, 192, 24, "#8B5B3D") + disc(64, 193, 15, ROSE) + disc(118, 190, 26, "#B9835A") + \
        disc(118, 191, 17, ROSE)
    m += oval(92, 236, 50, 42, "#B9835A") + lids(74, 236, 10) + lids(110, 236, 10) + \
        disc(90, 258, 7, "#5A2D2D") + line("M84,262 L54,258 M84,266 L56,272 M98,262 L130,260", CREAM, 2.5)
    blanket = blob(((60, 290), (110, 262), (150, 216), (204, 214), (246, 254), (256, 330), (230, 366),
            (60, 362), (30, 340), (34, 300)), FERN)
    blanket += "".join(disc(x, y, r, c) for x, y, r, c in
                       ((96, 300, 26, MOSS), (140, 268, 28, MOSS), (184, 240, 26, LEAF),
                               (222, 270, 26, MOSS), (180, 300, 30, LEAF), (120, 334, 26, LEAF),
                        (226, 324, 24, LEAF), (70, 332, 24, MOSS), (170, 344, 24, MOSS)))
    blanket += "".join(line(f"M{x},{y} v-14", FERN, 3) + disc(x, y - 16, 5, c)
        for x, y, c in ((150, 230, ROSE), (206, 222, WHITE), (110, 284, WHITE), (232, 296, ROSE)))
    zs = zed(158, 150, 1.2, FOREST, -8) + zed(188, 112, 1.6, FOREST, 8) + zed(226, 66, 2, FOREST, -6)
    return Scene(pillow + m + bed + blanket, zs, focus=(136, 232, 310))


def snowflake(x, y, r, color=WHITE, width=5):
    barbs = "".join(f"M0,{-r * at}l{-r * part},{-r * part}M0,{-r * at}l{r * part},{-r * part}"
                    for at, part in ((.5, .26), (.78, .18)))
    arm = line(f"M0,0V{-r}{barbs}", color, width)
    return "".join(put(arm, x, y, 1, a) for a in range(0, 360, 60))


def first_frost():
    sky = box(-FAR, -FAR, 510, 660, "#7FA6BC") + shape("M-120,90 Q135,40 390,90 V540 H-120Z", "#97BACB") + \
        disc(200, 88, 42, "#FFF4D6") + disc(200, 88, 62, "#FFF4D6", .3)
    ground = shape("M-120,250 Q135,210 390,250 V540 H-120Z", "#D5E6EE") + \
        shape("M96,236 C120,280 60,330 20,540 H260 C230,340 170,290 166,236Z", "#AFC7D6")
    b = "".join(put(leaf(0, 20, 2.0, c, 0, "#7FA6BC"), x, y, s, t) for x, y, s, t, c in
                ((52, 330, 1.25, -50, WHITE), (214, 324, 1.3, 52, WHITE), (72, 386, 1.5, -80, SNOW),
                        (204, 384, 1.4, 86, SNOW), (140, 384, 1.2, 8, WHITE)))
    b += snowflake(116, 196, 92, WHITE, 11) + disc(116, 196, 13, "#BFE0F0")
    small = snowflake(220, 210, 34, WHITE, 5) + snowflake(30, 70, 30, WHITE, 5)
    return Scene(b, ground, small, focus=(128, 222, 290), backdrop=sky)


def potting_shed():
    b = shape("M64,372 L52,140 L202,128 L226,372Z", "#7FA866") + \
        "".join(line(f"M{x},{y} L{x + 6},372", "#5D8348", 4) for x, y in ((84, 140), (116, 136), (182, 132)))
    b += shape("M30,152 L112,50 L230,134 L216,150 L114,78 L46,164Z", "#7E4A36") + \
        shape("M52,142 L112,78 L204,132Z", "#6A9152")
    b += poly(((124, 210), (186, 206), (194, 372), (130, 372)), BARK) + disc(180, 296, 5, AMBER) + \
        box(76, 186, 36, 40, AMBER, 3) + line("M94,186v40M76,206h36", BARK, 5)
    b += "".join(shape(f"M{x},{y} q20,-12 40,0 l6,52 q-26,10 -52,0z", c) + leaf(x + 20, y + 40, .7, MOSS) +
        line(f"M{x + 2},{y + 4} q18,8 36,0", BARK, 4) for x, y, c in ((30, 330, "#E0C48A"), (76, 340, CREAM)))
    b += shape("M204,330 h44 l-6,44 h-32z", RUST) + leaf(226, 334, 1.2, LEAF, -24) + \
        leaf(226, 334, 1.3, MOSS, 20)
    return Scene(b, "", box(-120, 370, 510, 170, "#8A3D2E") + box(-120, 366, 510, 14, "#A84F38"),
        focus=(134, 218, 320))


def greenhouse_light():
    b = box(32, 206, 206, 130, "#CDEBE0") + shape("M18,212 L135,104 L252,212Z", "#DFF5EC")
    b += "".join(leaf(x, y, s, c, t) for x, y, s, c, t in
                 ((62, 336, 2.0, FERN, -14), (90, 336, 1.7, LEAF, 10), (184, 336, 1.8, LEAF, -12),
                         (212, 336, 2.1, FERN, 16), (76, 330, 1.2, MOSS, -40), (200, 330, 1.2, MOSS, 40)))
    b += disc(135, 250, 40, AMBER) + disc(135, 250, 26, WHITE) + box(128, 284, 14, 52, BRONZE) + \
        box(112, 326, 46, 12, BRASS, 4)
    b += line("M18,212 L135,104 L252,212 M32,206 V336 H238 V206 M84,206V336 M186,206V336 M32,270 H238"
            " M135,104 V160 M76,158 H194 M18,212H252", WHITE, 7)
    b += box(126, 84, 18, 24, "#5D8348", 3) + disc(135, 78, 8, GOLD)
    rays = "".join(shape(f"M135,250 L{x},{y} L{x + dx},{y + dy}Z", "#FFE9A0", .35)
        for x, y, dx, dy in ((-120, 160, 0, 90), (390, 160, 0, 90), (40, -120, 70, 0), (170, -120, 70, 0)))
    roof = shape("M-120,420 L-10,330 H280 L390,420 V540 H-120Z", "#8A3D2E") + \
        box(-20, 326, 310, 18, "#A84F38", 6)
    return Scene(b, rays + roof, waves(388, "#2E7F86", 28, 8), focus=(135, 222, 310))


def mossy_trunk():
    spill = shape("M24,330 C-10,350 0,420 -20,470 H300 C280,420 286,350 246,330Z", LAGOON) + \
        line("M40,350 q-20,40 -30,80 M228,350 q20,40 26,80 M110,360 q-8,40 4,80 M170,360 q10,40 -2,80", TEAL, 7)
    lid = shape("M30,214 C24,120 70,96 135,96 C200,96 246,120 240,214Z", "#6E4828") + \
        shape("M52,206 C50,150 84,126 135,126 C186,126 220,150 218,206Z", INK)
    lid += blob(((22, 160), (40, 108), (90, 78), (150, 84), (210, 92), (246, 130), (250, 170), (226, 150),
            (196, 118), (150, 112), (110, 110), (70, 124), (46, 160)), MOSS)
    cards = "".join(put(box(-22, -34, 44, 68, CREAM, 5) + box(-17, -28, 34, 56, c, 3) +
            (drop(0, 2, 1.3, TEAL) if c == PINE else leaf(0, 18, .9, LEAF)), x, y, 1, t)
        for x, y, t, c in ((92, 200, -20, PINE), (180, 200, 20, FOREST), (136, 186, 0, PINE)))
    b = lid + cards + box(22, 230, 226, 118, "#94623F", 8) + box(22, 230, 226, 20, "#6E4828", 6) + \
        box(22, 332, 226, 16, "#6E4828", 5)
    b += "".join(box(x, 230, 20, 118, "#8FA3B3", 3) for x in (48, 202)) + disc(135, 262, 20, STEEL) + \
        disc(135, 258, 6, INK) + shape("M132,258h6l3,18h-12z", INK)
    b += blob(((22, 234), (70, 226), (90, 250), (60, 280), (44, 330), (20, 330)), MOSS) + \
        blob(((250, 234), (214, 232), (204, 262), (228, 290), (232, 340), (252, 330)), FERN) + \
        leaf(86, 336, 1.3, LEAF, -70) + leaf(186, 330, 1.3, LEAF, 60) + leaf(60, 236, 1.2, LEAF, -30) + \
        leaf(214, 236, 1.2, LEAF, 40)
    return Scene(b, spill, leaf(70, 400, 1, LEAF, 80) + leaf(190, 392, 1, MOSS, -60), focus=(135, 220, 290))


ALL = {"root": [ivy_wall, pumpkin_boat, mushroom_ring, compost, honey_jar, oak_beam, graft, family_pear,
                garden_party, strangling_vine, moss_blanket, first_frost, potting_shed, greenhouse_light,
                mossy_trunk]}
