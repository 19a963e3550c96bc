#!/usr/bin/env python3
"""How many captions made for another cut or rate are brought back to a film.

    bench/voice/sync.py BATCH FOLDER [--conditions clean,music10] [--seed 1] [--runs 10] [--truth FILE]

BATCH is cuewright-batch, FOLDER one that make_films.py filled: truth.srt (or --truth FILE for own recordings) and a
sound a condition. From the true captions are made, by the seed: a shift of up to 100 s; one of the usual ratios; the
same with messy captions (starts +- 100 ms, ends up to 0.8 s late, 20 % missing, 30 % merged with the next); three cuts,
each of which puts in or takes out 2 to 25 s with the captions in it, ideal and messy. The plain method beside it takes
the ratio 1 and the shift of the first caption.
"""
import argparse
import json
import os
import random
import re
import subprocess
import tempfile

RATIOS = [1001 / 960, 960 / 1001, 25 / 24, 24 / 25, 1001 / 1000, 1000 / 1001]
CLOCK = re.compile(r"(\d+):(\d+):(\d+),(\d+) --> (\d+):(\d+):(\d+),(\d+)")


def read_srt(name):
    with open(name, encoding="utf-8") as file:
        found = [list(map(int, groups)) for groups in CLOCK.findall(file.read())]
    return [tuple(((t[0] * 60 + t[1]) * 60 + t[2]) * 1000 + t[3] for t in (row[:4], row[4:])) for row in found]


def clock(ms):
    return f"{ms // 3600000:02}:{ms // 60000 % 60:02}:{ms // 1000 % 60:02},{ms % 1000:03}"


def messy(captions, rng):
    """Captions with their true starts, as people make them."""
    kept = [(max(0, start + rng.uniform(-100, 100)), end + rng.uniform(0, 800), truth)
            for start, end, truth in captions if rng.random() >= 0.2]
    merged, index = [], 0
    while index < len(kept):
        start, end, truth = kept[index]
        if index + 1 < len(kept) and rng.random() < 0.3 and kept[index + 1][0] - end < 3000:
            index += 1
            end = kept[index][1]
        merged.append((start, end, truth))
        index += 1
    return merged


def cut(captions, rng, cuts=3, apart=8):
    """Captions as of a film in which scenes were put in, or taken out with what is said in them."""
    apart = min(apart, len(captions) // (cuts + 2))  # in a short film
    while True:
        places = sorted(rng.sample(range(apart, len(captions) - apart), cuts))
        if all(second - first >= apart for first, second in zip(places, places[1:])):
            break
    moved, offset, gone = [], 0, -1
    for index, (start, end, truth) in enumerate(captions):
        if index in places:
            length = rng.uniform(2000, 25000) * rng.choice([-1, 1])
            offset += length
            gone = max(gone, truth - length)
        if truth >= gone:
            moved.append((start + offset, end + offset, truth))
    return moved


def made(kind, truth, rng):
    """Captions of a kind: start, end, true start."""
    captions = [(start, end, start) for start, end in truth]
    if kind.startswith("messy"):
        captions = messy(captions, rng)
    if kind.endswith("cuts"):
        captions = cut(captions, rng)
    ratio = rng.choice(RATIOS) if kind.endswith("ratio") else 1
    shift = rng.uniform(-100000, 100000)
    rows = [((start + shift) / ratio, (end + shift) / ratio, truth) for start, end, truth in captions]
    lowest = min(0, rows[0][0])
    return [(round(start - lowest), round(end - lowest), truth) for start, end, truth in rows]


def errors_of(batch, captions, sound):
    """For each caption how far it lies from its true start, and whether it is doubtful; nothing when it was refused."""
    with tempfile.TemporaryDirectory() as folder:
        name = os.path.join(folder, "in.srt")
        with open(name, "w", encoding="utf-8") as file:
            for row, (start, end, _) in enumerate(captions, 1):
                file.write(f"{row}\n{clock(start)} --> {clock(end)}\nLine {row}\n\n")
        run = subprocess.run([batch, "sync", name, "--with", sound, "--out", os.path.join(folder, "out.srt"), "--json"],
                             capture_output=True, text=True)
    errors = []
    for segment in map(json.loads, run.stdout.splitlines()):
        for start, _, truth in captions[segment["first"] - 1:segment["last"]]:
            errors.append((abs(start * segment["ratio"] + segment["offset"] - truth), segment["doubtful"]))
    return errors


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("batch")
    parser.add_argument("folder")
    parser.add_argument("--conditions", default="clean,music10")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--runs", type=int, default=10)
    parser.add_argument("--truth")
    options = parser.parse_args()
    truth = read_srt(options.truth or os.path.join(options.folder, "truth.srt"))
    print("| | within 50 ms | 100 ms | 400 ms | doubtful | of those wrong by over 400 ms doubtful | refused "
          "| plain within 400 ms |\n|---|---|---|---|---|---|---|---|")
    for condition in options.conditions.split(","):
        for kind in ("ideal shift", "ideal ratio", "messy ratio", "ideal cuts", "messy cuts"):
            rng = random.Random(f"{options.seed}:{kind}")
            all_errors, plain, refused = [], [], 0
            for _ in range(options.runs):
                captions = made(kind, truth, rng)
                errors = errors_of(options.batch, captions, os.path.join(options.folder, condition + ".wav"))
                refused += not errors
                all_errors += errors
                plain += [abs(start - captions[0][0] + captions[0][2] - true) <= 400 for start, _, true in captions]
            count = max(1, len(all_errors))
            near = [sum(error <= limit for error, _ in all_errors) / count for limit in (50, 100, 400)]
            wrong = [doubtful for error, doubtful in all_errors if error > 400]
            print(f"| {condition}, {kind} | {near[0]:.1%} | {near[1]:.1%} | {near[2]:.1%} "
                  f"| {sum(doubtful for _, doubtful in all_errors) / count:.1%} | {sum(wrong)} of {len(wrong)} "
                  f"| {refused} | {sum(plain) / len(plain):.1%} |")


if __name__ == "__main__":
    main()
