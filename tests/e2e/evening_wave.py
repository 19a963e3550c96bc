"""The evening's scenes in the wave."""

import contextlib

import desktop
from evening_files import picture
from evening_times import held_late, pull_the_plug_on_second_thoughts
from subrip_file import clock

MS_A_PIXEL = 10  # at the first start


class Wave:
    """The wave of a film that stands at its beginning, and a mouse over it."""

    def __init__(self, s):
        found = desktop.wait_for("the wave", lambda: s.program.find(name="Wave with captions"))
        self.place = found.queryComponent().getExtents(desktop.pyatspi.DESKTOP_COORDS)

    def point_at(self, ms):
        desktop.xdotool("mousemove", self.place.x + ms // MS_A_PIXEL, self.place.y + self.place.height // 2)

    @contextlib.contextmanager
    def drag(self, start, *others):
        """Holds the left button down from one time to others."""
        self.point_at(start)
        desktop.xdotool("mousedown", 1)
        for ms in others:
            self.point_at(ms)
        yield
        desktop.xdotool("mouseup", 1)


def a_start_that_was_dragged_to_the_voice_survives_the_plug(s):
    content, true_starts = held_late(s)
    start = true_starts[0] + 210
    s.start(s.path("film.mkv"), options="M_AUDIOBAR=1\n")
    s.wait_film()
    s.open_by_key("a.srt")
    s.wait_rows(len(true_starts))
    s.press_button("Stop")
    s.wait_sound()
    wave = Wave(s)
    table = s.table().queryTable()

    def shown():
        return table.getAccessibleAt(0, 1).name

    assert shown().endswith(clock(start)[7:].replace(",", ".")), shown()
    held = shown()
    with wave.drag(start, start - 100, start + 400):
        desktop.xdotool("key", "Escape")  # clearing modifiers would let the button go
    with wave.drag(start, start - 100, true_starts[0] + 40):
        picture(s, "dragged")
        assert shown() == held and not s.journals()
    desktop.wait_for("another start", lambda: shown() != held)
    pull_the_plug_on_second_thoughts(s, content, len(true_starts))
    saved = s.read("a.srt")
    # Only this start and this text are others.
    first = s.captions("a.srt")[0][0]
    assert saved == content.replace(clock(start), clock(first)).replace("line 1", "Second thoughts"), saved
    # It was let go 40 ms behind the voice.
    assert abs(first - true_starts[0]) < 20, first
    s.close_asking_nothing()


WAVE_SCENES = [a_start_that_was_dragged_to_the_voice_survives_the_plug]
