"""Lights, fittings and lighthouses of LAMP: amber, the warm ones."""
from .shapes import *
from .scene import Scene, bands


def bright_beam():
    beam = shape("M78,152 L400,20 L400,330 L78,166Z", AMBER, .45) + \
        shape("M78,154 L400,70 L400,270 L78,164Z", CREAM, .6) + \
        shape("M78,157 L400,126 L400,214 L78,161Z", WHITE)
    return Scene(tower(78, 352, 1.45), beam + glow(78, 150, 74, AMBER, 4, .25),
                 shape("M-120,345 Q40,322 80,340 T220,360 V540H-120Z", "#2A1530") +
                     waves(366, "#53304A", 26, 7) + waves(392, "#3A1F3F", 28, 7, 12),
                 focus=(128, 210, 280))


def handful_of_sparks():
    hand = blob(((62, 330), (44, 282), (58, 262), (84, 280), (100, 292), (135, 296), (172, 290), (188, 278),
            (212, 262), (228, 282), (206, 332), (180, 366), (92, 366)), "#D89A6C")
    hand += "".join(oval(x, y, 13, r, "#E3AB7C", t)
        for x, y, r, t in ((46, 270, 38, -28), (84, 274, 36, -10), (120, 276, 34, -3), (154, 276, 34, 4),
            (190, 272, 36, 12), (228, 270, 36, 30)))
    hand += shape("M62,306 Q135,268 210,306 Q190,348 135,350 Q80,348 62,306Z", "#B5744A") + \
        shape("M88,352 H184 L196,470 H76Z", PLUM) + box(80, 346, 112, 22, VIOLET, 8)
    sparks = "".join(star(x, y, r, c, 4, .34, t) + disc(x, y, r * .3, WHITE) for x, y, r, c, t in
                     ((136, 208, 62, AMBER, 0), (66, 168, 38, ORANGE, 20), (208, 172, 40, ORANGE, -15),
                             (104, 92, 32, AMBER, 10), (178, 94, 36, AMBER, -8)))
    return Scene(hand + sparks, glow(136, 190, 150, AMBER, 4, .14), focus=(136, 210, 290))


def great_lens():
    b = shape("M78,330 L100,300 H170 L192,330Z", BRONZE) + box(62, 328, 146, 22, BRASS, 5)
    b += oval(135, 186, 76, 128, BRASS) + oval(135, 186, 64, 116, "#3C6C86")
    for i, c in enumerate(("#5E97AE", "#8CC3CC", "#C6E9E0", CREAM)):
        b += oval(135, 186, 52 - 13 * i, 98 - 24 * i, c)
    b += line("M80,130 Q135,116 190,130 M71,186 H199 M80,242 Q135,256 190,242", BRASS, 6)
    b += disc(135, 186, 17, WHITE) + disc(135, 54, 11, BRASS)
    return Scene(b, glow(135, 186, 170, AMBER, 4, .12), focus=(135, 204, 310))


def firefly_jar():
    b = shape("M70,120 H200 V148 C244,160 248,190 246,220 V330 C246,356 232,366 210,366 H60 C38,366 24,356"
            " 24,330 V220 C22,190 26,160 70,148Z", "#3F6E7A")
    b += shape("M80,160 H190 C226,172 230,196 230,224 V326 C230,344 220,350 206,350 H64 C50,350 40,344 40,326"
            " V224 C40,196 44,172 80,160Z", "#234650")
    dots = "".join(disc(x, y, r * 2.1, AMBER, .35) + disc(x, y, r, "#F6FF9E") for x, y, r in
                   ((90, 220, 13), (150, 196, 10), (190, 244, 14), (130, 266, 16), (74, 296, 12),
                           (180, 314, 13), (124, 324, 9), (206, 204, 7), (60, 250, 7)))
    fly = "".join(put(oval(0, 0, 6, 10, INK) + oval(-7, -2, 7, 4, WHITE, -30) + oval(7, -2, 7, 4, WHITE, 30),
            x, y - 14, 1) for x, y in ((90, 220), (130, 266), (190, 244), (180, 314), (74, 296)))
    lid = put(box(-76, -14, 152, 28, BRASS, 6) + box(-76, 4, 152, 10, BRONZE, 4), 142, 96, 1, -13)
    out = disc(226, 92, 20, AMBER, .4) + disc(226, 92, 10, "#F6FF9E")
    sill = box(-120, 364, 510, 18, "#B98552") + box(-120, 380, 510, 200, BARK)
    return Scene(b + lid, sill + glow(135, 260, 160, "#F6FF9E", 4, .1), dots + fly +
        line("M54,196 V322", WHITE, 8, .6) + out, focus=(136, 226, 310))


