"""Shapes as SVG text: flat fills, smooth outlines and small parts that many drawings share.

A drawing is 270 wide and 420 high, y grows downwards. Colours are "#rrggbb".
"""
import math

W, H = 270, 420
FAR = 120  # how far backdrops reach beyond the picture, for thumbnails of wide subjects

INK, NIGHT, CREAM, WHITE = "#0B1524", "#10233A", "#FFF1D0", "#FFFDF4"
AMBER, ORANGE, RUST, GOLD = "#FFC35A", "#F58A3C", "#C9502E", "#E2A93B"
TEAL, LAGOON, PINE, ABYSS = "#62D9CF", "#2FA9A8", "#146C74", "#0B3C4A"
LILAC, VIOLET, PLUM, DUSK = "#CDB2FF", "#9779E2", "#5C459C", "#2D2359"
LEAF, MOSS, FERN, FOREST = "#A5D86E", "#6FAE4A", "#3F7F3F", "#1F4A33"
BRASS, BRONZE, WOOD, BARK = "#DDA945", "#A6752A", "#94623F", "#5F3D2C"
ROSE, RED, SLATE, STONE = "#F2A09A", "#DD5A50", "#53677D", "#8FA3B3"
SKIN, TAN, STEEL, SNOW = "#E3AB7C", "#C98F6C", "#BCCAD6", "#EAF4FA"


def paint(fill=None, stroke=None, width=0, alpha=None):
    text = f' fill="{fill or "none"}"'
    if stroke:
        text += (f' stroke="{stroke}" stroke-width="{width}" stroke-linecap="round"'
                 ' stroke-linejoin="round"')
    if alpha is not None:
        text += f' opacity="{alpha}"'
    return text


def disc(x, y, r, fill, alpha=None, stroke=None, width=0):
    return f'<circle cx="{x:g}" cy="{y:g}" r="{r:g}"{paint(fill, stroke, width, alpha)}/>'


def oval(x, y, rx, ry, fill, turn=0, alpha=None):
    return (f'<ellipse cx="{x:g}" cy="{y:g}" rx="{rx:g}" ry="{ry:g}"{paint(fill, alpha=alpha)}'
            f' transform="rotate({turn} {x:g} {y:g})"/>')


def box(x, y, w, h, fill, r=0, alpha=None, stroke=None, width=0):
    return (f'<rect x="{x:g}" y="{y:g}" width="{w:g}" height="{h:g}" rx="{r:g}"'
            f'{paint(fill, stroke, width, alpha)}/>')


def shape(d, fill, alpha=None, stroke=None, width=0):
    return f'<path d="{d}"{paint(fill, stroke, width, alpha)}/>'


def line(d, stroke, width, alpha=None):
    return f'<path d="{d}"{paint(None, stroke, width, alpha)}/>'


def poly(points, fill, alpha=None):
    d = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
    return f'<polygon points="{d}"{paint(fill, alpha=alpha)}/>'


def smooth(points, closed):
    """A path through the points, each corner rounded."""
    n = len(points)
    at = (lambda i: points[i % n]) if closed else (lambda i: points[min(max(i, 0), n - 1)])
    d = f"M{points[0][0]:.1f},{points[0][1]:.1f}"
    for i in range(n if closed else n - 1):
        (x0, y0), (x1, y1), (x2, y2), (x3, y3) = at(i - 1), at(i), at(i + 1), at(i + 2)
        d += (f" C{x1 + (x2 - x0) / 6:.1f},{y1 + (y2 - y0) / 6:.1f}"
              f" {x2 - (x3 - x1) / 6:.1f},{y2 - (y3 - y1) / 6:.1f} {x2:.1f},{y2:.1f}")
    return d + ("Z" if closed else "")


def blob(points, fill, alpha=None):
    return shape(smooth(points, True), fill, alpha)


def curve(points, stroke, width, alpha=None):
    return line(smooth(points, False), stroke, width, alpha)


def taper(points, first, last, fill):
    """A smooth limb along the points, first wide at its root and last at its tip."""
    left, right = [], []
    n = len(points)
    for i, (x, y) in enumerate(points):
        (xa, ya), (xb, yb) = points[max(i - 1, 0)], points[min(i + 1, n - 1)]
        length = math.hypot(xb - xa, yb - ya) or 1
        half = (first + (last - first) * i / (n - 1)) / 2
        nx, ny = -(yb - ya) / length * half, (xb - xa) / length * half
        left.append((x + nx, y + ny))
        right.append((x - nx, y - ny))
    back = smooth(right[::-1], False)
    return (shape(smooth(left, False) + " L" + back[1:] + "Z", fill) +
            disc(*points[0], first / 2, fill) + disc(*points[-1], last / 2, fill))


