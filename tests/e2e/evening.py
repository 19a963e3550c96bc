#!/usr/bin/python3
"""Plays scenes of a user's evening in the real program, one program a scene, and looks at what is on the disk afterwards.

    evening.py BINARY FILM FOLDER [SCENE...]
"""

import os
import subprocess
import sys
import time

import desktop
from evening_checks import CHECK_SCENES
from evening_files import FILE_SCENES
from evening_keys import KEY_SCENES
from evening_times import TIME_SCENES
from evening_wave import WAVE_SCENES
from evening_wizards import WIZARD_SCENES
from scene import Scene, subrip
from subrip_file import captions_of

LARGE = 31000
MANY_WORDS = " and so on" + ", all through a long evening, with words that make the file a large one" * 4


def large_text():
    return subrip(["line %d%s" % (i, MANY_WORDS) for i in range(1, LARGE + 1)])


def untimed(content):
    """The same with a second caption that has no times."""
    return content.replace("00:00:02,000 --> 00:00:02,500", "00:00:00,000 --> 00:00:00,000")


def a_text_is_timed_and_closed_with_yes(s):
    s.start_to_hold("one", "two")
    for _ in range(2):
        s.hold("b")
    s.close("Yes")
    s.export_dialog("SubRip")
    s.save_dialog(s.path("timed.srt"))
    s.wait_end()
    assert s.read("lines.txt") == "one\ntwo\n", s.read("lines.txt")
    saved = s.read("timed.srt")
    assert saved.count(" --> ") == 2 and "one" in saved and "two" in saved, saved


def a_whole_capture_by_the_keyboard_alone(s):
    s.write("lines.txt", "one\ntwo\nthree\nfour\n")
    s.start_with_film()
    s.open_by_key("lines.txt")
    s.wait_rows(4)
    s.tab_to("push button", "Apply")
    s.hold("space")
    s.hold("space")
    # The arrows choose among the three modes.
    s.tab_to("radio button", "Press and hold (recommended)")
    desktop.key("Down")
    desktop.wait_for("the manual mode", lambda: s.focused() == ("radio button", "Manual mode"))
    s.tab_to("push button", "Start")
    desktop.key("space")
    time.sleep(0.4)  # how long the third line is spoken
    s.tab_to("push button", "Next")
    desktop.key("space")
    time.sleep(0.4)  # how long the fourth line is spoken
    s.tab_to("push button", "End")
    desktop.key("space")
    desktop.key("ctrl+s")
    s.export_dialog("SubRip")
    s.save_dialog(s.path("timed.srt"))
    desktop.wait_for("the saved file", lambda: os.path.exists(s.path("timed.srt")))
    s.close_asking_nothing()
    captions = s.captions("timed.srt")
    assert [text for _, _, text in captions] == ["one", "two", "three", "four"], captions
    times = [at for start, end, _ in captions for at in (start, end)]
    assert times == sorted(times) and all(end - start >= 300 for start, end, _ in captions), captions


def looking_asks_nothing(s):
    before = s.open_document("Hello", "there", "you")
    s.focus_pane()
    desktop.key("Right", "Right", "Left", "End", "Home")
    desktop.key("ctrl+s")
    desktop.key("Right")
    s.close_asking_nothing()
    assert s.read("a.srt") == before


def escape_at_the_question_keeps_everything(s):
    before = s.open_document("Hello", "there", "you")
    s.type_into_pane("A night's work")
    s.close("Escape")
    s.still_open()
    assert s.read("a.srt") == before
    s.save_until("a.srt", "A night's work")
    s.close_asking_nothing()


def no_at_the_question_leaves_the_file(s):
    before = s.open_document("Hello", "there")
    s.type_into_pane("Nonsense")
    s.close_with("No")
    assert s.read("a.srt") == before


def one_caption_is_work_too(s):
    s.open_document("Hello")
    s.type_into_pane("My only line")
    s.close_with("Yes")
    assert "My only line" in s.read("a.srt")


def save_as_and_think_better_of_it(s):
    s.open_document("Hello", "there")
    s.type_into_pane("Changed")
    desktop.key("ctrl+shift+s")
    s.export_dialog("MicroDVD")
    s.save_dialog(None)
    s.save_until("a.srt", "Changed")
    assert s.read("a.srt") == subrip(["Changed", "there"]), s.read("a.srt")
    s.close_asking_nothing()


