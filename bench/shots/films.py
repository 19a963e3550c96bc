"""Films whose changes of shot are known, made by ffmpeg from pictures that it computes.

No frame of them was ever in front of a camera. Two sets differ in their content, in their seeds and in what the films
are like: `tune` is for choosing values, `report` for showing what they came to.
"""
import collections
import os
import random
import subprocess

WIDTH, HEIGHT = 640, 360
FRAME = WIDTH * HEIGHT * 3 // 2
LONGEST = 62  # pictures of a shot that a fade may take
LARGER = f"{WIDTH * 3 // 2}x{HEIGHT * 3 // 2}"

# Cuts as the frames that begin a shot, fades as first frame, frame behind the last, and kind.
Truth = collections.namedtuple("Truth", "cuts fades")
Film = collections.namedtuple("Film", "seed rate size shots vfr")

RATES = {"23.976": "24000/1001", "29.97": "30000/1001", "59.94": "60000/1001"}
SETS = {
    "tune": [Film(11, "23.976", "640x360", 40, False), Film(12, "25", "1280x720", 40, False),
             Film(13, "29.97", "640x360", 40, False), Film(14, "50", "640x360", 40, False),
             Film(15, "24", "854x480", 40, True), Film(16, "60", "640x360", 30, False),
             Film(17, "23.976", "1920x1080", 30, False), Film(18, "25", "640x360", 40, False)],
    "report": [Film(3001, "23.976", "640x360", 40, False), Film(3002, "25", "640x360", 40, False),
               Film(3003, "29.97", "1280x720", 40, False), Film(3004, "50", "854x480", 40, False),
               Film(3005, "60", "640x360", 30, False), Film(3006, "30", "640x360", 40, True),
               Film(3007, "23.976", "1920x1080", 40, False), Film(3008, "59.94", "1280x720", 30, False)],
}
FRESH = {"sierpinski", "life", "plasma", "rings"}
CONTENT = {"tune": ["field", "field", "field", "mandelbrot", "cells", "gradients", "test"],
           "report": ["field", "field", "field", "mandelbrot", "gradients", *sorted(FRESH)]}


def ffmpeg(*arguments, **options):
    return subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", *arguments], check=True, **options)


def colour(rng):
    return f"#{rng.randrange(1 << 24):06x}"


def field(rng, label, octaves):
    """A still like a photograph out of focus: noise of several sizes, the larger the stronger."""
    graph = []
    for i, (columns, rows) in enumerate(octaves):
        graph.append(f"color={colour(rng) if i == 0 else 'gray'}:s={columns}x{rows},format=yuv444p,"
                     f"noise=alls={90 if i == 0 else 70 >> i}:all_seed={rng.randrange(1 << 30)},"
                     f"trim=end_frame=1,scale={LARGER.replace('x', ':')}:flags=bicubic[{label}{i}]")
    previous = f"{label}0"
    for i in range(1, len(octaves)):
        graph.append(f"[{previous}][{label}{i}]blend=all_expr='A+B-128'[{label}m{i}]")
        previous = f"{label}m{i}"
    graph.append(f"[{previous}]loop=-1:1[{label}]")
    return ";".join(graph)


