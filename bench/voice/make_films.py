#!/usr/bin/env python3
"""Films whose speech is known to the sample, and the subtitles that a person would have held for them.

    bench/voice/make_films.py FOLDER [--set tune|report] [--seed 1] [--captions 60] [--conditions clean,music10,...]
                              [--unspoken 0] [--unwritten 0] [--voices slt,rms,awb,kal16]

The speech is ffmpeg's flite; sentences and their order are drawn by the seed, from two halves that share no hand-written
sentence. In FOLDER then are:

    truth.srt     the captions with the true times of their voice, to the millisecond
    press.srt     the same as held by a person: start late log-normal, median 220 ms, sigma 0.3; end late 200 +- 100 ms
    slow.srt      a slow hand: 400 ms, sigma 0.3; 350 +- 120 ms
    foreign.srt   press.srt with Spanish and German text
    text.txt      the lines alone, with --unspoken percent of lines that nobody speaks
    lines.tsv     for each line of text.txt its start and end in ms, or two dashes
    CONDITION.wav clean, or a noise with its distance in dB: pink10, babble5, music20, ...
    late.mkv      the clean sound, which begins two seconds behind the picture; times as in truth.srt

--unwritten percent of sentences are spoken that stand in no file. The level of a noise is measured against the speech
where there is some. A voice begins and ends where its level over 5 ms passes 40 dB below its loudest.
"""
import argparse
import array
import hashlib
import math
import operator
import os
import random
import subprocess
import tempfile

import sentences

RATE = 22050
VOICES = ["slt", "rms", "awb", "kal16"]
NOISES = ["pink", "babble", "music"]
LEVELS = [20, 10, 5]
ROOM_DB = 55  # a clean film still has a room: so far below the speech


def ffmpeg(*arguments, **options):
    return subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", *arguments], check=True, **options)


def rms(samples):
    return math.sqrt(sum(map(operator.mul, samples, samples)) / max(1, len(samples)))


def trimmed(samples):
    """The samples between the first and the last 5 ms that are louder than 40 dB below the loudest."""
    step = RATE // 200
    levels = [rms(samples[at:at + step]) for at in range(0, len(samples), step)]
    least = max(levels) / 100
    loud = [index for index, level in enumerate(levels) if level > least]
    return samples[loud[0] * step:(loud[-1] + 1) * step]


def spoken(text, voice, cache):
    """The voice's samples, without silence before and behind; what was spoken once is kept in the cache."""
    name = os.path.join(cache, hashlib.sha1(f"{voice}:{text}".encode()).hexdigest() + ".raw")
    samples = array.array("h")
    if not os.path.exists(name):
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as words:
            words.write(text)
            words.flush()
            samples.frombytes(ffmpeg("-f", "lavfi", "-i", f"flite=textfile={words.name}:voice={voice}", "-ac", "1", "-ar",
                                     str(RATE), "-f", "s16le", "-", stdout=subprocess.PIPE).stdout)
        with open(name, "wb") as file:
            file.write(trimmed(samples).tobytes())
    with open(name, "rb") as file:
        return array.array("h", file.read())


def at_level(samples, wanted):
    """The samples at another root mean square."""
    factor = wanted / rms(samples)
    return array.array("h", [max(-32768, min(32767, int(sample * factor))) for sample in samples])


def silence(seconds):
    return array.array("h", bytes(2 * round(seconds * RATE)))


class Line:
    def __init__(self, text, start=None, end=None):
        self.text, self.start, self.end = text, start, end


def speech(options, rng, cache):
    """The speech track and its lines, in order; lines that aren't spoken have no times."""
    pool = list(sentences.TUNE if options.set == "tune" else sentences.REPORT)
    track, lines = silence(3), []
    while sum(line.start is not None for line in lines) < options.captions:
        text = sentences.sentence(rng, pool)
        kind = rng.random() * 100
        if kind < options.unspoken:
            lines.append(Line(text))
            continue
        samples = at_level(spoken(text, rng.choice(options.voices), cache), 2200 * 10 ** (rng.uniform(-3, 3) / 20))
        if kind >= 100 - options.unwritten:
            track += samples
        else:
            start = len(track)
            track += samples
            lines.append(Line(text, start * 1000 / RATE, len(track) * 1000 / RATE))
        # Lines of a dialogue follow on each other, others come after a pause.
        track += silence(rng.uniform(0.25, 0.7) if rng.random() < 0.4 else rng.uniform(0.7, 3.5))
    track += silence(2)
    return track, lines


