"""The evening's scenes with times that come from elsewhere."""

import os
import random
import subprocess

import desktop
from evening_files import gone, picture, shown
from spoken_film import spoken_film
from subrip_file import captions_of, clock


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


def open_another_cut(s):
    """Opens captions of a film of which half a minute was taken out, and lets the window find their places by a
    subtitle that fits. The file's content, and the times that fit."""
    times = spoken_times(90)
    late = [(start + (7300 if row < 40 else 37300), end + (7300 if row < 40 else 37300))
            for row, (start, end) in enumerate(times)]
    s.write("fits.srt", subrip_of(times))
    content = subrip_of(late)
    s.start_with(content, 90)
    find_places(s)
    return content, times


def find_places(s):
    s.keys("ctrl+shift+t")
    desktop.wait_for("the window", lambda: s.program.window_id("^Retime$"))
    by_sound = desktop.wait_for("the way", lambda: s.program.find("radio button", "By the sound or another subtitle"))
    by_sound.queryAction().doAction(0)
    s.press_button("By another subtitle...")
    s.type_path(s.path("fits.srt"))
    found = desktop.wait_for("two pieces", lambda: [
        item.name for item in s.program.all("list item") if item.name.startswith(("1 to 40", "41 to 90"))])
    assert [name.split(":  ")[1].split("  ")[0] for name in found] == ["-7.300", "-37.300"], found


def times_of(content):
    return [(start, end) for start, end, _ in captions_of(content)]


def captions_of_another_cut_take_their_places_from_a_subtitle_that_fits(s):
    content, times = open_another_cut(s)
    assert s.read("a.srt") == content
    s.press_button("OK")
    s.save_until("a.srt", clock(times[0][0]))
    assert times_of(s.read("a.srt")) == times
    # One step takes all of it back.
    s.keys("ctrl+z")
    s.save_until("a.srt", clock(times[0][0] + 7300))
    assert s.read("a.srt") == content
    s.close_asking_nothing()


def pull_the_plug_on_second_thoughts(s, content, count):
    """Takes the last change of so many captions back and again and types into the first one; then the program is killed.
    What it kept is restored and saved; the file had its old content until then."""
    s.keys("ctrl+z")
    s.keys("ctrl+y")
    s.type_into_pane("Second thoughts")
    s.kill_once_kept("Second thoughts")
    assert s.read("a.srt") == content
    s.start()
    s.restore(count)
    s.save_until("a.srt", "Second thoughts")


def places_that_were_taken_on_second_thoughts_survive_the_plug(s):
    content, times = open_another_cut(s)
    # A look is no change.
    desktop.key("Escape")
    desktop.wait_for("the end of the window", lambda: not s.program.window_id("^Retime$"))
    assert not s.journals()
    find_places(s)
    s.press_button("OK")
    desktop.wait_for("a journal", s.journals)
    pull_the_plug_on_second_thoughts(s, content, 90)
    saved = s.read("a.srt")
    assert times_of(saved) == times
    assert saved.replace("Second thoughts", "line 1") == subrip_of(times)
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


def held_late(s):
    """A film in which somebody speaks, "film.mkv", and "a.srt", whose captions were held late. The file's content, and the
    true starts in ms."""
    film, subtitle, spoken = spoken_film(s.folder)
    os.rename(film, s.path("film.mkv"))
    os.remove(subtitle)
    content = subrip_of([(round(1000 * start) + 210 + 15 * (row % 3), round(1000 * end) + 190)
                         for row, (start, end) in enumerate(spoken)])
    s.write("a.srt", content)
    return content, [round(1000 * start) for start, _ in spoken]


def open_and_fit_all(s, count):
    """Opens the film and its captions, and fits all of them."""
    s.start(s.path("film.mkv"))
    s.wait_film()
    s.open_by_key("a.srt")
    s.wait_rows(count)
    s.table().queryComponent().grabFocus()
    desktop.key("ctrl+a")
    desktop.key("F4")
    desktop.wait_for("the fit", lambda: any(
        "itted" in label.name and "%d" % count in label.name for label in s.program.all("label")), 60)


def at_the_voice(s, true_starts, within=120):
    late = [start - true for (start, _), true in zip(times_of(s.read("a.srt")), true_starts)]
    assert len(late) == len(true_starts) and max(map(abs, late)) < within, late


def captions_that_were_held_late_go_to_the_voice(s):
    content, true_starts = held_late(s)
    open_and_fit_all(s, len(true_starts))
    s.keys("ctrl+s")
    desktop.wait_for("other times", lambda: s.read("a.srt") != content)
    at_the_voice(s, true_starts)
    s.keys("ctrl+z")
    s.keys("ctrl+s")
    desktop.wait_for("the held times", lambda: s.read("a.srt") == content)
    s.close_asking_nothing()