def brass_telescope():
    legs = line("M128,262 L60,400 M136,262 L136,404 M144,262 L212,400", WOOD, 13) + \
        line("M92,336 H180", BARK, 7)
    tube = put(box(-104, -26, 92, 52, BRASS, 6) + box(-26, -34, 78, 68, BRASS, 6) +
        box(44, -44, 82, 88, BRASS, 8) + box(-104, 6, 92, 20, BRONZE, 5) + box(-26, 10, 78, 24, BRONZE, 5) +
        box(44, 14, 82, 30, BRONZE, 6) +
               box(-34, -38, 12, 76, GOLD, 4) + box(36, -48, 12, 96, GOLD, 4) +
                   box(118, -50, 16, 100, GOLD, 6) + box(-122, -18, 22, 36, INK, 6) +
                   line("M54,-28H112", CREAM, 6), 122, 222, 1, -38)
    b = legs + disc(136, 262, 20, BRONZE) + tube
    return Scene(b, "", star(236, 62, 40, "#FFF6C8", 4, .3) + disc(236, 62, 8, WHITE) +
        star(150, 40, 15, CREAM) + star(60, 90, 13, CREAM), focus=(140, 214, 330))


def signal_flare():
    sky = bands(("#1B1B36", "#262247", "#3A2850", "#54304F"), 120, 80)
    trail = curve(((96, 420), (110, 330), (128, 260), (136, 200)), "#FFB45A", 10, .9) + \
        curve(((84, 420), (100, 340), (124, 264)), "#F58A3C", 6, .6)
    rays = "".join(put(taper(((0, -44), (0, -80), (d, -118)), 15, 5, c), 136, 164, 1, a)
        for a, c, d in zip(range(0, 360, 30), [ORANGE, RED] * 6, [6, -6] * 6))
    burst = star(136, 164, 76, RED, 12, .6) + star(136, 164, 60, ORANGE, 12, .6, 15) + \
        disc(136, 164, 34, AMBER) + disc(136, 164, 19, WHITE)
    sparks = "".join(disc(x, y, 5, AMBER) for x, y, _ in around(12, 130, 136, 164, 15))
    return Scene(rays + burst, glow(136, 164, 180, RED, 4, .12) + trail + sparks, roofs(372, "#14101F", 2),
        focus=(136, 200, 300), backdrop=sky)


def long_fuse():
    bends = ((108, 176), (98, 130), (46, 132), (36, 84), (84, 62), (122, 96), (164, 116), (196, 84), (214, 52))
    keg = shape("M36,200 Q110,172 184,200 C214,256 214,330 184,384 Q110,408 36,384 C6,330 6,256 36,200Z",
        "#A8623C")
    keg += line("M72,192 C56,256 56,330 72,394 M110,186 V400 M148,192 C164,256 164,330 148,394", "#75421F", 5)
    keg += shape("M24,226 Q110,254 196,226 L200,248 Q110,278 20,248Z", STEEL) + \
        shape("M20,334 Q110,364 200,334 L196,356 Q110,386 24,356Z", STEEL)
    keg += oval(110, 198, 73, 20, "#D08A58") + oval(110, 198, 57, 12, "#75421F") + disc(110, 300, 38, CREAM) + \
        flame(110, 312, 1.05)
    fuse = curve(bends, INK, 15) + curve(bends, "#EBD9B4", 9)
    spark = star(218, 50, 52, ORANGE, 8, .45) + star(218, 50, 34, AMBER, 8, .5, 20) + disc(218, 50, 13, WHITE)
    return Scene(keg + fuse + spark, glow(218, 50, 100, AMBER, 4, .16), focus=(128, 222, 370))


