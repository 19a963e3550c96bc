"""The evening's scenes with the windows that look at captions and propose changes, by keys alone."""

import desktop
from evening_files import gone, shown

FAULTY = ("1\r\n00:00:01,000 --> 00:00:01,400\r\nGood evening.\r\n\r\n"
          "2\r\n00:00:04,500 --> 00:00:08,000\r\nNobody  leaves.\r\n\r\n"
          "3\r\n00:00:08,010 --> 00:00:10,000\r\nYes  , Inspector.\r\n\r\n")


def told(s, words):
    return desktop.wait_for("the words: " + words, lambda: s.program.find("label", words))


def look_at_what_cleaning_changes(s):
    s.start_with(FAULTY, 3)
    s.menu_item("alt+t", "Clean texts...")
    shown(s, "Clean texts")
    told(s, "2 of 2 changes")


def the_next_finding_is_a_key_away(s):
    s.start_with(FAULTY, 3)
    s.keys("F8")
    desktop.wait_for("caption 3", lambda: s.pane().queryText().getText(0, -1) == "Yes  , Inspector.")
    s.keys("F8")
    desktop.wait_for("caption 1", lambda: s.pane().queryText().getText(0, -1) == "Good evening.")
    s.close_asking_nothing()


def proposals_that_are_refused_change_nothing(s):
    look_at_what_cleaning_changes(s)
    desktop.key("Escape")
    gone(s, "Clean texts")
    s.close_asking_nothing()
    assert s.read("a.srt") == FAULTY, s.read("a.srt")


def proposals_are_taken_by_the_return_key(s):
    look_at_what_cleaning_changes(s)
    # The list of changes has the focus.
    desktop.key("Return")
    gone(s, "Clean texts")
    s.save_until("a.srt", "Nobody leaves.")
    assert "Yes, Inspector." in s.read("a.srt"), s.read("a.srt")
    s.keys("ctrl+z")
    s.save_until("a.srt", "Nobody  leaves.")
    assert s.read("a.srt") == FAULTY, s.read("a.srt")
    s.close_asking_nothing()


def a_finding_is_mended_from_the_window_of_the_check(s):
    s.start_with(FAULTY, 3)
    s.keys("shift+F8")
    shown(s, "Check subtitles")
    told(s, "3 findings")
    s.press_button("Fix")
    # A longer caption is read more slowly, too.
    told(s, "1 finding")
    s.keys("ctrl+s")
    desktop.wait_for("the saved text", lambda: s.read("a.srt") != FAULTY)
    # Caption 1 lasts longer, and nothing else is another.
    assert s.read("a.srt") == FAULTY.replace("00:00:01,400", "00:00:02,000"), s.read("a.srt")
    s.close_asking_nothing()


CHECK_SCENES = [the_next_finding_is_a_key_away, proposals_that_are_refused_change_nothing,
                proposals_are_taken_by_the_return_key, a_finding_is_mended_from_the_window_of_the_check]
