#!/usr/bin/python3
"""Kills the real program with SIGKILL at random instants of a scripted session, and restores what it left.

    kill_program.py BINARY FOLDER ROUNDS SEED

A round starts the program, restores the document of the round before and saves it, compares the file with what was
done before the kill, and then types and captures until the next kill. Every action leaves a mark of its own in the
document, so that the restored document tells exactly which of them it holds: those of a beginning of the session, to
the last one that was done more than a second before the kill. Everything else in it must be as it was."""

import os
import random
import re
import signal
import sys
import threading
import time

import desktop
from subrip_file import captions_of, clock
from time_film import position_label

CAPTIONS = 400  # more than are captured, so that no row is captured twice
LONGEST_LOSS = 1.0


def caption_file(path):
    with open(path, "w", newline="") as file:
        for i in range(1, CAPTIONS + 1):
            start = 100000 + i * 3000
            file.write("%d\r\n%s --> %s\r\nline %d\r\n\r\n" % (i, clock(start), clock(start + 2000), i))


class Session:
    """One run of the program, from its start to its death."""

    def __init__(self, binary, argument, environment):
        self.program = desktop.Program(binary, [argument], environment)
        self.window = desktop.wait_for("the main window", lambda: self.program.window_id("Tessaly Cuewright [0-9]"))

    def kill(self):
        self.program.process.send_signal(signal.SIGKILL)
        self.program.process.wait(10)

    def answer_offer(self):
        box = desktop.wait_for("the offer", lambda: self.program.window_id("^Tessaly Cuewright$"))
        desktop.focus(box)
        desktop.key("alt+y")
        desktop.wait_for("the end of the offer", lambda: self.program.window_id("^Tessaly Cuewright$") is None)

    def table(self):
        return desktop.wait_for("the list", lambda: self.program.find("table", "List of the captions"))

    def focus_pane(self):
        desktop.focus(self.window)
        pane = desktop.wait_for("the text pane", lambda: self.program.find("text", "Text of the caption"))
        desktop.wait_for("the pane to take text", lambda: desktop.enabled(pane))
        extents = pane.queryComponent().getExtents(desktop.pyatspi.DESKTOP_COORDS)
        desktop.xdotool("mousemove", extents.x + extents.width // 2, extents.y + extents.height // 2, "click", 1)
        desktop.wait_for("the focus", lambda: pane.getState().contains(desktop.pyatspi.STATE_FOCUSED))

    def wait_for_film(self):
        label = desktop.wait_for("the position", lambda: position_label(self.program))
        desktop.wait_for("the film to play", lambda: int(label.name or 0) > 0)


class Script:
    """Types marks and captures in turn, and notes when each was done."""

    def __init__(self, numbers, rand):
        self.numbers = numbers
        self.rand = rand
        self.done = []  # (mark, time), mark None for a capture
        self.running = None

    def type_mark(self):
        mark = "[%d]" % next(self.numbers)
        self.running = mark
        desktop.type_text(mark)
        self.done.append((mark, time.monotonic()))
        self.running = None

    def capture(self):
        self.running = "capture"
        desktop.key("Tab")
        desktop.xdotool("keydown", "b")
        time.sleep(0.05 + self.rand.random() * 0.1)
        desktop.xdotool("keyup", "b")
        self.done.append((None, time.monotonic()))
        # A key that is pressed again before its release was seen is one that was never let go.
        time.sleep(0.2)
        desktop.key("shift+Tab")
        self.running = None

    def forget_after(self, killed):
        """What was done behind the kill went nowhere; what was under way may have arrived."""
        behind = [mark or "capture" for mark, at in self.done if at > killed]
        self.done = [(mark, at) for mark, at in self.done if at <= killed]
        if behind:
            self.running = behind[0]

    def run_until(self, deadline):
        while time.monotonic() < deadline:
            if self.rand.random() < 0.35:
                self.capture()
            else:
                self.type_mark()
            time.sleep(self.rand.random() * 0.05)


def marks_of(text):
    """The marks in a caption's text, those that were cut off by a kill, and what is left without them."""
    whole = re.findall(r"\[\d+\]", text)
    cut = re.findall(r"\[\d*(?![\d\]])", text)
    return whole, cut, re.sub(r"\[\d*\]?", "", text)


def without(texts, others):
    """The texts that are left when each of the others has taken one equal to it away."""
    left = list(texts)
    for other in others:
        if other in left:
            left.remove(other)
    return left


def compare(base, now, script, killed):
    """What is wrong with the restored document `now`, `base` being the one that the session began with; and how long
    before the kill the first action was done that it lacks."""
    if len(now) != len(base):
        return ["%d captions instead of %d" % (len(now), len(base))], 0
    failures, held, cuts = [], set(), []
    captured = 0
    for row, (old, new) in enumerate(zip(base, now), 1):
        old_marks, old_cuts, old_rest = marks_of(old[2])
        marks, new_cuts, rest = marks_of(new[2])
        if rest != old_rest or without(old_marks, marks) or without(old_cuts, new_cuts):
            failures.append("row %d: %r was %r" % (row, new[2], old[2]))
        held |= set(without(marks, old_marks))
        cuts += without(new_cuts, old_cuts)
        if (old[0], old[1]) != (new[0], new[1]):
            captured += 1
            if new[0] <= 0:
                failures.append("row %d has no start" % row)
    marks_typed = [mark for mark, _ in script.done if mark] + [script.running or ""]
    for cut in cuts:
        if not any(mark.startswith(cut) for mark in marks_typed):
            failures.append("%r belongs to no action" % cut)
    if len(cuts) > 1:
        failures.append("more than one mark is cut off: %r" % cuts)

    # The actions that the document holds: a beginning of those that were done, and perhaps one that was running.
    lost_after = None
    captures_left = captured
    for number, (mark, at) in enumerate(script.done, 1):
        if mark is None:
            there = captures_left > 0
            captures_left -= 1 if there else 0
        else:
            there = mark in held
            held.discard(mark)
        if there and lost_after is not None:
            failures.append("action %d is there, action %d before it is not" % (number, lost_after))
        if not there and lost_after is None:
            lost_after = number
            if killed - at > LONGEST_LOSS:
                failures.append("action %d is lost, done %.3f s before the kill" % (number, killed - at))
    if held - {script.running}:
        failures.append("marks of no action: %r" % sorted(held))
    if captures_left > (1 if script.running == "capture" else 0):
        failures.append("%d captures too many" % captures_left)
    lost = 0 if lost_after is None else killed - script.done[lost_after - 1][1]
    return failures, lost


def journals(state):
    folder = os.path.join(state, "tessaly-cuewright", "journals")
    return [name for name in os.listdir(folder) if name.endswith(".journal")] if os.path.isdir(folder) else []


def save(session, path):
    """Saves by the key, and waits for the file."""
    before = os.stat(path).st_mtime_ns

    def saved():
        return os.stat(path).st_mtime_ns != before

    # A key that comes while the film's window is being made may go to no window at all.
    for _ in range(5):
        desktop.focus(session.window)
        desktop.key("ctrl+s")
        try:
            return desktop.wait_for("the saved file", saved, 4)
        except desktop.Timeout:
            pass
    desktop.wait_for("the saved file", saved, 1)


def main():
    binary, folder = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    rounds, rand = int(sys.argv[3]), random.Random(int(sys.argv[4]))
    document, film = os.path.join(folder, "doc.srt"), os.path.join(folder, "film.mp4")
    config, state = os.path.join(folder, "config"), os.path.join(folder, "state")
    os.makedirs(os.path.join(config, "tessaly-cuewright"))
    with open(os.path.join(config, "tessaly-cuewright", "settings.ini"), "w") as file:
        file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nApplyWhen=1\nDuration=0\nAutoJoin=0\n")
    environment = {"XDG_CONFIG_HOME": config, "XDG_STATE_HOME": state, "LC_ALL": "C.UTF-8",
                   "CUEWRIGHT_MPV_OPTIONS": "ao=null loop-file=inf"}
    caption_file(document)
    numbers = iter(range(1, 1000000))
    failures, losses, actions = [], [], 0
    session = None

    def prime():
        """A journal to begin with: the document with one change in it."""
        first = Session(binary, document, environment)
        first.focus_pane()
        desktop.type_text("[%d]" % next(numbers))
        desktop.wait_for("the journal", lambda: journals(state))
        time.sleep(LONGEST_LOSS)
        first.kill()

    def restored():
        """A start that takes what was left and saves it: the session, and the document's captions."""
        started = Session(binary, film, environment)
        started.answer_offer()
        started.table()
        save(started, document)
        desktop.wait_for("the journal to go", lambda: not journals(state))
        with open(document, encoding="utf-8", newline="") as file:
            return started, captions_of(file.read())

    try:
        prime()
        session, base = restored()
        for number in range(1, rounds + 1):
            session.wait_for_film()
            session.focus_pane()
            script = Script(numbers, rand)
            # The kill falls at any place of an action too, so it comes from elsewhere.
            killed = time.monotonic() + 0.2 + rand.random() * 2.8
            killer = threading.Timer(killed - time.monotonic(), session.kill)
            killer.start()
            script.run_until(killed)
            killer.join()
            desktop.xdotool("keyup", "b")
            script.forget_after(killed)
            actions += len(script.done)
            if not journals(state):
                if any(killed - at > LONGEST_LOSS for _, at in script.done):
                    failures.append("round %d: there is no journal" % number)
                prime()
                session, base = restored()
                continue
            session, now = restored()
            found, lost = compare(base, now, script, killed)
            failures += ["round %d: %s" % (number, failure) for failure in found]
            losses.append(lost)
            base = now
    except Exception:
        desktop.screenshot(os.path.join(folder, "failed.png"))
        raise
    finally:
        if session is not None and session.program.process.poll() is None:
            session.kill()
    for failure in failures:
        print("FAILED:", failure)
    print("%d kills, %d actions done before them, at most %.3f s lost, %d failures" %
          (rounds, actions, max(losses, default=0), len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
