#!/usr/bin/python3
"""Plays scenes of a user's evening in the real program, one program a scene, and looks at what is on the disk afterwards.

    evening.py BINARY FILM FOLDER [SCENE...]
"""

import os
import resource
import signal
import subprocess
import sys
import time

import desktop

QUESTION = "The opened file has been modified"


def subrip(texts):
    blocks = []
    for number, text in enumerate(texts, 1):
        at = "00:%02d:%02d" % (number // 60, number % 60)
        blocks.append("%d\r\n%s,000 --> %s,500\r\n%s\r\n\r\n" % (number, at, at, text))
    return "".join(blocks)


class Scene:
    """One program with a folder of its own."""

    def __init__(self, binary, film, folder):
        self.binary, self.film, self.folder = binary, film, folder
        os.makedirs(folder)
        self.config = os.path.join(folder, "config")
        os.makedirs(os.path.join(self.config, "tessaly-cuewright"))
        self.program = None

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        with open(self.path(name), "w", encoding="utf-8", newline="") as file:
            file.write(content)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), encoding="utf-8", newline="") as file:
            return file.read()

    def start(self, *arguments, options="", largest=None, state=None):
        with open(os.path.join(self.config, "tessaly-cuewright", "settings.ini"), "w", encoding="utf-8") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nWindowState=0\nLastFolder=%s/\n%s" %
                       (self.folder, options))
        before = resource.getrlimit(resource.RLIMIT_FSIZE)
        if largest is not None:
            # The program must get an error for a file that grows beyond this, as on a full disk, and no signal.
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (largest, before[1]))
        try:
            environment = {"XDG_CONFIG_HOME": self.config, "LC_ALL": "C.UTF-8", "CUEWRIGHT_MPV_OPTIONS": "ao=null"}
            if state is not None:
                environment["XDG_STATE_HOME"] = state
            self.program = desktop.Program(self.binary, list(arguments), environment, restore_signals=largest is None)
        finally:
            resource.setrlimit(resource.RLIMIT_FSIZE, before)
        self.main = desktop.wait_for("the main window", lambda: self.program.window_id("Tessaly Cuewright"))
        desktop.focus(self.main)

    def open_by_key(self, name):
        desktop.focus(self.main)
        desktop.key("ctrl+o")
        desktop.wait_for("the open dialog", lambda: self.program.find("text", "File name:"))
        desktop.type_text(self.path(name))
        desktop.key("Return")

    def wait_rows(self, count):
        table = desktop.wait_for("the list", lambda: self.program.find("table", "List of the captions"))
        desktop.wait_for("%d captions" % count, lambda: table.queryTable().nRows == count)

    def pane(self):
        return desktop.wait_for("the pane", lambda: self.program.find("text", "Text of the caption"))

    def focus_pane(self):
        pane = self.pane()
        desktop.wait_for("a pane to type in", lambda: desktop.enabled(pane))
        pane.queryComponent().grabFocus()
        desktop.wait_for("the focus in the pane", lambda: pane.getState().contains(desktop.pyatspi.STATE_FOCUSED))
        return pane

    def type_into_pane(self, text):
        pane = self.focus_pane()
        desktop.key("ctrl+a")
        desktop.type_text(text)
        desktop.wait_for("the typed text", lambda: pane.queryText().getText(0, -1) == text)

    def box(self, text):
        """Waits for a box whose text has this part."""
        def there():
            for label in self.program.all("label"):
                if text in label.name and label.getState().contains(desktop.pyatspi.STATE_SHOWING):
                    return label
            return None
        return desktop.wait_for("a box with: " + text, there)

    def box_gone(self, text):
        desktop.wait_for("the end of: " + text, lambda: not any(
            text in label.name and label.getState().contains(desktop.pyatspi.STATE_SHOWING)
            for label in self.program.all("label")))

    def menu_item(self, menu_key, name):
        """Opens a menu by its key and walks down to an item."""
        desktop.focus(self.main)
        desktop.key(menu_key)
        item = desktop.wait_for("the menu with " + name, lambda: self.program.find("menu item", name))
        for _ in range(30):
            state = item.getState()
            if state.contains(desktop.pyatspi.STATE_FOCUSED) or state.contains(desktop.pyatspi.STATE_SELECTED):
                break
            desktop.key("Down")
        desktop.key("Return")

    def press_button(self, name):
        """Clicks a button of the box on top."""
        button = desktop.wait_for("the button " + name, lambda: self.program.find("push button", name))
        where = button.queryComponent().getExtents(desktop.pyatspi.DESKTOP_COORDS)
        desktop.xdotool("mousemove", where.x + where.width // 2, where.y + where.height // 2, "click", 1)

    def close(self):
        desktop.focus(self.main)
        desktop.key("alt+F4")

    def wait_end(self):
        desktop.wait_for("the program's end", lambda: self.program.process.poll() is not None)
        assert self.program.process.returncode == 0, self.program.process.returncode

    def still_open(self):
        assert self.program.process.poll() is None

    def export_dialog(self, format_name=None):
        """The dialog of formats, answered with OK."""
        dialog = desktop.wait_for("the formats", lambda: self.program.window_id("^Save as$"))
        desktop.focus(dialog)
        if format_name is not None:
            desktop.wait_for("the box of formats", lambda: self.program.find("combo box"))
            desktop.type_text(format_name)
        desktop.key("Return")

    def save_dialog(self, path):
        """The file dialog, answered with a path; None leaves it."""
        desktop.wait_for("the save dialog", lambda: self.program.find("text", "File name:"))
        if path is None:
            desktop.key("Escape")
        else:
            desktop.key("ctrl+a")
            desktop.type_text(path)
            desktop.key("Return")
        desktop.wait_for("the end of the save dialog", lambda: self.program.find("text", "File name:") is None)

    def hold_lines(self, count):
        """Holds the key B for so many lines of the film."""
        for _ in range(count):
            desktop.xdotool("keydown", "b")
            time.sleep(0.5)  # how long a line is spoken
            desktop.xdotool("keyup", "b")
            time.sleep(0.2)

    def end(self):
        if self.program is not None:
            self.program.quit()


def a_text_is_timed_and_closed_with_yes(s):
    s.write("lines.txt", "one\ntwo\n")
    s.start(s.film)
    label = desktop.wait_for("the position", lambda: next(
        (l for l in s.program.all("label") if l.description == "Current position in milliseconds"), None))
    desktop.wait_for("the film to play", lambda: int(label.name or 0) > 100)
    s.open_by_key("lines.txt")
    s.wait_rows(2)
    desktop.focus(s.main)
    table = s.program.find("table", "List of the captions")
    table.queryComponent().grabFocus()
    s.hold_lines(2)
    s.close()
    s.box(QUESTION)
    s.press_button("Yes")
    s.export_dialog("SubRip")
    s.save_dialog(s.path("timed.srt"))
    s.wait_end()
    assert s.read("lines.txt") == "one\ntwo\n", s.read("lines.txt")
    saved = s.read("timed.srt")
    assert saved.count(" --> ") == 2 and "one" in saved and "two" in saved, saved


def looking_asks_nothing(s):
    s.start(s.write("a.srt", subrip(["Hello", "there", "you"])))
    s.wait_rows(3)
    s.focus_pane()
    desktop.key("Right", "Right", "Left", "End", "Home")
    desktop.key("ctrl+s")
    desktop.key("Right")
    s.close()
    s.wait_end()
    assert s.read("a.srt") == subrip(["Hello", "there", "you"])


def escape_at_the_question_keeps_everything(s):
    before = subrip(["Hello", "there", "you"])
    s.start(s.write("a.srt", before))
    s.wait_rows(3)
    s.type_into_pane("A night's work")
    s.close()
    s.box(QUESTION)
    desktop.key("Escape")
    s.box_gone(QUESTION)
    s.still_open()
    assert s.read("a.srt") == before
    desktop.focus(s.main)
    desktop.key("ctrl+s")
    desktop.wait_for("the saved text", lambda: "A night's work" in s.read("a.srt"))
    s.close()
    s.wait_end()


def no_at_the_question_leaves_the_file(s):
    before = subrip(["Hello", "there"])
    s.start(s.write("a.srt", before))
    s.wait_rows(2)
    s.type_into_pane("Nonsense")
    s.close()
    s.box(QUESTION)
    s.press_button("No")
    s.wait_end()
    assert s.read("a.srt") == before


def one_caption_is_work_too(s):
    s.start(s.write("a.srt", subrip(["Hello"])))
    s.wait_rows(1)
    s.type_into_pane("My only line")
    s.close()
    s.box(QUESTION)
    s.press_button("Yes")
    s.wait_end()
    assert "My only line" in s.read("a.srt")


def save_as_and_think_better_of_it(s):
    s.start(s.write("a.srt", subrip(["Hello", "there"])))
    s.wait_rows(2)
    s.type_into_pane("Changed")
    desktop.key("ctrl+shift+s")
    s.export_dialog("MicroDVD")
    s.save_dialog(None)
    desktop.focus(s.main)
    desktop.key("ctrl+s")
    desktop.wait_for("the saved text", lambda: "Changed" in s.read("a.srt"))
    assert s.read("a.srt") == subrip(["Changed", "there"]), s.read("a.srt")
    s.close()
    s.wait_end()


def the_disk_is_full_at_the_last_moment(s):
    before = subrip(["line %d of a long evening" % i for i in range(1, 1500)])
    s.start(s.write("a.srt", before), largest=len(before) - 1000)
    s.wait_rows(1499)
    s.type_into_pane("A night's work")
    s.close()
    s.box(QUESTION)
    s.press_button("Yes")
    s.box("Failed to save file")
    desktop.key("Return")
    s.still_open()
    assert s.read("a.srt") == before
    assert sorted(os.listdir(s.folder)) == ["a.srt", "config"], os.listdir(s.folder)
    # What was typed is still there.
    assert s.pane().queryText().getText(0, -1) == "A night's work"
    s.close()
    s.box(QUESTION)
    s.press_button("No")
    s.wait_end()


def a_folder_that_went_away(s):
    os.makedirs(s.path("stick"))
    s.start(s.write("stick/a.srt", subrip(["Hello", "there"])))
    s.wait_rows(2)
    s.type_into_pane("A night's work")
    os.rename(s.path("stick"), s.path("pulled"))
    s.close()
    s.box(QUESTION)
    s.press_button("Yes")
    s.box("An error ocurred while saving the file")
    desktop.key("Return")
    s.still_open()
    os.rename(s.path("pulled"), s.path("stick"))
    desktop.focus(s.main)
    desktop.key("ctrl+s")
    desktop.wait_for("the saved text", lambda: "A night's work" in s.read("stick/a.srt"))
    s.close()
    s.wait_end()


def rules_only_look_at_what_is_opened(s):
    before = subrip(["Hello there", "and you"]).replace("00:00:01,500", "00:00:02,400")
    s.start(s.write("a.srt", before))
    s.wait_rows(2)
    s.box("1 finding")
    desktop.focus(s.main)
    desktop.key("ctrl+s")
    s.box("Saved as")
    assert s.read("a.srt") == before, s.read("a.srt")
    s.close()
    s.wait_end()


def what_the_rules_did_is_taken_back(s):
    before = subrip(["Hello there", "and you"]).replace("00:00:01,500", "00:00:02,400")
    s.start(s.write("a.srt", before))
    s.wait_rows(2)
    s.box("1 finding")
    s.press_button("Apply")
    s.box("The rules changed 1 caption")
    report = desktop.wait_for("the report", lambda: s.program.window_id("Subtitle File Report"))
    desktop.focus(report)
    desktop.key("Escape")
    desktop.focus(s.main)
    s.press_button("Undo")
    s.box_gone("The rules changed")
    s.close()
    s.wait_end()
    assert s.read("a.srt") == before, s.read("a.srt")


def the_wrong_file_is_appended(s):
    before = subrip(["Hello", "there"])
    s.write("a.srt", before)
    s.start(s.film)
    s.open_by_key("a.srt")
    s.wait_rows(2)
    s.menu_item("alt+e", "Append subtitle...")
    desktop.wait_for("the open dialog", lambda: s.program.find("text", "File name:"))
    desktop.type_text(s.write("letter.xyz", "Dear friend\n"))
    desktop.key("Return")
    s.box("Failed to determine subtitle format")
    desktop.key("Return")
    s.type_into_pane("Changed")
    desktop.focus(s.main)
    desktop.key("ctrl+s")
    desktop.wait_for("the saved text", lambda: "Changed" in s.read("a.srt"))
    assert s.read("a.srt") == subrip(["Changed", "there"]), s.read("a.srt")
    s.close()
    s.wait_end()


def the_classic_manner_closes_one_caption_silently(s):
    before = subrip(["Hello"])
    s.start(s.write("a.srt", before), options="Classic=1\n")
    s.wait_rows(1)
    s.type_into_pane("My only line")
    s.close()
    s.wait_end()
    assert s.read("a.srt") == before


def escape_at_captions_without_times_cuts_nothing_off(s):
    before = subrip(["Hello", "there", "you"]).replace("00:00:02,000 --> 00:00:02,500", "00:00:00,000 --> 00:00:00,000")
    s.start(s.write("a.srt", before))
    s.wait_rows(3)
    s.type_into_pane("A night's work")
    desktop.key("ctrl+s")
    s.box("captions without timing")
    desktop.key("Escape")
    s.box_gone("without timing")
    assert s.read("a.srt") == before
    s.close()
    s.box(QUESTION)
    s.press_button("Yes")
    s.box("captions without timing")
    desktop.key("Escape")
    s.still_open()
    desktop.focus(s.main)
    desktop.key("ctrl+s")
    s.box("captions without timing")
    s.press_button("Yes")
    desktop.wait_for("the whole file", lambda: "A night's work" in s.read("a.srt") and "you" in s.read("a.srt"))
    s.close()
    s.wait_end()


def what_a_save_left_out_comes_back(s):
    s.start(s.write("a.srt", subrip(["Hello", "there", "you"]).replace(
        "00:00:02,000 --> 00:00:02,500", "00:00:00,000 --> 00:00:00,000")))
    s.wait_rows(3)
    s.type_into_pane("Changed")
    desktop.key("ctrl+s")
    s.box("captions without timing")
    s.press_button("No")
    desktop.wait_for("the saved part", lambda: s.read("a.srt") == subrip(["Changed"]))
    journals = os.path.join(s.program.home.name, "xdg_state_home", "tessaly-cuewright", "journals")
    desktop.wait_for("a journal of the rest", lambda: any(
        os.path.getsize(os.path.join(journals, name)) > 0 for name in os.listdir(journals)))
    s.program.process.kill()
    s.program.process.wait()
    state = s.program.environment["XDG_STATE_HOME"]
    home = s.program.home
    s.start(options="", state=state)
    s.box("It can be restored")
    s.press_button("Yes")
    s.wait_rows(3)
    home.cleanup()
    # The box stood over the window and has gone.
    s.main = desktop.wait_for("the main window", lambda: s.program.window_id("Tessaly Cuewright"))
    s.close()
    s.box(QUESTION)
    s.press_button("No")
    s.wait_end()


SCENES = [a_text_is_timed_and_closed_with_yes, looking_asks_nothing, escape_at_the_question_keeps_everything,
          no_at_the_question_leaves_the_file, one_caption_is_work_too, save_as_and_think_better_of_it,
          the_disk_is_full_at_the_last_moment, a_folder_that_went_away,
          escape_at_captions_without_times_cuts_nothing_off,
          what_a_save_left_out_comes_back,
          rules_only_look_at_what_is_opened, what_the_rules_did_is_taken_back, the_wrong_file_is_appended,
          the_classic_manner_closes_one_caption_silently]


def main():
    binary, film, folder = (os.path.abspath(path) for path in sys.argv[1:4])
    failures = 0
    for play in SCENES:
        if len(sys.argv) > 4 and play.__name__ not in sys.argv[4:]:
            continue
        scene = Scene(binary, film, os.path.join(folder, play.__name__))
        name = play.__name__.replace("_", " ")
        try:
            play(scene)
            print("ok:", name)
        except (AssertionError, desktop.Timeout, subprocess.CalledProcessError) as problem:
            failures += 1
            desktop.screenshot(os.path.join(folder, play.__name__ + ".png"))
            print("FAILED: %s: %s" % (name, problem))
        finally:
            scene.end()
        sys.stdout.flush()
    print("%d failures" % failures)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
