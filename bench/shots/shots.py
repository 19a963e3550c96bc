#!/usr/bin/env python3
"""How well `cuewright-batch shots` finds the changes of shot in films whose changes are known.

    bench/shots/shots.py build/release/bin/cuewright-batch [--seeds 1,2] [--shots 60] [--rates 24,25] [--keep DIR]

The films are made by ffmpeg from pictures that it computes (fractals, automata, gradients, test pictures, noise); a
third of the shots is dark, some are panned over, some hold a flash, and one change in four is a fade. They are H.264
with B-frames. A cut counts as found when its frame is right, a fade when it lies within the fade. Beside it stand the
figures of ffmpeg's own detector, whose frames are taken as cuts.
"""
import argparse
import os
import random
import re
import subprocess
import tempfile

WIDTH, HEIGHT = 320, 180
FRAME = WIDTH * HEIGHT * 3 // 2


def ffmpeg(*arguments, **options):
    return subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", *arguments], check=True, **options)


def source(rng):
    """A picture that moves, larger than the film so that it can be panned over."""
    size = f"{WIDTH * 3 // 2}x{HEIGHT * 3 // 2}"
    seed = rng.randrange(1 << 30)
    kind = rng.randrange(6)
    if kind == 0:
        return f"mandelbrot=s={size}:start_scale={rng.uniform(0.05, 2):.4f}:start_x={rng.uniform(-0.75, -0.1):.5f}" \
               f":start_y={rng.uniform(0.1, 0.8):.5f}:end_scale=0.003:end_pts=2000"
    if kind == 1:
        return f"cellauto=s={size}:rule={rng.choice([18, 22, 30, 54, 60, 90, 110, 150])}:seed={seed}:scroll=1"
    if kind == 2:
        return f"life=s={size}:mold=10:seed={seed}:ratio=0.1:life_color=#{rng.randrange(1 << 24):06x}" \
               f":death_color=#{rng.randrange(1 << 24):06x}:mold_color=#{rng.randrange(1 << 24):06x}"
    if kind == 3:
        return f"gradients=s={size}:seed={seed}:speed={rng.uniform(0.001, 0.02):.4f}:n={rng.randrange(2, 8)}"
    if kind == 4:
        return f"testsrc2=s={size}"
    return f"sierpinski=s={size}:seed={seed}:type={rng.choice(['carpet', 'triangle'])}:jump={rng.randrange(1, 40)}"


def look(rng):
    """What is done to a shot: a pan, other colours, darkness, grain, a flash."""
    pan = rng.random() < 0.3
    speed = rng.uniform(0.5, 3) if pan else 0
    chain = [f"crop={WIDTH}:{HEIGHT}:x='min({rng.randrange(80)}+{speed:.2f}*n,{WIDTH // 2})':y={rng.randrange(80)}",
             "format=yuv420p", f"hue=h={rng.randrange(360)}:s={rng.uniform(0.2, 1.2):.2f}"]
    if rng.random() < 0.34:
        chain.append(f"lutyuv=y='16+(val-16)*{rng.uniform(0.08, 0.25):.3f}'")
    if rng.random() < 0.4:
        chain.append(f"noise=alls={rng.randrange(2, 12)}:allf=t")
    if rng.random() < 0.15:
        at = rng.randrange(8, 20)
        chain.append(f"lutyuv=y='min(val+{rng.randrange(60, 140)},235)':enable='between(n,{at},{at + rng.randrange(2)})'")
    return ",".join(chain)


def shot(rng, frames, rate):
    result = ffmpeg("-f", "lavfi", "-i", f"{source(rng)}:r={rate}", "-vf", look(rng), "-frames:v", str(frames),
                    "-pix_fmt", "yuv420p", "-f", "rawvideo", "-", stdout=subprocess.PIPE)
    return result.stdout


def faded(before, behind, frames, kind, folder, rate):
    """The pictures of a fade of `frames` pictures from the end of one shot to the beginning of another."""
    for name, pictures in (("a", before), ("b", behind)):
        with open(os.path.join(folder, name), "wb") as file:
            file.write(pictures)
    raw = ["-f", "rawvideo", "-s", f"{WIDTH}x{HEIGHT}", "-pix_fmt", "yuv420p", "-framerate", "25"]
    result = ffmpeg(*raw, "-i", os.path.join(folder, "a"), *raw, "-i", os.path.join(folder, "b"), "-filter_complex",
                    f"[0][1]xfade=transition={kind}:duration={frames / 25}:offset=0", "-frames:v", str(frames),
                    "-pix_fmt", "yuv420p", "-f", "rawvideo", "-", stdout=subprocess.PIPE)
    return result.stdout