def a_plain_text_holds_no_times(s):
    before = s.open_document("Hello", "there")
    desktop.key("ctrl+shift+s")
    s.export_dialog("Plain")
    s.box("Not all that the captions have", "Save")
    s.save_dialog(s.path("lines.txt"))
    desktop.wait_for("the saved text", lambda: os.path.exists(s.path("lines.txt")))
    # The times are in no file that this document has.
    s.close("Escape")
    s.close_with("No")
    assert s.read("lines.txt").split() == ["Hello", "there"], s.read("lines.txt")
    assert s.read("a.srt") == before


def the_disk_is_full_at_the_last_moment(s):
    texts = ["line %d of a long evening" % i for i in range(1, 1500)]
    before = s.open_document(*texts, largest=len(subrip(texts)) - 1000)
    s.type_into_pane("A night's work")
    s.close("Yes")
    s.box("Failed to save file")
    desktop.key("Return")
    s.still_open()
    assert s.read("a.srt") == before
    assert sorted(os.listdir(s.folder)) == ["a.srt", "config"], os.listdir(s.folder)
    # What was typed is still there.
    assert s.pane().queryText().getText(0, -1) == "A night's work"
    s.close_with("No")


def the_disk_is_full_in_the_classic_manner(s):
    texts = ["line %d of a long evening" % i for i in range(1, 1500)]
    before = s.open_document(*texts, options="Classic=1\n", largest=len(subrip(texts)) - 1000)
    s.type_into_pane("A night's work")
    desktop.wait_for("a journal of the work", s.journals)
    s.close("Yes")
    s.box("Failed to save file")
    desktop.key("Return")
    s.wait_end()
    assert s.read("a.srt") == before
    # The document is closed, and comes back from its journal.
    s.start(options="Classic=1\n")
    s.restore(1499)
    assert s.pane().queryText().getText(0, -1) == "A night's work"
    s.save_until("a.srt", "A night's work")
    s.close()
    s.wait_end()
    assert s.captions("a.srt")[1:] == captions_of(before)[1:]


def a_folder_that_went_away(s):
    os.makedirs(s.path("stick"))
    s.start(s.write("stick/a.srt", subrip(["Hello", "there"])))
    s.wait_rows(2)
    s.type_into_pane("A night's work")
    os.rename(s.path("stick"), s.path("pulled"))
    s.close("Yes")
    s.box("An error ocurred while saving the file")
    desktop.key("Return")
    s.still_open()
    os.rename(s.path("pulled"), s.path("stick"))
    s.save_until("stick/a.srt", "A night's work")
    s.close_asking_nothing()


def the_window_is_closed_while_a_large_file_is_read(s):
    before = large_text()
    s.write("large.srt", before)
    s.start()
    label = desktop.wait_for("the first line", lambda: s.program.find("label", "Welcome to Tessaly Cuewright."))
    s.open_by_key("large.srt")
    desktop.wait_for("the load", lambda: label.name.startswith("Importing"))
    with s.stopped():
        # The title names it without the mark of a change once all of it has been read.
        assert s.program.window_id("^large.srt - ") is None, "the file was read too fast for this scene"
        s.close()

    def ended():
        # A load that is left before its first caption says that there was none.
        if s.box_shown("No text found in the selected file"):
            desktop.key("Return")
        return s.program.process.poll() is not None

    desktop.wait_for("the program's end", ended)
    assert s.program.process.returncode == 0, s.program.process.returncode
    assert s.read("large.srt") == before
    assert not s.journals(), s.journals()


def the_window_is_closed_while_a_large_file_is_written(s):
    before = large_text()
    s.start_with(before, LARGE)
    s.type_into_pane("A night's work")
    names = set(os.listdir(s.folder))
    desktop.key("ctrl+s")
    # The file is written under another name first.
    desktop.wait_for("the file beside", lambda: set(os.listdir(s.folder)) - names)
    with s.stopped():
        assert s.read("a.srt") == before, "the file was written too fast for this scene"
        s.close()
    s.wait_end()
    assert s.read("a.srt") == before.replace("line 1" + MANY_WORDS, "A night's work", 1)
    assert set(os.listdir(s.folder)) == names, os.listdir(s.folder)
    assert not s.journals(), s.journals()


def rules_only_look_at_what_is_opened(s):
    before = subrip(["Hello there", "and you"]).replace("00:00:01,500", "00:00:02,400")
    s.start_with(before, 2)
    s.box("1 finding")
    s.keys("ctrl+s")
    s.box("Saved as")
    assert s.read("a.srt") == before, s.read("a.srt")
    s.close_asking_nothing()