def burning_glass():
    rays = shape("M20,-120 L190,-120 L150,130 L60,130Z", "#FFE9A0", .35)
    beam = shape("M58,170 L158,164 L196,372Z", "#FFE07A", .9) + shape("M92,168 L124,166 L196,372Z", WHITE)
    b = put(box(-13, 84, 26, 110, BARK, 9) + box(-16, 78, 32, 22, BRASS, 5), 106, 130, 1, 62) + \
        disc(106, 130, 82, BRASS) + disc(106, 130, 82, None, None, BRONZE, 6) + \
        disc(106, 130, 64, "#BFE6EE") + \
        shape("M62,110 A50,50 0 0 1 104,80 A66,66 0 0 0 70,130Z", WHITE)
    plank = box(-120, 366, 510, 200, WOOD) + box(-120, 362, 510, 14, "#B98552") + \
        oval(196, 380, 42, 11, INK) + oval(196, 379, 22, 6, ORANGE)
    smoke = curve(((204, 352), (226, 324), (206, 296), (236, 262)), "#E8DCD6", 10, .8) + \
        curve(((180, 356), (166, 330), (184, 310)), "#E8DCD6", 7, .7)
    return Scene(b, rays + plank + beam, smoke + flame(196, 372, .6), focus=(140, 220, 330))


def falling_chandelier():
    arms = line("M135,210 C80,260 40,250 36,200 M135,210 C190,260 230,250 234,200 M135,216 C110,276 88,268"
            " 84,222 M135,216 C160,276 182,268 186,222", GOLD, 10)
    candles = "".join(box(x - 10, y - 44, 20, 44, CREAM, 3) + oval(x, y, 18, 6, BRASS) + flame(x, y - 48, .8)
        for x, y in ((36, 200), (234, 200), (84, 222), (186, 222)))
    core = line("M135,120V290", BRASS, 14) + disc(135, 140, 20, GOLD) + disc(135, 212, 28, BRASS) + \
        disc(135, 292, 18, GOLD)
    gems = "".join(poly(((x, y - 20), (x + 12, y), (x, y + 24), (x - 12, y)), c)
        for x, y, c in ((36, 238, "#BFE6EE"), (234, 238, "#BFE6EE"), (84, 276, SNOW), (186, 276, SNOW),
            (135, 332, "#BFE6EE"), (110, 312, SNOW), (160, 312, SNOW)))
    b = f'<g transform="rotate(20 142 226) translate(-6 0) scale(1.04)">{arms + core + candles + gems}</g>'
    chain = "".join(oval(x, y, 8, 12, None, t).replace('fill="none"',
            f'fill="none" stroke="{GOLD}" stroke-width="5"')
        for x, y, t in ((214, 10, 10), (212, 34, 6), (206, 54, 30), (184, 96, -30)))
    lines = line("M30,40V110 M74,10V90 M254,120V176 M20,300v44 M250,320v40", CREAM, 5, .7)
    return Scene(b + chain, lines, focus=(132, 214, 320))


def iron_stove():
    pipe = box(114, -120, 44, 260, "#3B3F4C") + box(106, 60, 60, 14, "#5A6070", 4) + \
        box(106, 110, 60, 14, "#5A6070", 4)
    b = pipe + shape("M58,348 L44,392 H68 L84,350Z M212,348 L226,392 H202 L186,350Z", INK) + \
        shape("M60,150 C20,200 20,300 60,356 H210 C250,300 250,200 210,150Z", "#4A4F5E")
    b += shape("M60,150 C20,200 20,300 60,356 H84 C54,300 54,200 84,150Z", "#6A7080") + \
        box(46, 134, 178, 24, "#5A6070", 8) + box(40, 346, 190, 20, "#3B3F4C", 8)
    b += box(84, 196, 102, 110, "#2B2E3A", 12) + box(94, 206, 82, 90, RUST, 8) + \
        shape("M98,294 C94,254 116,250 120,222 C144,240 140,252 150,258 C158,248 156,240 160,236 C176,262"
                " 172,280 172,294Z", AMBER) + shape("M118,294 C116,270 132,268 136,250 C150,266 152,280"
                        " 150,294Z", CREAM)
    b += line("M108,206V296 M135,206V296 M162,206V296", "#2B2E3A", 5) + disc(192, 250, 8, BRASS)
    bowl = shape("M186,390 h70 l-8,26 h-54z", TEAL) + oval(221, 390, 35, 8, CREAM)
    return Scene(b + bowl, glow(135, 250, 150, ORANGE, 4, .12), box(-120, 412, 510, 130, BARK),
        focus=(138, 240, 320))