def film(path, seed, count, rate, folder):
    """Writes a film; its cuts as a set of frames and its fades as pairs of first and last frame."""
    rng = random.Random(seed)
    cuts, fades = set(), []
    pictures = []
    at = 0
    current = shot(rng, rng.randrange(14, 70), rate)
    for _ in range(count - 1):
        following = shot(rng, rng.randrange(14, 70), rate)
        length = min(rng.choice([8, 12, 16, 24]), len(current) // FRAME - 2, len(following) // FRAME - 2)
        if rng.random() < 0.25 and length >= 6:
            keep = len(current) - length * FRAME
            pictures.append(current[:keep])
            at += keep // FRAME
            mixed = faded(current[keep:], following[:length * FRAME], length, rng.choice(["fade", "fade", "fadeblack"]),
                          folder, rate)
            pictures.append(mixed)
            fades.append((at, at + length))
            at += len(mixed) // FRAME
            current = following[length * FRAME:]
        else:
            pictures.append(current)
            at += len(current) // FRAME
            cuts.add(at)
            current = following
    pictures.append(current)
    ffmpeg("-f", "rawvideo", "-s", f"{WIDTH}x{HEIGHT}", "-pix_fmt", "yuv420p", "-framerate", str(rate), "-i", "-",
           "-c:v", "libx264", "-bf", "3", "-crf", "23", "-preset", "veryfast", path, input=b"".join(pictures))
    return cuts, fades


def scored(found, truth_cuts, truth_fades):
    """Hits, misses and false ones of cuts and of fades, and cuts that are off by one."""
    cuts = {frame for frame, kind in found if kind == "cut"}
    fades = [frame for frame, kind in found if kind == "fade"]
    hit = cuts & truth_cuts
    wrong = {frame for frame in cuts - truth_cuts if not any(a <= frame <= b for a, b in truth_fades)}
    inside = len(cuts - truth_cuts) - len(wrong)
    missed = truth_cuts - cuts
    near = sum(1 for frame in wrong if frame - 1 in missed or frame + 1 in missed)
    found_fades = sum(1 for a, b in truth_fades if any(a <= frame <= b for frame in fades))
    false_fades = sum(1 for frame in fades if not any(a <= frame <= b for a, b in truth_fades)) + inside
    return [len(hit), len(missed), len(wrong), near, found_fades, len(truth_fades) - found_fades, false_fades]


def f1(hits, missed, wrong):
    return 2 * hits / max(2 * hits + missed + wrong, 1)


def ours(batch, path):
    out = subprocess.run([batch, "shots", path], check=True, stdout=subprocess.PIPE, text=True).stdout
    return [(int(frame), kind) for frame, _, kind in (line.split("\t") for line in out.splitlines())]


def scdet(path):
    log = subprocess.run(["ffmpeg", "-nostdin", "-hide_banner", "-i", path, "-vf", "showinfo,scdet=threshold=10",
                          "-f", "null", "-"], check=True, stderr=subprocess.PIPE, text=True).stderr
    frame, found = -1, []
    for line in log.splitlines():
        shown = re.search(r"showinfo.* n: *(\d+)", line)
        if shown:
            frame = int(shown[1])
        if "lavfi.scd.score" in line and frame >= 0:
            found.append((frame, "cut"))
    return found


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("batch")
    parser.add_argument("--seeds", default="101,102,103")
    parser.add_argument("--shots", type=int, default=60)
    parser.add_argument("--rates", default="23.976,25,29.97")
    parser.add_argument("--keep")
    parser.add_argument("--verbose", action="store_true")
    options = parser.parse_args()
    totals = {"cuewright": [0] * 7, "scdet 10": [0] * 7}
    with tempfile.TemporaryDirectory() as folder:
        for seed in (int(seed) for seed in options.seeds.split(",")):
            for rate in options.rates.split(","):
                path = os.path.join(options.keep or folder, f"film_{seed}_{rate}_{options.shots}.mp4")
                truth = path + ".truth"
                if os.path.exists(truth):
                    cuts, fades = eval(open(truth).read(), {})
                else:
                    number = {"23.976": "24000/1001", "29.97": "30000/1001", "59.94": "60000/1001"}.get(rate, rate)
                    cuts, fades = film(path, seed * 1000 + round(float(rate)), options.shots, number, folder)
                    with open(truth, "w") as file:
                        file.write(repr((cuts, fades)))
                for name, found in (("cuewright", ours(options.batch, path)), ("scdet 10", scdet(path))):
                    score = scored(found, cuts, fades)
                    totals[name] = [a + b for a, b in zip(totals[name], score)]
                    if options.verbose:
                        print(seed, rate, name, score)
                        if name == "cuewright":
                            kinds = dict(found)
                            print("  missed cuts", sorted(cuts - set(kinds)))
                            print("  wrong", sorted((f, k) for f, k in found if f not in cuts and
                                                    not any(a <= f <= b for a, b in fades)))
                            print("  cut in fade", [(f, k) for f, k in found if k == "cut" and any(a <= f <= b for a, b in fades) and f not in cuts])
                            print("  missed fades", [(a, b) for a, b in fades if not any(a <= f <= b and k == "fade" for f, k in found)])
    print(f"{'':12}{'cuts F1':>9}{'found':>7}{'missed':>8}{'wrong':>7}{'off by 1':>10}{'fades F1':>10}{'found':>7}"
          f"{'missed':>8}{'wrong':>7}")
    for name, (hit, missed, wrong, near, faded_found, faded_missed, faded_wrong) in totals.items():
        print(f"{name:12}{f1(hit, missed, wrong):9.3f}{hit:7}{missed:8}{wrong:7}{near:10}"
              f"{f1(faded_found, faded_missed, faded_wrong):10.3f}{faded_found:7}{faded_missed:8}{faded_wrong:7}")


if __name__ == "__main__":
    main()
