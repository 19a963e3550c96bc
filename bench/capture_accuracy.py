#!/usr/bin/env python3
"""Measures how exactly a key press becomes the time of a caption.

The real program plays a film in a window of a virtual display. Keys go down and up at known instants, and the times in
the saved subtitle are compared with where the film truly was then. That is asked of the player's library through its
own socket, from outside the program and past the program's clock, and checked against the frame numbers that the film
shows on the screen.

    bench/capture_accuracy.py PROGRAM [--captions N] [--case NAME]... [--seed N] [--speed F] [--busy LIBRARY] [--moment]

With --speed the film plays at another speed, set by the program's keys; the errors are those of the film's time, and
what may be reached grows with a speed above 1.
With --busy the program's window does nothing for 150 ms around each key, as if it were at other work: LIBRARY is
libbusy_window.so of the build, which the program is started with. --moment only looks whether all of it still runs.
"""

import argparse
import bisect
import ctypes
import json
import os
import random
import re
import shutil
import signal
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
import time

SCREEN = (1280, 900)
BITS = 12  # of the frame number that the film shows
CASES = {  # frames a second and sound
    "24": (24, True),
    "25": (25, True),
    "60": (60, True),
    "sound": (0, True),
    "silent25": (25, False),
}
STANDARD_CASES = ["24", "25", "60", "sound"]
GREEN = (32, 160, 64)
SPEEDS = (0.25, 0.33, 0.5, 0.67, 0.75, 1, 1.25, 1.5, 2, 3, 4)
BUSY_S = 0.15  # as bench/busy_window.c has it
LONGEST_KEY_S = 0.002  # a key that took the server longer went at an instant that nobody knows
MEDIAN_MS, P95_MS = 1.5, 4


def fail(text):
    sys.exit("capture_accuracy: " + text)


def wait_for(what, condition, seconds=30.0):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.01)
    fail("waited %g s for %s" % (seconds, what))


# --- the film -------------------------------------------------------------------------------------------------------


def make_film(folder, name, seconds):
    fps, sound = CASES[name]
    path = os.path.join(folder, "film_%s.%s" % (name, "mkv" if fps else "wav"))
    command = ["ffmpeg", "-v", "error", "-nostdin", "-y"]
    if fps:
        command += ["-f", "lavfi", "-i", "color=c=0x%02x%02x%02x:size=640x360:rate=%d:duration=%g" % (*GREEN, fps, seconds)]
    if sound:
        command += ["-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:duration=%g" % seconds]
    if fps:
        cells = [
            "drawbox=x=%d:y=120:w=40:h=120:color=black:t=fill,"
            "drawbox=x=%d:y=120:w=40:h=120:color=white:t=fill:enable='mod(floor(n/%d),2)'" % (80 + 40 * i, 80 + 40 * i, 2**i)
            for i in range(BITS)
        ]
        command += ["-vf", ",".join(cells), "-c:v", "libx264", "-preset", "ultrafast", "-crf", "12", "-pix_fmt", "yuv420p"]
    if sound:
        command += ["-c:a", "pcm_s16le"]
    subprocess.run(command + [path], check=True)
    return path


def make_subtitle(path, count):
    with open(path, "w", encoding="ascii", newline="") as file:
        for i in range(1, count + 1):
            file.write("%d\r\n00:00:00,000 --> 00:00:00,000\r\nLine number %d\r\n\r\n" % (i, i))


def read_subtitle(path):
    def ms(text):
        hours, minutes, seconds, rest = map(int, re.split("[:,]", text))
        return ((hours * 60 + minutes) * 60 + seconds) * 1000 + rest

    with open(path, encoding="latin-1") as file:
        return [(ms(a), ms(b)) for a, b in re.findall(r"(\d+:\d+:\d+,\d+) --> (\d+:\d+:\d+,\d+)", file.read())]


# --- the display ----------------------------------------------------------------------------------------------------


class XImage(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.POINTER(ctypes.c_ubyte)), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int)]


