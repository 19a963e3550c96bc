"""The evening's scenes with times that come from elsewhere."""

import os
import random

import desktop
from scene import captions_of


def clock(ms):
    return "%02d:%02d:%02d,%03d" % (ms // 3600000, ms // 60000 % 60, ms // 1000 % 60, ms % 1000)


def subrip_of(times):
    return "".join("%d\r\n%s --> %s\r\nline %d\r\n\r\n" % (number, clock(start), clock(end), number)
                   for number, (start, end) in enumerate(times, 1))


def spoken_times(count):
    draw = random.Random(5)
    times, at = [], 4000
    for _ in range(count):
        end = at + draw.randint(800, 4000)
        times.append((at, end))
        at = end + draw.randint(200, 5000)
    return times


def captions_of_another_cut_take_their_places_from_a_subtitle_that_fits(s):
    times = spoken_times(90)
    # Half a minute was taken out of the film in the middle.
    late = [(start + (7300 if row < 40 else 37300), end + (7300 if row < 40 else 37300))
            for row, (start, end) in enumerate(times)]
    s.write("fits.srt", subrip_of(times))
    content = subrip_of(late)
    s.start_with(content, 90)
    s.keys("ctrl+shift+t")
    desktop.wait_for("the window", lambda: s.program.window_id("^Retime$"))
    by_sound = desktop.wait_for("the way", lambda: s.program.find("radio button", "By the film's sound"))
    by_sound.queryAction().doAction(0)
    s.press_button("By another subtitle...")
    s.type_path(s.path("fits.srt"))
    found = desktop.wait_for("two pieces", lambda: [
        item.name for item in s.program.all("list item") if item.name.startswith(("1 to 40", "41 to 90"))])
    assert [name.split(":  ")[1].split("  ")[0] for name in found] == ["-7.300", "-37.300"], found
    assert s.read("a.srt") == content
    s.press_button("OK")
    s.save_until("a.srt", clock(times[0][0]))
    assert [(start, end) for start, end, _ in captions_of(s.read("a.srt"))] == times
    # One step takes all of it back.
    s.keys("ctrl+z")
    s.save_until("a.srt", clock(late[0][0]))
    assert s.read("a.srt") == content
    s.close_asking_nothing()


def a_subtitle_offers_the_film_of_its_name(s):
    os.symlink(s.film, s.path("a.mp4"))
    s.start_with(subrip_of(spoken_times(3)), 3)
    s.box("The film a.mp4 belongs to this subtitle", "Yes")
    s.wait_film()
    s.close_asking_nothing()
    # They are remembered: the film brings its subtitle.
    s.start(s.path("a.mp4"))
    s.wait_film()
    s.wait_rows(3)
    s.close_asking_nothing()


TIME_SCENES = [a_subtitle_offers_the_film_of_its_name,
               captions_of_another_cut_take_their_places_from_a_subtitle_that_fits]