def content(rng, kind, rate):
    """A graph that gives the label "made": pictures larger than the film's, so that they can be panned over."""
    seed = rng.randrange(1 << 30)
    if kind == "field":
        wide = rng.randrange(3, 12)
        octaves = [(wide, max(wide * 9 // 16, 2)), (wide * 4, wide * 2), (wide * 16, wide * 9)]
        return field(rng, "made", octaves) + f";[made]fps={rate}[made]"
    graphs = {
        "mandelbrot": lambda: f"mandelbrot=s={LARGER}:start_scale={rng.uniform(0.05, 2):.4f}"
                              f":start_x={rng.uniform(-0.75, -0.1):.5f}:start_y={rng.uniform(0.1, 0.8):.5f}"
                              ":end_scale=0.003:end_pts=2000:maxiter=200",
        "cells": lambda: f"cellauto=s={LARGER}:rule={rng.choice([18, 22, 30, 54, 60, 90, 110, 150])}:seed={seed}"
                         ":scroll=1",
        "life": lambda: f"life=s={LARGER}:mold=10:seed={seed}:ratio=0.1:life_color={colour(rng)}"
                        f":death_color={colour(rng)}:mold_color={colour(rng)}",
        "gradients": lambda: f"gradients=s={LARGER}:seed={seed}:speed={rng.uniform(0.001, 0.02):.4f}"
                             f":n={rng.randrange(2, 8)}",
        "test": lambda: f"testsrc2=s={LARGER}",
        "sierpinski": lambda: f"sierpinski=s={LARGER}:seed={seed}:type={rng.choice(['carpet', 'triangle'])}"
                              f":jump={rng.randrange(1, 40)}",
        "plasma": lambda: "color=black:s=240x136,format=yuv444p,geq="
                          f"lum='128+50*sin(X/{rng.randrange(9, 40)}+N/{rng.randrange(20, 80)})"
                          f"+50*sin(hypot(X-{rng.randrange(240)},Y-{rng.randrange(136)})/{rng.randrange(6, 30)}-N/40)':"
                          f"cb='128+60*sin(Y/{rng.randrange(9, 40)}+N/50)':cr='{rng.randrange(80, 176)}',"
                          f"scale={LARGER.replace('x', ':')}",
        "rings": lambda: f"color={colour(rng)}:s=240x136,format=yuv444p,geq=lum='lum(X,Y)*(0.6+0.4*"
                         f"cos(hypot(X-{rng.randrange(240)},Y-{rng.randrange(136)})/{rng.randrange(2, 9)}))':"
                         f"cb='cb(X,Y)':cr='cr(X,Y)',scale={LARGER.replace('x', ':')},trim=end_frame=1,loop=-1:1",
    }
    return f"{graphs[kind]()},fps={rate},format=yuv444p[made]"


def camera(rng, frames):
    """Where the picture is cut out: still, panned, or in a hand that shakes."""
    x, y = rng.randrange(WIDTH // 4), rng.randrange(HEIGHT // 4)
    way = rng.random()
    if way < 0.25:
        speed = min(rng.uniform(0.5, 5), (WIDTH // 2 - x) / frames) * rng.choice([1, 1, 0.3])
        return f"crop={WIDTH}:{HEIGHT}:x={x}+{speed:.3f}*n:y={y}+{speed * rng.uniform(-0.2, 0.5):.3f}*n"
    if way < 0.5:
        sway = rng.uniform(2, 9)
        return f"crop={WIDTH}:{HEIGHT}:x='{x + 20}+{sway:.2f}*(sin(n/{rng.uniform(2, 7):.2f})+sin(n/9.3))'" \
               f":y='{y + 20}+{sway:.2f}*(cos(n/{rng.uniform(2, 7):.2f})+random(1)*0.4)'"
    return f"crop={WIDTH}:{HEIGHT}:x={x}:y={y}"


def look(rng, frames):
    """What else is done to a shot: other colours, darkness, grain, a flash, light that changes."""
    chain = ["format=yuv420p", f"hue=h={rng.randrange(360)}:s={rng.uniform(0.2, 1.2):.2f}"]
    if rng.random() < 0.3:
        chain.append(f"lutyuv=y='16+(val-16)*{rng.uniform(0.08, 0.25):.3f}'")
    if rng.random() < 0.4:
        chain.append(f"noise=alls={rng.randrange(2, 14)}:allf=t:all_seed={rng.randrange(1 << 30)}")
    if rng.random() < 0.15 and frames > 20:
        at = rng.randrange(5, frames - 10)
        chain.append(f"lutyuv=y='min(val+{rng.randrange(60, 140)},235)':"
                     f"enable='between(n,{at},{at + rng.randrange(4)})'")
    elif rng.random() < 0.1:
        chain.append(f"eq=brightness='0.12*sin(n/{rng.uniform(4, 25):.1f})':eval=frame")
    # Colours that no screen shows would be lost in the pictures of a fade alone, and come back with a jump.
    return ",".join([*chain, "format=gbrp", "format=yuv420p"])


def shot(rng, kinds, frames, rate):
    """The pictures of one shot; through some of them something passes that may fill the picture."""
    graph = f"{content(rng, rng.choice(kinds), rate)};[made]{camera(rng, frames)}[seen]"
    if rng.random() < 0.25:
        wide, high = (int(side * rng.uniform(0.4, 1.2)) // 2 * 2 for side in (WIDTH, HEIGHT))
        wide, high = min(wide, WIDTH * 3 // 2), min(high, HEIGHT * 3 // 2)
        speed = (WIDTH + wide) / frames * rng.uniform(1, 2.5)
        graph += ";" + field(rng, "other", [(5, 3), (20, 12)])
        graph += f";[other]crop={wide}:{high}:0:0,fps={rate}[passer]"
        graph += f";[seen][passer]overlay=x='{-wide}+{speed:.2f}*n':y={(HEIGHT - high) // 2}:shortest=0[seen]"
    graph += f";[seen]{look(rng, frames)}[out]"
    result = ffmpeg("-filter_complex", graph, "-map", "[out]", "-frames:v", str(frames), "-pix_fmt", "yuv420p",
                    "-f", "rawvideo", "-", stdout=subprocess.PIPE)
    assert len(result.stdout) == frames * FRAME, graph
    return result.stdout


RAW = ["-f", "rawvideo", "-s", f"{WIDTH}x{HEIGHT}", "-pix_fmt", "yuv420p", "-framerate", "25"]


def filtered(graph, inputs, frames, folder):
    """The pictures that a graph makes of others."""
    arguments = []
    for i, pictures in enumerate(inputs):
        path = os.path.join(folder, f"raw{i}")
        with open(path, "wb") as file:
            file.write(pictures)
        arguments += [*RAW, "-i", path]
    out = ffmpeg(*arguments, "-filter_complex", graph, "-frames:v", str(frames), "-pix_fmt", "yuv420p", "-f",
                 "rawvideo", "-", stdout=subprocess.PIPE).stdout
    assert len(out) == frames * FRAME, graph
    return out


class Cutter:
    """Joins shots by cuts and fades and writes down where they are."""

    def __init__(self, rng, out, folder):
        self.rng, self.out, self.folder = rng, out, folder
        self.cuts, self.fades, self.at = set(), [], 0
        self.current = b""

    def write(self, pictures):
        self.out.write(pictures)
        self.at += len(pictures) // FRAME

    def through(self, colour, length, before, behind):
        """A fade out and a fade in with the plain colour between them for some pictures: one change of shot."""
        half = length // 2
        hold = self.rng.choice([0, 0, 2, 5, 10])
        out = filtered(f"fade=out:s=0:n={half}:c={colour}", [before[:half * FRAME]], half, self.folder)
        plain = filtered(f"drawbox=c={colour}:t=fill", [before[:FRAME] * max(hold, 1)], max(hold, 1), self.folder)
        come = filtered(f"fade=in:s=0:n={length - half}:c={colour}", [behind[-(length - half) * FRAME:]],
                        length - half, self.folder)
        return out + plain[:hold * FRAME] + come

    def join(self, following):
        rng, current = self.rng, self.current
        kind = rng.choice(["cut"] * 13 + ["dissolve"] * 4 + ["black", "black", "white", "fadeblack", "fadewhite"])
        room = min(len(current) // FRAME - 12, len(following) // FRAME - 12)
        length = min(rng.choice([8, 10, 12, 16, 20, 24, 30, 36, 48, 60]), room)
        if kind == "cut" or length < 8:
            self.write(current)
            self.cuts.add(self.at)
            self.current = following
            return
        keep = len(current) - length * FRAME
        self.write(current[:keep])
        first, behind = self.at, following[:length * FRAME]
        if kind in ("black", "white"):
            self.write(self.through(kind, length, current[keep:], behind))
        else:
            name = "fade" if kind == "dissolve" else kind
            self.write(filtered(f"[0][1]xfade=transition={name}:duration={length / 25}:offset=0",
                                [current[keep:], behind], length, self.folder))
        self.fades.append((first, self.at, kind))
        self.current = following[length * FRAME:]

    def open(self, pictures):
        """The film's first shot, which may come out of the black."""
        self.current = pictures
        length = self.rng.choice([0, 12, 24, 48])
        if length:
            self.write(filtered(f"fade=in:s=0:n={length}", [pictures[:length * FRAME]], length, self.folder))
            self.fades.append((0, length, "in"))
            self.current = pictures[length * FRAME:]

    def close(self):
        """The film's last shot, which may end in black."""
        length = self.rng.choice([0, 12, 24, 48])
        keep = len(self.current) - length * FRAME
        self.write(self.current[:keep])
        if length:
            self.fades.append((self.at, self.at + length, "out"))
            self.write(filtered(f"fade=out:s=0:n={length}", [self.current[keep:]], length, self.folder))


def make(path, which, film, shots=None):
    """Writes a film of a set; its truth."""
    rng = random.Random(f"{which} {film.seed}")
    rate = RATES.get(film.rate, film.rate)
    size = film.size.replace("x", ":")
    look = f"scale={size}:flags=bicubic,noise=alls=3:allf=t:all_seed={film.seed}"
    if film.vfr:
        # Pictures stand for one or two units of time, by turns.
        look += ",setpts='if(eq(N,0),0,PREV_OUTPTS+(1+mod(N*N,3))/TB/48)'"
    encoder = subprocess.Popen(["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "rawvideo", "-s", f"{WIDTH}x{HEIGHT}",
                                "-pix_fmt", "yuv420p", "-framerate", rate, "-i", "-", "-vf", look, "-vsync",
                                "passthrough", "-c:v", "libx264", "-bf", "3", "-crf", "23", "-preset", "veryfast",
                                path], stdin=subprocess.PIPE)
    with encoder:
        cutter = Cutter(rng, encoder.stdin, os.path.dirname(path) or ".")
        for i in range(shots or film.shots):
            # Most shots are short and some last for seconds.
            pictures = shot(rng, CONTENT[which], rng.choice([14, 24, 36, 48, 72, 100, 140]) + rng.randrange(20), rate)
            if i == 0:
                cutter.open(pictures if len(pictures) >= LONGEST * FRAME else pictures + pictures[-FRAME:] * 60)
            else:
                cutter.join(pictures)
        if len(cutter.current) < LONGEST * FRAME:
            cutter.current += cutter.current[-FRAME:] * LONGEST
        cutter.close()
        encoder.stdin.close()
    assert encoder.returncode == 0
    return Truth(cutter.cuts, cutter.fades)