class Display:
    """One connection to the X server."""

    def __init__(self, name):
        self.x = ctypes.CDLL("libX11.so.6")
        self.test = ctypes.CDLL("libXtst.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x.XStringToKeysym.restype = ctypes.c_ulong
        self.x.XGetImage.restype = ctypes.POINTER(XImage)
        self.handle = ctypes.c_void_p(self.x.XOpenDisplay(name.encode()))
        if not self.handle:
            fail("no display " + name)
        self.root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.handle))

    def key(self, name, down):
        """Presses or releases a key, and gives the instant at which the server had it; none when it can't be told."""
        symbol = ctypes.c_ulong(self.x.XStringToKeysym(name.encode()))
        code = self.x.XKeysymToKeycode(self.handle, symbol)
        before = time.monotonic()
        self.test.XTestFakeKeyEvent(self.handle, code, int(down), ctypes.c_ulong(0))
        self.x.XSync(self.handle, 0)
        after = time.monotonic()
        return (before + after) / 2 if after - before < LONGEST_KEY_S else None

    def tap(self, *names):
        for name in names:
            self.key(name, True)
        for name in reversed(names):
            self.key(name, False)

    def grab(self, left, top, width, height):
        """Rows of (red, green, blue) of a part of the screen."""
        image = self.x.XGetImage(self.handle, self.root, left, top, width, height, ctypes.c_ulong(0xFFFFFF), 2)
        picture = image.contents
        raw = ctypes.string_at(picture.data, picture.bytes_per_line * height)
        stride = picture.bytes_per_line
        self.x.XFree(picture.data)
        self.x.XFree(image)
        return [[(raw[y * stride + x * 4 + 2], raw[y * stride + x * 4 + 1], raw[y * stride + x * 4]) for x in range(width)]
                for y in range(height)]


def is_green(colour):
    return all(abs(a - b) < 30 for a, b in zip(colour, GREEN))


class FrameReader(threading.Thread):
    """Reads now and then which frame the screen shows."""

    def __init__(self, name):
        super().__init__(daemon=True)
        self.display = Display(name)
        self.seen = []
        self.quit = threading.Event()

    def find(self):
        """Where the film's picture is on the screen."""
        rows = self.display.grab(0, 0, *SCREEN)
        columns = [x for row in rows[::4] for x, colour in enumerate(row) if is_green(colour)]
        lines = [y for y, row in enumerate(rows) if sum(map(is_green, row[::4])) > 40]
        if not lines:
            return None
        return min(columns), min(lines), max(columns) + 1, max(lines) + 1

    def run(self):
        place = wait_for("the film on the screen", self.find)
        left, top, right, bottom = place
        scale = (right - left) / 640
        y = (top + bottom) // 2
        while not self.quit.wait(0.037):
            before = time.monotonic()
            row = self.display.grab(left, y, right - left, 1)[0]
            after = time.monotonic()
            bits = [row[int((80 + 40 * i + 20) * scale)][0] > 128 for i in range(BITS)]
            if after - before < 0.005:
                self.seen.append(((before + after) / 2, sum(1 << i for i, bit in enumerate(bits) if bit)))


# --- where the film truly is ----------------------------------------------------------------------------------------


class Truth(threading.Thread):
    """Asks the library itself for the position, with the instant of each answer."""

    # A machine that is slow for a moment gives few; that the bench runs can still be seen then (--moment).
    least_answers = 8

    def __init__(self, path, prop, speed):
        super().__init__(daemon=True)
        self.speed = speed
        self.socket = socket.socket(socket.AF_UNIX)
        wait_for("the library's socket", lambda: os.path.exists(path))
        self.socket.connect(path)
        self.stream = self.socket.makefile("rb")
        self.prop = prop
        self.lock = threading.Lock()
        self.samples = []  # instant, position
        self.quit = threading.Event()

    def ask(self, prop):
        with self.lock:
            before = time.monotonic()
            self.socket.sendall(json.dumps({"command": ["get_property", prop], "request_id": 1}).encode() + b"\n")
            while True:
                answer = json.loads(self.stream.readline())
                if "request_id" in answer:
                    break
            after = time.monotonic()
        return before, after, answer.get("data")

    def run(self):
        last = None
        while not self.quit.wait(0.004 if self.prop == "audio-pts" else 0.001):
            before, after, position = self.ask(self.prop)
            if position is None or after - before > 0.003:
                last = None
                continue
            now = (before + after) / 2
            if self.prop == "audio-pts":
                self.samples.append((now, position))
            elif last is not None and last[1] != position:
                # The position steps by frames: the step was between the two answers.
                self.samples.append(((last[0] + now) / 2, position))
            last = (now, position)

    def at(self, instant):
        """Position in seconds: the line of the speed's slope through the answers around the instant."""
        instants = [sample[0] for sample in self.samples]
        first = bisect.bisect_left(instants, instant - 0.5)
        last = bisect.bisect_right(instants, instant + 0.5)
        near = self.samples[first:last]
        if len(near) < self.least_answers:
            fail("too few answers about the position around an event (%d)" % len(near))
        offsets = [position - when * self.speed for when, position in near]
        if max(offsets) - min(offsets) > 0.03 * max(1, self.speed):
            fail("the film did not run evenly around an event: %.1f ms" % ((max(offsets) - min(offsets)) * 1000))
        return statistics.median(offsets) + instant * self.speed