def pink(seconds, seed, name):
    ffmpeg("-f", "lavfi", "-i", f"anoisesrc=color=pink:r={RATE}:seed={seed}:d={seconds}", "-f", "s16le", name)


def babble(options, seconds, rng, cache, name):
    """Six voices at once, which speak the other set's sentences without a pause."""
    others = sentences.REPORT if options.set == "tune" else sentences.TUNE
    names = []
    for voice in range(6):
        track = array.array("h")
        while len(track) < seconds * RATE:
            track += at_level(spoken(rng.choice(others), rng.choice(VOICES), cache), 1500)
            track += silence(rng.uniform(0, 0.3))
        names.append(f"{name}.{voice}")
        with open(names[-1], "wb") as file:
            file.write(track.tobytes())
    inputs = [part for each in names for part in (*RAW, "-i", each)]
    ffmpeg(*inputs, "-filter_complex", f"amix=inputs={len(names)}:normalize=0,volume=0.5", "-t", str(seconds), "-f",
           "s16le", name)
    for each in names:
        os.remove(each)


def chord(rng, root, seconds):
    """A chord of three notes with overtones and a bass below it, which fades."""
    count = round(seconds * RATE)
    sound = [0.0] * count
    notes = [root / 2, root, root * rng.choice([1.189, 1.26]), root * 1.498]
    for note in notes:
        for overtone in range(1, 7):
            speed, level = 2 * math.pi * note * overtone / RATE, 1500 / overtone ** 1.1
            if note * overtone > RATE / 2.5:
                continue
            sound = [value + level * math.sin(speed * at) for at, value in enumerate(sound)]
    fade = [math.exp(-1.2 * at / RATE) * min(1, at / 200) for at in range(count)]
    return list(map(operator.mul, sound, fade))


def drum(rng, seconds, decay):
    return [rng.uniform(-3500, 3500) * math.exp(-at / (decay * RATE)) for at in range(round(seconds * RATE))]


def music(seconds, rng, name):
    """Chords with drums on each beat, a piece of half a minute that is repeated."""
    beat = 60 / rng.uniform(84, 132)
    piece = array.array("h")
    hits = [drum(rng, beat, 0.05), drum(rng, beat / 2, 0.015)]
    while len(piece) < 30 * RATE:
        bar = chord(rng, rng.choice([196, 220, 247, 262, 294, 330]), 4 * beat)
        for half in range(8):
            at = round(half * beat / 2 * RATE)
            for index, value in enumerate(hits[half % 2]):
                if at + index < len(bar):
                    bar[at + index] += value
        piece.extend(int(max(-32768, min(32767, value))) for value in bar)
    with open(name, "wb") as file:
        while file.tell() < seconds * RATE * 2:
            file.write(piece.tobytes())


RAW = ["-f", "s16le", "-ar", str(RATE), "-ac", "1"]


def level_of(name):
    with open(name, "rb") as file:
        return rms(array.array("h", file.read(60 * RATE * 2)))


def mix(voice, noise, factor, out):
    ffmpeg(*RAW, "-i", voice, *RAW, "-i", noise, "-filter_complex",
           f"[1]volume={factor:.6f}[n];[0][n]amix=inputs=2:normalize=0:duration=first", out)


