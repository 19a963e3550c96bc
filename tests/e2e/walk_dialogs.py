#!/usr/bin/python3
"""Walks the dialogs of the real program by the keyboard alone: the settings with a change of the language, the format
settings, the export dialog and the pickers behind them.

    walk_dialogs.py BINARY FOLDER
"""

import os
import sys

import desktop

SUBRIP = "1\r\n00:00:01,000 --> 00:00:02,000\r\nHelo\r\n\r\n"


class Walk:
    def __init__(self, binary, folder):
        self.config = os.path.join(folder, "config")
        os.makedirs(os.path.join(self.config, "tessaly-cuewright"))
        self.settings = os.path.join(self.config, "tessaly-cuewright", "settings.ini")
        with open(self.settings, "w", encoding="utf-8") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nWindowState=0\n")
        document = os.path.join(folder, "a.srt")
        with open(document, "w", encoding="utf-8", newline="") as file:
            file.write(SUBRIP)
        self.program = desktop.Program(binary, [document], {"XDG_CONFIG_HOME": self.config, "LC_ALL": "C.UTF-8"})
        self.main = self.window("a.srt - Tessaly Cuewright")
        desktop.wait_for("the loaded file", lambda: self.program.find("label", "Current subtitle file: a.srt"))

    def window(self, title):
        """Waits for a window and puts it into the focus."""
        found = desktop.wait_for("the window " + title, lambda: self.program.window_id("^%s" % title))
        desktop.focus(found)
        self.title = title
        return found

    def gone(self, title):
        desktop.wait_for("the end of " + title, lambda: self.program.window_id("^%s" % title) is None)
        desktop.focus(self.main)

    def focused(self, role):
        """The node of the dialog that has the focus; None when it has another role."""
        dialog = self.program.find("dialog", self.title, depth=3)
        for node in self.program.all(role, dialog) if dialog is not None else []:
            if node.getState().contains(desktop.pyatspi.STATE_FOCUSED):
                return node
        return None

    def tab_to(self, role, name):
        """Presses Tab until a node has the focus. A box of choices has its choice as its name."""
        def there():
            node = self.focused(role)
            if node is not None and node.name == name:
                return node
            desktop.key("Tab")
            return None
        return desktop.wait_for("the focus on " + name, there)

    def stored(self, key):
        with open(self.settings, encoding="utf-8") as file:
            for line in file:
                if line.startswith(key + "="):
                    return line.rstrip("\n").split("=", 1)[1]
        return None

    def wait_stored(self, key, value):
        desktop.wait_for("%s=%s in the settings" % (key, value), lambda: self.stored(key) == value)

    def settings_dialog(self):
        desktop.key("ctrl+comma")
        self.window("General Settings")
        collision = self.tab_to("check box", "Avoid collision of captions")
        desktop.key("space")
        desktop.wait_for("the cleared check", lambda: not collision.getState().contains(desktop.pyatspi.STATE_CHECKED))
        # The panel of a rule opens for the keyboard and takes it in.
        self.tab_to("check box", "Enable automatic timing limit")
        desktop.key("Tab")
        desktop.wait_for("the bar of the panel",
                         lambda: self.focused("slider").name == "Short captions, Duration per character: 250 ms")
        desktop.key("Home")
        desktop.key("ctrl+Next")
        self.tab_to("text", "Play")
        desktop.type_text("q")
        for _ in range(3):
            desktop.key("ctrl+Next")
        self.tab_to("combo box", "English (United Kingdom)")
        desktop.type_text("Spanish")
        self.window("Configuración general")
        desktop.wait_for("the main window in Spanish", lambda: self.program.find("menu item", "Archivo"))
        assert self.stored("Language") == "ENGLISH", "the language was stored before the dialog closed"
        desktop.key("Return")
        self.gone("Configuración general")
        for key, value in (("Language", "SPANISH"), ("Collision", "0"), ("Duration0", "10"), ("hkPlay", "81"),
                           ("kPlay", "Q")):
            self.wait_stored(key, value)

    def language_alone(self):
        desktop.key("ctrl+comma")
        self.window("Configuración general")
        desktop.key("ctrl+Prior")
        self.tab_to("combo box", "Spanish (Argentina)")
        desktop.type_text("English")
        self.window("General Settings")
        self.tab_to("push button", "Reset")
        desktop.key("ctrl+Next")
        self.tab_to("check box", "Avoid collision of captions")
        desktop.key("space")
        desktop.key("Escape")
        self.gone("General Settings")
        self.wait_stored("Language", "ENGLISH")
        assert self.stored("Collision") == "0", "a dialog closed by Escape stored more than the language"

    def format_settings(self):
        desktop.key("alt+s")
        desktop.wait_for("the menu", lambda: self.program.find("menu item", "Format Settings"))
        desktop.key("Home", "Return")
        self.window("Format Settings")
        self.tab_to("list", "Configurable formats:")
        desktop.key("Home")
        self.tab_to("text", "Margins, Left")
        desktop.key("ctrl+a")
        desktop.type_text("4a5")
        desktop.key("Return")
        self.gone("Format Settings")
        self.wait_stored("marginl", "45")

    def export_dialog(self):
        desktop.key("ctrl+shift+s")
        self.window("Save as")
        self.tab_to("combo box", "SubRip [SRT] (current)")
        desktop.type_text("SAMI")
        self.tab_to("push button", "Configure format...")
        desktop.key("space")
        self.window("Format Settings")
        self.tab_to("push button", "Color...")
        desktop.key("space")
        self.window("Select Color")
        desktop.key("Escape")
        self.gone("Select Color")
        self.window("Format Settings")
        desktop.key("Escape")
        self.gone("Format Settings")
        self.window("Save as")
        desktop.key("Escape")
        self.gone("Save as")

    def list_font(self):
        desktop.key("alt+o")
        desktop.wait_for("the menu", lambda: self.program.find("menu item", "Change list font..."))
        desktop.key("Home", "Return")
        self.window("Select Font")
        desktop.key("Return")
        self.gone("Select Font")

    def about(self):
        desktop.key("alt+h")
        desktop.wait_for("the menu", lambda: self.program.find("menu item", "About Tessaly Cuewright"))
        desktop.key("Up", "Return")
        self.window("About Tessaly Cuewright")
        self.tab_to("push button", "Visit Tessaly for updates and support")
        self.tab_to("push button", "OK")
        desktop.key("space")
        self.gone("About Tessaly Cuewright")

    def update(self):
        desktop.key("alt+h")
        desktop.wait_for("the menu", lambda: self.program.find("menu item", "Check for updates..."))
        desktop.key("Up", "Up", "Up", "Return")
        self.window("Check for updates")
        log = desktop.wait_for("the log", lambda: self.program.find("text", "Process status:"))
        # Nobody is asked where no site is set.
        desktop.wait_for("the end of the check", lambda: "UpdateSite" in log.queryText().getText(0, -1))
        self.tab_to("push button", "Close")
        desktop.key("Return")
        self.gone("Check for updates")

    def spelling(self):
        desktop.key("alt+t")
        desktop.wait_for("the menu", lambda: self.program.find("menu item", "Spell check"))
        desktop.key("Home", "Return")
        self.window("Spell check")
        desktop.wait_for("the misspelt word", lambda: self.program.find("label", "Helo"))
        self.tab_to("text", "Replace with")
        desktop.key("ctrl+a")
        desktop.type_text("Goodbye")
        desktop.key("Return")
        # The word was the only one.
        desktop.wait_for("the end of the check", lambda: self.program.find(
            "label", "Spell check completed. Total line(s) modified: 1."))
        desktop.key("Return")
        desktop.focus(self.main)
        pane = self.program.find("text", "Text of the caption")
        desktop.wait_for("the changed caption", lambda: pane.queryText().getText(0, -1) == "Goodbye")
        desktop.key("ctrl+z")
        desktop.wait_for("the caption as it was", lambda: pane.queryText().getText(0, -1) == "Helo")


def main():
    walk = Walk(*(os.path.abspath(path) for path in sys.argv[1:3]))
    try:
        for step in (walk.settings_dialog, walk.language_alone, walk.format_settings, walk.export_dialog, walk.list_font,
                     walk.about, walk.update, walk.spelling):
            print(step.__name__, flush=True)
            step()
    except BaseException:
        shots = os.environ.get("CUEWRIGHT_SHOTS")
        if shots:
            desktop.screenshot(os.path.join(shots, "walk_dialogs_failed.png"))
        raise
    finally:
        walk.program.quit()


main()