def what_the_rules_did_is_taken_back(s):
    before = subrip(["Hello there", "and you"]).replace("00:00:01,500", "00:00:02,400")
    s.start_with(before, 2)
    s.box("1 finding", "Apply")
    s.box("The rules changed 1 caption")
    report = desktop.wait_for("the report", lambda: s.program.window_id("Subtitle File Report"))
    desktop.focus(report)
    desktop.key("Escape")
    desktop.focus(s.main)
    s.press_button("Undo")
    s.box_gone("The rules changed")
    s.close_asking_nothing()
    assert s.read("a.srt") == before, s.read("a.srt")


def the_wrong_file_is_appended(s):
    s.write("a.srt", subrip(["Hello", "there"]))
    s.start_with_film()
    s.open_by_key("a.srt")
    s.wait_rows(2)
    s.append(s.write("letter.xyz", "Dear friend\n"))
    s.box("Failed to determine subtitle format")
    desktop.key("Return")
    s.type_into_pane("Changed")
    s.save_until("a.srt", "Changed")
    assert s.read("a.srt") == subrip(["Changed", "there"]), s.read("a.srt")
    s.close_asking_nothing()


def a_plain_text_is_appended(s):
    before = subrip(["Hello", "there"])
    s.write("a.srt", before)
    s.start_with_film()
    s.open_by_key("a.srt")
    s.wait_rows(2)
    s.append(s.write("more.txt", "Good\nevening\nInspector\n"))
    # Its lines take the place of the captions, until that is undone.
    s.wait_rows(3)
    s.keys("ctrl+s")
    s.box("captions without timing", "Escape")
    s.close("Escape")
    s.keys("ctrl+z")
    s.wait_rows(2)
    s.close_asking_nothing()
    assert s.read("a.srt") == before
    assert s.read("more.txt") == "Good\nevening\nInspector\n"


def the_classic_manner_closes_one_caption_silently(s):
    before = s.open_document("Hello", options="Classic=1\n")
    s.type_into_pane("My only line")
    s.close_asking_nothing()
    assert s.read("a.srt") == before


def escape_at_captions_without_times_cuts_nothing_off(s):
    before = untimed(subrip(["Hello", "there", "you"]))
    s.start_with(before, 3)
    s.type_into_pane("A night's work")
    desktop.key("ctrl+s")
    s.box("captions without timing", "Escape")
    assert s.read("a.srt") == before
    s.close("Yes")
    s.box("captions without timing", "Escape")
    s.still_open()
    s.keys("ctrl+s")
    s.box("captions without timing", "Yes")
    desktop.wait_for("the whole file", lambda: "A night's work" in s.read("a.srt") and "you" in s.read("a.srt"))
    s.close_asking_nothing()


def what_a_save_left_out_comes_back(s):
    s.start_with(untimed(subrip(["Hello", "there", "you"])), 3)
    s.type_into_pane("Changed")
    desktop.key("ctrl+s")
    s.box("captions without timing", "No")
    desktop.wait_for("the saved part", lambda: s.read("a.srt") == subrip(["Changed"]))
    desktop.wait_for("a journal of the rest", s.journals)
    s.program.process.kill()
    s.program.process.wait()
    s.start()
    s.restore(3)
    s.close_with("No")
    assert s.read("a.srt") == subrip(["Changed"])


SCENES = [a_text_is_timed_and_closed_with_yes, a_whole_capture_by_the_keyboard_alone, looking_asks_nothing,
          escape_at_the_question_keeps_everything, no_at_the_question_leaves_the_file, one_caption_is_work_too,
          save_as_and_think_better_of_it, a_plain_text_holds_no_times, the_disk_is_full_at_the_last_moment,
          the_disk_is_full_in_the_classic_manner, a_folder_that_went_away,
          the_window_is_closed_while_a_large_file_is_read, the_window_is_closed_while_a_large_file_is_written,
          escape_at_captions_without_times_cuts_nothing_off, what_a_save_left_out_comes_back,
          rules_only_look_at_what_is_opened, what_the_rules_did_is_taken_back, the_wrong_file_is_appended,
          a_plain_text_is_appended, the_classic_manner_closes_one_caption_silently, *FILE_SCENES,
          *WIZARD_SCENES, *KEY_SCENES, *CHECK_SCENES, *TIME_SCENES, *WAVE_SCENES]


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