def make_sound(options, track, lines, rng, cache):
    """Writes the sound of each condition that is asked for."""
    seconds = math.ceil(len(track) / RATE)
    with tempfile.TemporaryDirectory() as folder:
        voice = os.path.join(folder, "voice")
        with open(voice, "wb") as file:
            file.write(track.tobytes())
        parts = [track[int(line.start * RATE / 1000):int(line.end * RATE / 1000)] for line in lines
                 if line.start is not None]
        level = math.sqrt(sum(rms(part) ** 2 * len(part) for part in parts) / sum(map(len, parts)))
        made = {}
        for kind in NOISES:
            made[kind] = os.path.join(folder, kind)
            if any(condition.startswith(kind) for condition in options.conditions) or kind == "pink":
                # Each kind draws from a generator of its own, so that it is the same whatever else is asked for.
                own = random.Random(f"{options.seed}:{kind}:{options.set}")
                if kind == "pink":
                    pink(seconds, options.seed, made[kind])
                elif kind == "babble":
                    babble(options, seconds, own, cache, made[kind])
                else:
                    music(seconds, own, made[kind])
        for condition in options.conditions:
            kind = condition.rstrip("0123456789")
            noise = "pink" if kind in ("clean", "late") else kind
            db = float(condition[len(kind):] or ROOM_DB)
            factor = level / level_of(made[noise]) / 10 ** (db / 20)
            out = os.path.join(options.folder, condition + ".wav")
            mix(voice, made[noise], factor, out)
            if kind == "late":
                begin_late(out, seconds, os.path.join(options.folder, "late.mkv"))
                os.remove(out)


def begin_late(sound, seconds, out):
    ffmpeg("-f", "lavfi", "-i", f"color=black:s=64x36:r=5:d={seconds}", "-itsoffset", "2", "-ss", "2", "-i", sound, "-map",
           "0:v", "-map", "1:a", "-c:v", "mpeg4", "-c:a", "pcm_s16le", out)


def clock(ms):
    ms = max(0, round(ms))
    return f"{ms // 3600000:02}:{ms // 60000 % 60:02}:{ms // 1000 % 60:02},{ms % 1000:03}"


def write_srt(name, rows):
    with open(name, "w", encoding="utf-8") as file:
        for row, (start, end, text) in enumerate(rows, 1):
            file.write(f"{row}\n{clock(start)} --> {clock(end)}\n{text}\n\n")


def held(lines, rng, start, end, spread):
    """The lines as a person holds them who is late by `start` and `end` ms; a key is up before it is down again."""
    presses = [line.start + start * math.exp(rng.gauss(0, 0.3)) for line in lines]
    rows = []
    for index, line in enumerate(lines):
        release = max(line.end + rng.gauss(end, spread), presses[index] + 80)
        if index + 1 < len(lines):
            release = min(release, presses[index + 1] - 40)
        rows.append((presses[index], release, line.text))
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder")
    parser.add_argument("--set", choices=["tune", "report"], default="tune")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--captions", type=int, default=60)
    parser.add_argument("--conditions", default=",".join(["clean", "late"] + [n + str(l) for n in NOISES for l in LEVELS]))
    parser.add_argument("--unspoken", type=float, default=0)
    parser.add_argument("--unwritten", type=float, default=0)
    parser.add_argument("--voices", default=",".join(VOICES))
    options = parser.parse_args()
    options.conditions = options.conditions.split(",")
    options.voices = options.voices.split(",")
    os.makedirs(options.folder, exist_ok=True)
    cache = os.path.join(tempfile.gettempdir(), "cuewright-spoken")
    os.makedirs(cache, exist_ok=True)
    rng = random.Random(f"{options.seed}:{options.set}")
    track, lines = speech(options, rng, cache)
    told = [line for line in lines if line.start is not None]

    folder = options.folder
    write_srt(os.path.join(folder, "truth.srt"), [(line.start, line.end, line.text) for line in told])
    press = held(told, random.Random(f"{options.seed}:press"), 220, 200, 100)
    write_srt(os.path.join(folder, "press.srt"), press)
    write_srt(os.path.join(folder, "slow.srt"), held(told, random.Random(f"{options.seed}:slow"), 400, 350, 120))
    foreign = sentences.FOREIGN["es"] + sentences.FOREIGN["de"]
    write_srt(os.path.join(folder, "foreign.srt"),
              [(start, end, foreign[index % len(foreign)]) for index, (start, end, _) in enumerate(press)])
    with open(os.path.join(folder, "text.txt"), "w", encoding="utf-8") as file:
        file.writelines(line.text + "\n" for line in lines)
    with open(os.path.join(folder, "lines.tsv"), "w", encoding="utf-8") as file:
        file.writelines("-\t-\n" if line.start is None else f"{line.start:.0f}\t{line.end:.0f}\n" for line in lines)
    make_sound(options, track, lines, rng, cache)


if __name__ == "__main__":
    main()