def put(body, x=0, y=0, scale=1.0, turn=0, flip=1, squash=1):
    return (f'<g transform="translate({x:g} {y:g}) rotate({turn})'
            f' scale({scale * flip:g} {scale * squash:g})">{body}</g>')


def mirror(body, axis=W / 2):
    return body + f'<g transform="translate({2 * axis:g} 0) scale(-1 1)">{body}</g>'


def around(n, radius, x=0, y=0, turn=0, squash=1.0):
    """n places on an oval, with the angle of each in degrees."""
    for i in range(n):
        degrees = turn + i * 360 / n
        a = math.radians(degrees)
        yield x + radius * math.cos(a), y + radius * squash * math.sin(a), degrees


def on(x, y, r, degrees):
    """The place at an angle on a circle, as text."""
    a = math.radians(degrees)
    return f"{x + r * math.cos(a):.0f},{y + r * math.sin(a):.0f}"


def inked(body, width=2.6):
    """A drawing with a dark line around its silhouette."""
    return f'<g filter="url(#ink)">{body}</g>' if width else body


def ink_filter(width):
    return ('<filter id="ink" filterUnits="userSpaceOnUse" x="-120" y="-120" width="510"'
            f' height="660"><feGaussianBlur in="SourceAlpha" stdDeviation="{width * .62:.2f}"'
            ' result="b"/><feComponentTransfer in="b" result="t"><feFuncA type="linear"'
            ' slope="11" intercept="-.7"/></feComponentTransfer><feFlood flood-color="#0B1524"/>'
            '<feComposite in2="t" operator="in"/><feMerge><feMergeNode/>'
            '<feMergeNode in="SourceGraphic"/></feMerge></filter>')


# ---- small parts --------------------------------------------------------------------------------

def glow(x, y, r, color=AMBER, steps=4, alpha=0.14):
    return "".join(disc(x, y, round(r * (steps - i) / steps, 1), color, alpha)
                   for i in range(steps))


def star(x, y, r, fill, points=4, inner=0.32, turn=0):
    tips = []
    for i in range(points * 2):
        a = math.radians(turn - 90 + i * 180 / points)
        q = r if i % 2 == 0 else r * inner
        tips.append((x + q * math.cos(a), y + q * math.sin(a)))
    return poly(tips, fill)


def flame(x, y, s=1.0):
    return put(shape("M0,-34 C14,-16 18,-6 14,6 C11,15 -11,15 -14,6 C-18,-6 -6,-12 0,-34Z", ORANGE) +
               shape("M0,-18 C8,-8 10,-2 8,4 C6,10 -6,10 -8,4 C-10,-3 -3,-6 0,-18Z", CREAM), x, y, s)


def heart(x, y, s, fill):
    return put(shape("M0,10 C-16,-2 -12,-14 -5,-13 C-2,-13 0,-10 0,-8 C0,-10 2,-13 5,-13"
                     " C12,-14 16,-2 0,10Z", fill), x, y, s)


def drop(x, y, s, fill, turn=0):
    return put(shape("M0,-14 C8,-2 10,4 8,9 C5,15 -5,15 -8,9 C-10,4 -8,-2 0,-14Z", fill), x, y, s,
               turn)


def leaf(x, y, s, fill=MOSS, turn=0, vein=FOREST):
    """A leaf that grows upwards from its stalk at (x, y), 40 long."""
    return put(shape("M0,0 C-16,-8 -16,-28 0,-40 C16,-28 16,-8 0,0Z", fill) +
               line("M0,-2 V-30", vein, 2), x, y, s, turn)


def note(x, y, s=1.0, fill=INK, turn=0):
    return put(oval(-5, 12, 8, 6, fill, -20) + line("M2,10 V-20 q4,8 14,10", fill, 4), x, y, s, turn)


def zed(x, y, s=1.0, fill=CREAM, turn=0):
    return put(line("M-9,-10 H9 L-9,10 H9", fill, 5), x, y, s, turn)


def waves(y, fill, size=18, depth=9, shift=0, alpha=None):
    x = -FAR + shift
    d = f"M{x},{y}"
    while x < W + FAR:
        d += f" q{size / 2},{-depth} {size},0 q{size / 2},{depth} {size},0"
        x += 2 * size
    return shape(d + f" V{H + FAR} H{-FAR} Z", fill, alpha)


def eye(x, y, r=4, look=1):
    return disc(x, y, r, INK) + disc(x + r * 0.3 * look, y - r * 0.35, r * 0.35, WHITE)