def voices_in_the_centre_of_loud_sides_are_found_and_survive_the_plug(s):
    content, true_starts = held_late(s)
    os.rename(s.path("film.mkv"), s.path("mono.mkv"))
    # Noise that comes and goes on both sides, louder than the voices.
    noise = "anoisesrc=c=pink:a=0.8:r=48000:seed=%d,tremolo=f=0.7:d=0.9"
    subprocess.run(["ffmpeg", "-y", "-nostdin", "-v", "error", "-i", s.path("mono.mkv"), "-f", "lavfi", "-i", noise % 1, "-f",
                    "lavfi", "-i", noise % 2, "-filter_complex",
                    "[0:a]aresample=48000[c];[1][2][c]join=inputs=3:channel_layout=3.0:map=0.0-FL|1.0-FR|2.0-FC,"
                    "pan=5.1|FL=FL|FR=FR|FC=FC[a]", "-map", "0:v", "-map", "[a]", "-c:v", "copy", "-c:a", "ac3", "-b:a", "448k",
                    "-shortest", s.path("film.mkv")], check=True)
    os.remove(s.path("mono.mkv"))
    open_and_fit_all(s, len(true_starts))
    picture(s, "centre")
    pull_the_plug_on_second_thoughts(s, content, len(true_starts))
    # With the sides mixed in, some would be further away.
    at_the_voice(s, true_starts, within=30)
    s.close_asking_nothing()


def a_line_that_was_held_badly_is_taken_again(s):
    s.start_to_hold("one", "two", "three")
    s.hold("b")
    s.hold("b")
    table = s.table().queryTable()

    def start():
        return table.getAccessibleAt(1, 1).name

    bad = desktop.wait_for("a start", start)
    s.keys("ctrl+r")
    desktop.wait_for("the row before", lambda: s.pane().queryText().getText(0, -1) == "two")
    s.table().queryComponent().grabFocus()
    s.hold("b")
    desktop.wait_for("another start", lambda: start() not in ("", bad))
    good = start()
    # The take of before comes back, and goes again.
    desktop.key("Up")
    desktop.wait_for("the row", lambda: s.pane().queryText().getText(0, -1) == "two")
    s.keys("ctrl+shift+r")
    desktop.wait_for("the bad take", lambda: start() == bad)
    s.keys("ctrl+z")
    desktop.wait_for("the good take", lambda: start() == good)
    s.close_with("No")
    assert s.read("lines.txt") == "one\ntwo\nthree\n"


def a_text_gets_its_times_from_the_sound_alone(s):
    film, subtitle, spoken = spoken_film(s.folder)
    os.rename(film, s.path("film.mkv"))
    with open(subtitle, encoding="utf-8", newline="") as file:
        words = [text for _, _, text in captions_of(file.read())]
    os.remove(subtitle)
    untimed = "".join("%d\r\n00:00:00,000 --> 00:00:00,000\r\n%s\r\n\r\n" % (n, text)
                      for n, text in enumerate(words, 1))
    s.start(s.path("film.mkv"), options="FitLanguage=en\n")
    s.wait_film()
    s.write("a.srt", untimed)
    s.open_by_key("a.srt")
    s.wait_rows(len(spoken))
    s.command("times from the sound")
    table = s.table().queryTable()
    desktop.wait_for("times", lambda: table.getAccessibleAt(len(spoken) - 1, 1).name, 60)
    s.keys("ctrl+s")
    desktop.wait_for("the saved times", lambda: s.read("a.srt") != untimed)
    late = [start - round(1000 * true) for (start, _, _), (true, _) in zip(captions_of(s.read("a.srt")), spoken)]
    assert len(late) == len(spoken) and max(map(abs, late)) < 500, late
    s.close_asking_nothing()


def times_near_a_cut_go_to_its_picture(s):
    # Two shots of three seconds.
    subprocess.run(["ffmpeg", "-y", "-nostdin", "-v", "error", "-f", "lavfi", "-i", "mandelbrot=s=320x180:r=25",
                    "-f", "lavfi", "-i", "life=s=320x180:r=25:mold=10:ratio=0.2:seed=3", "-filter_complex",
                    "[0]trim=duration=3[a];[1]trim=duration=3,format=yuv420p[b];[a][b]concat=n=2:v=1:a=0",
                    "-pix_fmt", "yuv420p", s.path("film.mp4")], check=True)
    content = subrip_of([(1000, 2000), (3080, 4500)])
    s.start(s.path("film.mp4"), options="M_AUDIOBAR=1\n")
    s.wait_film()
    s.write("a.srt", content)
    s.open_by_key("a.srt")
    s.wait_rows(2)
    table = s.table()
    # Before the shots are known there is nothing to change.
    for _ in range(40):
        s.keys("ctrl+alt+l")
        shown(s, "Snap to shots and gaps")
        if s.program.find("label", "1 of 1 changes"):
            break
        desktop.key("Escape")
        gone(s, "Snap to shots and gaps")
    desktop.key("Return")
    gone(s, "Snap to shots and gaps")
    desktop.wait_for("the picture's time", lambda: table.queryTable().getAccessibleAt(1, 1).name == "0:00:03.000")
    s.keys("ctrl+z")
    s.close_asking_nothing()
    assert s.read("a.srt") == content


TIME_SCENES = [times_near_a_cut_go_to_its_picture, a_text_gets_its_times_from_the_sound_alone,
               captions_that_were_held_late_go_to_the_voice,
               voices_in_the_centre_of_loud_sides_are_found_and_survive_the_plug,
               a_line_that_was_held_badly_is_taken_again, a_subtitle_offers_the_film_of_its_name,
               captions_of_another_cut_take_their_places_from_a_subtitle_that_fits,
               places_that_were_taken_on_second_thoughts_survive_the_plug]