def oil_barrel():
    b = shape("M56,70 Q135,46 214,70 C240,130 240,230 214,290 Q135,314 56,290 C30,230 30,130 56,70Z",
        "#B5744A") + line("M94,62 C80,130 80,230 94,298 M135,58 V302 M176,62 C190,130 190,230 176,298",
        "#7E4824", 5)
    b += shape("M44,100 Q135,126 226,100 L230,122 Q135,150 40,122Z", "#4A4F5E") + \
        shape("M40,236 Q135,264 230,236 L226,258 Q135,286 44,258Z", "#4A4F5E") + \
        oval(135, 68, 78, 19, "#D89A6C") + oval(135, 68, 60, 11, "#7E4824")
    b += disc(135, 186, 34, CREAM) + drop(135, 188, 1.9, ORANGE)
    b += box(122, 268, 26, 40, BRASS, 5) + box(126, 300, 18, 22, BRONZE, 4) + box(100, 276, 70, 13, GOLD, 6)
    b += drop(135, 362, 2.6, AMBER) + shape("M122,366 q2,16 14,18", None, None, WHITE, 5)
    return Scene(b, glow(135, 364, 60, AMBER, 3, .2), shape("M-120,410 H390 V540 H-120Z", "#2A1530") +
        oval(135, 414, 60, 9, GOLD), focus=(135, 224, 350))


def winding_stair():
    """Seen from above: treads that grow darker with the depth, the spring at the bottom."""
    treads, rail = "", []
    shades = ("#FFE7A8", "#F4CE74", "#E8B950", "#D9A43C", "#C48F30", "#A87726", "#8A5F20", "#6E4A1C")
    for i in range(19):
        a, b = math.radians(-150 + i * 20), math.radians(-150 + (i + 1) * 20)
        outer, inner = 132 - i * 1.6, 62 - i * .6
        treads = poly([(135 + outer * math.cos(a), 214 + outer * math.sin(a)),
                (135 + outer * math.cos((a + b) / 2) * 1.01, 214 + outer * math.sin((a + b) / 2) * 1.01),
                       (135 + outer * math.cos(b), 214 + outer * math.sin(b)),
                               (135 + inner * math.cos(b), 214 + inner * math.sin(b)),
                       (135 + inner * math.cos(a), 214 + inner * math.sin(a))], shades[min(i * 8 // 18, 7)]) + \
            line(f"M{on(135, 214, inner, -130 + i * 20)} L{on(135, 214, outer, -130 + i * 20)}", "#5A3716",
                4) + treads
        rail.append((135 + (outer - 12) * math.cos(a), 214 + (outer - 12) * math.sin(a)))
    b = treads + curve(rail, RUST, 6) + "".join(disc(x, y, 6, RED) for x, y in rail[::3]) + \
        disc(135, 214, 58, "#3A1B30")
    b += curve([(135 + (50 - t * 1.36) * math.cos(t * .62), 214 + (50 - t * 1.36) * math.sin(t * .62))
            for t in range(34)], STEEL, 7) + disc(135, 214, 8, AMBER)
    return Scene(b, glow(135, 214, 170, AMBER, 3, .1), focus=(135, 214, 310))


ALL = {"lamp": [bright_beam, handful_of_sparks, great_lens, firefly_jar, brass_telescope, signal_flare,
                long_fuse, burning_glass, falling_chandelier, iron_stove, oil_barrel, winding_stair]}
