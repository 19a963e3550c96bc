"""The evening's scenes with files of other programs: what they hold stays, and what would be lost is asked about."""

import os

import desktop

ASS = """[Script Info]
; made elsewhere
PlayResX: 1920

[V4+ Styles]
Format: Name, Fontname, Fontsize, Bold
Style: Sign,Arial,48,0

[Events]
Format: Layer, Start, End, Style, Name, Text
Dialogue: 0,0:00:01.00,0:00:02.50,Sign,Ana,{\\pos(10,20)}One
Comment: 0,0:00:02.00,0:00:02.10,Sign,,to be checked
Dialogue: 3,0:00:03.00,0:00:04.00,Sign,,Two {\\i1}words{\\i0}
!!!!
"""
STYLED = "1\r\n00:00:01,000 --> 00:00:02,000\r\n{\\an8}<font color=\"#ff0000\">one</font> and\r\n\r\n"
RUSSIAN = "1\r\n00:00:01,000 --> 00:00:02,000\r\nДа\r\n\r\n"


def picture(s, name):
    """Keeps a picture of the display where the environment names a folder for them."""
    folder = os.environ.get("EVENING_PICTURES")
    if folder:
        desktop.screenshot(os.path.join(folder, name + ".png"))


def shown(s, title):
    """The dialog with this title, on top."""
    dialog = desktop.wait_for("the dialog " + title, lambda: s.program.window_id("^%s$" % title))
    desktop.focus(dialog)
    return dialog


def gone(s, title):
    desktop.wait_for("the end of " + title, lambda: s.program.window_id("^%s$" % title) is None)


def an_edited_file_keeps_its_bytes_after_a_crash(s):
    s.start(s.write("a.ass", ASS))
    s.wait_rows(2)
    s.type_into_pane("Eins")
    s.kill_once_kept("Eins")
    s.start()
    s.restore(2)
    s.keys("ctrl+s")
    desktop.wait_for("the saved text", lambda: "Eins" in s.read("a.ass"))
    assert s.read("a.ass") == ASS.replace("One", "Eins"), s.read("a.ass")
    s.close_asking_nothing()


TTML = """<?xml version="1.0" encoding="UTF-8"?>
<tt xmlns="http://www.w3.org/ns/ttml" xmlns:tts="http://www.w3.org/ns/ttml#styling" xml:lang="en">
  <head><styling><style xml:id="leaning" tts:fontStyle="italic"/></styling></head>
  <body>
    <div>
      <!-- the first scene -->
      <p begin="00:00:01.000" end="00:00:02.000" style="leaning">One</p>
      <p begin="00:00:03.000" end="00:00:04.500">Two<br/>lines</p>
    </div>
  </body>
</tt>
"""


def timed_text_keeps_its_styles_and_remarks_after_a_crash(s):
    s.start(s.write("a.ttml", TTML))
    s.wait_rows(2)
    s.type_into_pane("Uno")
    s.keys("ctrl+z")
    s.keys("ctrl+y")
    s.keys("ctrl+z")
    s.type_into_pane("Eins")
    s.kill_once_kept("Eins")
    assert s.read("a.ttml") == TTML, s.read("a.ttml")
    s.start()
    s.restore(2)
    s.keys("ctrl+s")
    desktop.wait_for("the saved text", lambda: "Eins" in s.read("a.ttml"))
    assert s.read("a.ttml") == TTML.replace("One", "Eins"), s.read("a.ttml")
    s.close_asking_nothing()


def lines_that_were_not_understood_are_shown(s):
    s.start(s.write("a.ass", ASS))
    s.wait_rows(2)
    button = desktop.wait_for("the button", lambda: s.program.find("push button", "Show the lines that were not understood"))
    picture(s, "lines_strip")
    where = button.queryComponent().getExtents(desktop.pyatspi.DESKTOP_COORDS)
    desktop.xdotool("mousemove", where.x + where.width // 2, where.y + where.height // 2, "click", 1)
    shown(s, "Lines that were not understood")
    text = desktop.wait_for("the lines", lambda: s.program.find("text", "Lines that were not understood"))
    assert text.queryText().getText(0, -1) == "Line 14: !!!!", text.queryText().getText(0, -1)
    picture(s, "lines")
    desktop.key("Escape")
    gone(s, "Lines that were not understood")
    s.close_asking_nothing()


def what_a_format_cannot_hold_is_asked_about(s):
    s.start_with(STYLED, 1)
    for answer in ("Escape", "Return"):
        desktop.focus(s.main)
        desktop.key("ctrl+shift+s")
        desktop.wait_for("the formats", lambda: s.program.find("combo box"))
        picture(s, "export")
        s.export_dialog("MicroDVD")
        s.box("Not all that the captions have")
        list_ = desktop.wait_for("the list", lambda: s.program.find("text", "Save as"))
        told = list_.queryText().getText(0, -1)
        assert "can't hold positions; captions that lose them: 1" in told, told
        picture(s, "losses")
        desktop.key(answer)
        s.box_gone("Not all that the captions have")
    s.save_dialog(s.path("b.sub"))
    desktop.wait_for("the saved file", lambda: os.path.exists(s.path("b.sub")))
    assert "one and" in s.read("b.sub")
    s.close_asking_nothing()


def a_file_is_read_anew_in_another_encoding(s):
    with open(s.path("a.srt"), "wb") as file:
        file.write(RUSSIAN.encode("cp1251"))
    s.start(s.path("a.srt"))
    s.wait_rows(1)
    s.menu_item("alt+f", "Reopen as...")
    shown(s, "Reopen as")
    desktop.wait_for("the box of encodings", lambda: s.program.find("combo box"))
    desktop.type_text("Cyr")
    desktop.wait_for("the first lines", lambda: "Да" in s.program.find("text", "First lines").queryText().getText(0, -1))
    picture(s, "reopen")
    desktop.key("Return")
    gone(s, "Reopen as")
    desktop.wait_for("the text", lambda: s.pane().queryText().getText(0, -1) == "Да")
    # It is saved as it was read.
    s.type_into_pane("cafe")
    s.keys("ctrl+s")
    s.wait_saved("a.srt", "cafe")
    s.close_asking_nothing()


def of_formats_that_fit_alike_one_is_chosen(s):
    s.start()
    s.write("a.txt", "00:00:12:10 00:00:15:05 Good evening.\n00:00:16:00 00:00:19:20 Nobody leaves.\n")
    s.open_by_key("a.txt")
    s.box("Load it as Adobe Encore?")
    picture(s, "formats_alike")
    s.press_button("No")
    s.box("Load it as DVD Subtitle System?", "Yes")
    s.wait_rows(2)
    s.type_into_pane("Good night.")
    s.save_until("a.txt", "00:00:12:10 00:00:15:05 Good night.")
    assert "00:00:16:00 00:00:19:20 Nobody leaves." in s.read("a.txt")
    # The same is asked anew, and Escape loads nothing.
    s.open_by_key("a.txt")
    s.box("Load it as Adobe Encore?", "Escape")
    s.close_asking_nothing()


FILE_SCENES = [of_formats_that_fit_alike_one_is_chosen, an_edited_file_keeps_its_bytes_after_a_crash,
               timed_text_keeps_its_styles_and_remarks_after_a_crash, lines_that_were_not_understood_are_shown,
               what_a_format_cannot_hold_is_asked_about, a_file_is_read_anew_in_another_encoding]
