"""A wizard of the real program, opened by its item in the menus and gone through by the keyboard."""

import os

import desktop
from screenshots import Menus, client_windows, menu_places


def menus_of(program):
    """The menu bar's items by the names that the code gives them."""
    root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    with open(os.path.join(root, "capture/main_window.h"), encoding="utf-8") as file:
        return Menus(program, menu_places(file.read()))


class Wizard:
    def __init__(self, program, menus, item):
        self.program = program
        before = client_windows()
        menus.press(item)
        self.window = desktop.wait_for("the wizard", lambda: next((w for w in client_windows() if w not in before), None))
        self.focus()

    def focus(self):
        desktop.focus(self.window)

    def visible(self, text):
        return next((node for node in self.program.nodes()
                     if node.name == text and node.getRoleName() in ("label", "check box", "text", "combo box")
                     and node.getState().contains(desktop.pyatspi.STATE_SHOWING)), None)

    def wait_page(self, shown):
        desktop.wait_for("the page with " + shown, lambda: self.visible(shown))

    def next(self, shown):
        """Presses the default button and waits for a text of the next page."""
        desktop.key("Return")
        self.wait_page(shown)

    def button(self, name):
        return desktop.wait_for("the button " + name, lambda: self.enabled_button(name))

    def enabled_button(self, name):
        node = self.program.find("push button", name)
        return node if desktop.enabled(node) else None

    def tab_to_box(self):
        """True when the focus is in a box that takes a text; else goes on by one."""
        for node in self.program.nodes():
            state = node.getState()
            if (node.getRoleName() in ("combo box", "text") and state.contains(desktop.pyatspi.STATE_FOCUSED)
                    and state.contains(desktop.pyatspi.STATE_SHOWING)):
                return True
        desktop.key("Tab")
        return False

    def wait_end(self):
        desktop.wait_for("the end of the wizard", lambda: self.window not in client_windows())