# --- one case -------------------------------------------------------------------------------------------------------


class Run:
    def __init__(self, arguments, name, display):
        self.program, self.name, self.captions = os.path.abspath(arguments.program), name, arguments.captions
        self.chance, self.display, self.speed = random.Random(arguments.seed), display, arguments.speed
        self.busy = arguments.busy and os.path.abspath(arguments.busy)
        self.keys = Display(display)
        self.folder = tempfile.mkdtemp(prefix="capture-accuracy-")
        self.process = None

    def windows(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)],
                               env=dict(os.environ, DISPLAY=self.display), capture_output=True, text=True)
        return found.stdout.split()

    def xdotool(self, *words):
        subprocess.run(["xdotool", *words], env=dict(os.environ, DISPLAY=self.display), check=True,
                       stdout=subprocess.DEVNULL)

    def start(self, film):
        ipc = os.path.join(self.folder, "ipc")
        environment = dict(os.environ, DISPLAY=self.display, QT_QPA_PLATFORM="xcb", HOME=self.folder,
                           XDG_CONFIG_HOME=os.path.join(self.folder, "config"),
                           CUEWRIGHT_MPV_OPTIONS="ao=null input-ipc-server=" + ipc)
        environment.pop("WAYLAND_DISPLAY", None)
        if self.busy:
            environment["LD_PRELOAD"] = self.busy
        # No first start, which would ask for the language; and each caption begins where the key says.
        settings = os.path.join(self.folder, "config", "tessaly-cuewright", "settings.ini")
        os.makedirs(os.path.dirname(settings))
        with open(settings, "w", encoding="ascii") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nAutoJoin=0\nDuration=0\n")
        self.process = subprocess.Popen([self.program, film], env=environment)
        return ipc

    def open_subtitle(self, path):
        """By the file dialog, as a person would."""
        before = set(self.windows())
        self.keys.tap("Control_L", "o")
        dialog = wait_for("the file dialog", lambda: [w for w in self.windows() if w not in before])[-1]
        self.xdotool("windowfocus", "--sync", dialog)
        self.xdotool("type", "--clearmodifiers", "--delay", "4", path)
        self.keys.tap("Return")
        wait_for("the end of the file dialog", lambda: dialog not in self.windows())

    def change_speed(self):
        steps = SPEEDS.index(self.speed) - SPEEDS.index(1)
        for _ in range(abs(steps)):
            self.keys.tap("Control_L", "minus" if steps < 0 else "equal")

    def press(self, down):
        """The instant of a press or release, with the window busy around it where that is asked for."""
        if self.busy:
            os.kill(self.process.pid, signal.SIGUSR2)
            time.sleep(self.chance.uniform(0.01, BUSY_S - 0.02))
        return self.keys.key("b", down)

    def capture(self):
        events = []
        for _ in range(self.captions):
            time.sleep(self.chance.uniform(0.3, 0.7))
            down = self.press(True)
            time.sleep(self.chance.uniform(0.25, 0.6))
            events.append((down, self.press(False)))
        time.sleep(1)
        return events

    def go(self):
        fps, sound = CASES[self.name]
        film = make_film(self.folder, self.name, self.captions * (1.4 if self.busy else 1.1) * max(1, self.speed) + 15)
        subtitle = os.path.join(self.folder, "lines.srt")
        make_subtitle(subtitle, self.captions)
        truth = Truth(self.start(film), "audio-pts" if sound else "time-pos", self.speed)
        wait_for("the film to play", lambda: (truth.ask("time-pos")[2] or 0) > 0.2)
        main = wait_for("the window", self.windows)[0]
        self.xdotool("windowfocus", "--sync", main)
        self.open_subtitle(subtitle)
        self.xdotool("windowfocus", "--sync", main)
        wait_for("the stop", lambda: self.keys.tap("c") or time.sleep(0.2) or truth.ask("pause")[2])
        self.change_speed()
        wait_for("the speed", lambda: abs(truth.ask("speed")[2] - self.speed) < 0.001)
        self.keys.tap("z")
        wait_for("the film to play again", lambda: (truth.ask("time-pos")[2] or 0) > 0.5)
        truth.start()
        frames = FrameReader(self.display) if fps else None
        if frames:
            frames.start()
        events = self.capture()
        for thread in filter(None, (truth, frames)):
            thread.quit.set()
            thread.join()
        self.keys.tap("c")
        saved = os.stat(subtitle).st_mtime_ns
        self.keys.tap("Control_L", "s")
        wait_for("the saved file", lambda: os.stat(subtitle).st_mtime_ns != saved)
        wait_for("the whole file", lambda: len(read_subtitle(subtitle)) >= self.captions)
        return self.compare(read_subtitle(subtitle), events, truth, frames, fps)

    def compare(self, stored, events, truth, frames, fps):
        errors = []
        for (start, end), (down, up) in zip(stored, events):
            errors += [stored - truth.at(instant) * 1000 for stored, instant in ((start, down), (end, up)) if instant]
        behind = []
        if frames:
            behind = [(truth.at(when) - frame / fps) * 1000 for when, frame in frames.seen[5:-15]]
        return errors, behind

    def end(self):
        if self.process and self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.process.kill()
        shutil.rmtree(self.folder, ignore_errors=True)


