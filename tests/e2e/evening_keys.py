"""The evening's scenes with the keys of the Film menu: times from the film's position, and a change of mind."""

import re

import desktop

MARKED = ("1\r\n00:00:01,000 --> 00:00:02,000\r\n{\\an8}<i>one</i> and\r\n\r\n"
          "2\r\n00:00:03,000 --> 00:00:04,000\r\n<font color=\"#ff0000\">two</font>\r\n\r\n"
          "3\r\n00:00:05,000 --> 00:00:06,000\r\nthree\r\n\r\n")


def start_with_both(s):
    s.write("a.srt", MARKED)
    s.start_with_film()
    s.open_by_key("a.srt")
    s.wait_rows(3)
    # Paused, so that the film stands where the steps leave it.
    s.keys("x")



def times_from_the_film_are_taken_back_and_taken_again(s):
    start_with_both(s)
    s.keys("alt+Next")
    s.keys("F11")
    desktop.wait_for("a journal", s.journals)
    # A change of mind: nothing is left of it, and leaving asks nothing.
    s.keys("ctrl+z")
    s.close_asking_nothing()
    assert s.read("a.srt") == MARKED, s.read("a.srt")


def a_pushed_list_survives_the_end_of_the_program(s):
    start_with_both(s)
    before = len(s.journals())
    s.keys("alt+Next")
    s.keys("alt+Next")
    s.keys("shift+F11")
    desktop.wait_for("a journal", lambda: len(s.journals()) > before)
    s.keys("ctrl+s")
    desktop.wait_for("the moved file", lambda: s.read("a.srt") != MARKED)
    pushed = s.read("a.srt")
    starts = [int(m) + 1000 * int(t) for t, m in re.findall(r"00:00:(\d\d),(\d{3}) -->", pushed)]
    assert starts[1] - starts[0] == 2000 and starts[2] - starts[1] == 2000, pushed
    # All but the times is as it was.
    bare = re.compile(r"\d\d:\d\d:\d\d,\d{3}")
    assert bare.sub("", pushed) == bare.sub("", MARKED), pushed
    s.type_into_pane("Eins")
    s.kill_once_kept("Eins")
    assert s.read("a.srt") == pushed, s.read("a.srt")
    s.start()
    s.restore(3)
    s.keys("ctrl+z")
    s.close_with("No")
    assert s.read("a.srt") == pushed, s.read("a.srt")


def a_command_is_found_by_its_words(s):
    s.start_with(MARKED, 3)
    s.command("edge start frame later")
    s.save_until("a.srt", "00:00:01,040 -->")
    s.close_asking_nothing()


KEY_SCENES = [times_from_the_film_are_taken_back_and_taken_again, a_pushed_list_survives_the_end_of_the_program,
              a_command_is_found_by_its_words]