def big_eye(x, y, r, look=0, down=0, color=WHITE):
    return disc(x, y, r, color) + disc(x + look, y + down, r * .55, INK) + \
        disc(x + look + r * .2, y + down - r * .22, r * .18, WHITE)


def lids(x, y, w, color=INK, width=4):
    """An eye that is shut."""
    return line(f"M{x - w},{y} q{w},{w * .8} {2 * w},0", color, width)


def smile(x, y, w, color=INK, width=4):
    return line(f"M{x - w},{y} q{w},{w * .7} {2 * w},0", color, width)


def specks(color, spots, alpha=0.8):
    return "".join(disc(x, y, r, color, alpha) for x, y, r in spots)


def roofs(y, color, seed=0):
    """A row of dark roofs across the picture."""
    d, x, i = f"M{-FAR},{H + FAR} V{y}", -FAR, seed
    while x < W + FAR:
        h, w = (22, 34, 16, 28, 40, 24)[i % 6], 62 + 11 * (i % 3)
        d += f" L{x},{y} L{x + w / 2},{y - h}"
        if i % 2:  # a chimney
            d += f" L{x + w * .62},{y - h * .76} V{y - h - 14} H{x + w * .78} V{y - h * .44}"
        d += f" L{x + w},{y}"
        x, i = x + w + 8, i + 1
    return shape(d + f" V{H + FAR}Z", color)


def tower(x, y, s=1.0, lit=True, body=CREAM, stripe=RED, roof=RUST):
    b = shape("M-24,0 L-16,-110 H16 L24,0Z", body)
    b += shape("M-22,-26 L-20.5,-50 H20.5 L22,-26Z", stripe) + \
        shape("M-18.6,-74 L-17,-96 H17 L18.6,-74Z", stripe)
    b += box(-22, -118, 44, 9, INK, 3) + box(-14, -142, 28, 26, AMBER if lit else SLATE, 2)
    b += line("M-5,-142V-117M5,-142V-117", INK, 2) + shape("M-20,-141 L0,-166 L20,-141Z", roof)
    b += disc(0, -169, 4, roof) + box(-6, -16, 12, 16, BARK, 5)
    return put(b, x, y, s)


def bird(x, y, s=1.0, flip=1):
    return put(shape("M-22,6 C-22,-10 -4,-16 10,-10 C16,-16 28,-12 26,-4 L34,0 L25,3 C20,16 -10,20"
                     " -32,14Z", CREAM) +
               shape("M-14,4 C-6,-4 6,-4 12,2 C4,12 -10,12 -26,12Z", STONE) + disc(20, -6, 2.4, INK),
               x, y, s, 0, flip)


def fish(x, y, s, fill, fin, turn=0, flip=1):
    """A fish of 60 by 34 that swims to the right."""
    return put(shape("M30,0 C20,-20 -6,-20 -16,-2 L-32,-14 V14 L-16,2 C-6,20 20,20 30,0Z", fill) +
               shape("M2,-14 C-6,-24 -14,-22 -16,-18 L-8,-9Z", fin) + disc(17, -4, 3.6, INK), x, y,
               s, turn, flip)


def house_front(x, y, s=1.0, wall=CREAM, roof=RUST):
    """A little house that stands on (x, y)."""
    return put(box(-26, -40, 52, 40, wall) + shape("M-34,-38 L0,-74 L34,-38Z", roof) +
               box(-8, -30, 16, 16, AMBER, 2) + box(12, -72, 10, 24, BARK), x, y, s)


def lantern(x, y, s=1.0, light=AMBER, metal=INK):
    """A hand lantern that hangs from (x, y)."""
    return put(line("M-10,16 Q0,-14 10,16", metal, 4) + shape("M-16,20 L-9,10 H9 L16,20Z", metal) +
               box(-13, 20, 26, 34, light, 4) + oval(0, 38, 6, 10, WHITE) +
               box(-16, 52, 32, 8, metal, 3), x, y, s)


def bee(x, y, s=1.0, turn=0, flip=1):
    """A fat bee of 70 by 60 that flies to the right."""
    return put(oval(-12, -26, 13, 24, SNOW, -28) + oval(8, -28, 12, 22, WHITE, 14) +
               oval(0, 0, 34, 25, AMBER) + shape("M-12,-23 Q-22,0 -12,23 L-2,25 Q-10,0 -2,-25Z", INK) +
               shape("M8,-24 Q2,0 8,24 L18,21 Q12,0 18,-21Z", INK) +
               shape("M-32,-5 L-46,0 L-32,5Z", INK) + disc(25, -4, 4, INK) +
               line("M26,-16 q4,-12 14,-14 M18,-20 q0,-12 8,-18", INK, 3), x, y, s, turn, flip)