def report(name, errors, behind, fps, speed):
    absolute = sorted(abs(error) for error in errors)
    p95 = absolute[min(len(absolute) - 1, int(len(absolute) * 0.95))]
    print("%-9s %4d events  median %5.2f ms  95th percentile %5.2f ms  worst %5.2f ms  (mean with sign %+5.2f ms)" %
          (name, len(errors), statistics.median(absolute), p95, absolute[-1], statistics.mean(errors)))
    if behind:
        print("          check: the screen's frame began %.1f to %.1f ms before the true position (a frame lasts %.1f ms; "
              "%d looks)" % (min(behind), max(behind), 1000 / fps, len(behind)))
    sys.stdout.flush()
    faster = max(1, speed)
    return statistics.median(absolute) <= MEDIAN_MS * faster and p95 <= P95_MS * faster


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--captions", type=int, default=40)
    parser.add_argument("--case", action="append", choices=CASES)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--speed", type=float, default=1, choices=SPEEDS)
    parser.add_argument("--busy", metavar="LIBRARY")
    parser.add_argument("--moment", action="store_true")
    arguments = parser.parse_args()
    if arguments.moment:
        arguments.captions, arguments.case = 4, arguments.case or ["25"]
        Truth.least_answers = 2
    for tool in ("Xvfb", "openbox", "xdotool", "ffmpeg"):
        shutil.which(tool) or fail(tool + " is needed and not installed")
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "%dx%dx24" % SCREEN], pass_fds=[write],
                              stderr=subprocess.DEVNULL)
    os.close(write)
    display = ":" + os.read(read, 16).decode().strip()
    manager = subprocess.Popen(["openbox"], env=dict(os.environ, DISPLAY=display), stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    good = True
    try:
        for name in arguments.case or STANDARD_CASES:
            run = Run(arguments, name, display)
            try:
                good &= report(name, *run.go(), CASES[name][0], arguments.speed)
            finally:
                run.end()
    finally:
        manager.terminate()
        server.terminate()
    print("reached" if good else "NOT reached",
          "(median at most %g ms, 95th percentile at most %g ms)" % (MEDIAN_MS, P95_MS))
    return 0 if good or arguments.moment else 1


if __name__ == "__main__":
    sys.exit(main())
