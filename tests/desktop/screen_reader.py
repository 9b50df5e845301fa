"""What a screen reader does: finds the controls of the running program by role and name, works with them, and hears
what they announce. A control that does not appear ends the test with status 1.
"""

import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 30  # seconds
MOST_ENTRIES = 40


def is_showing(element):
    return element.getState().contains(pyatspi.STATE_SHOWING)


def below(element):
    """The element and everything visible below it."""
    pending = [element]
    while pending:
        current = pending.pop()
        if current is None:
            continue
        yield current
        try:
            pending.extend(reversed([current.getChildAtIndex(i) for i in range(current.childCount)]))
        except Exception:  # it disappeared meanwhile
            continue


def program():
    desktop = pyatspi.Registry.getDesktop(0)
    for i in range(desktop.childCount):
        application = desktop.getChildAtIndex(i)
        if application is not None and application.name == "quellbrook":
            return application
    return None


def look_for(role, name, inside):
    root = inside or program()
    if root is None:
        return None
    for element in below(root):
        try:
            if element.getRoleName() == role and element.name == name and is_showing(element):
                return element
        except Exception:
            continue
    return None


def find(role, name, inside=None):
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        element = look_for(role, name, inside)
        if element is not None:
            print(f"{role} \"{name}\"")
            return element
        time.sleep(0.1)
    sys.exit(f"There is no {role} named \"{name}\".")


def do(element, action):
    actions = element.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    if action not in names:
        sys.exit(f"\"{element.name}\" can't \"{action}\", only {names}.")
    actions.doAction(names.index(action))


def fill(name, role, text):
    find(role, name).queryEditableText().setTextContents(text)


def click(element, button=1, times=1):
    """A real click in the middle of the element."""
    place = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    subprocess.run(["xdotool", "mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2), "click",
                    "--repeat", str(times), "--delay", "60", str(button)], check=True)


def press(key):
    subprocess.run(["xdotool", "key", key], check=True)


class Spoken:
    """What a screen reader would speak: the name of each element that gets the focus."""

    def __init__(self):
        self.names = []
        pyatspi.Registry.registerEventListener(self.on_focus, "object:state-changed:focused")

    def on_focus(self, event):
        if event.detail1:
            self.names.append(event.source.name)

    def next(self):
        """The next name; None if there is none within a second."""
        deadline = time.monotonic() + 1
        while not self.names and time.monotonic() < deadline:
            GLib.MainContext.default().iteration(False)
            time.sleep(0.01)
        return self.names.pop(0) if self.names else None


class Heard:
    """What a screen reader reads without being asked: alerts and windows that appear, and rows that are selected."""

    def __init__(self):
        self.heard = []
        pyatspi.Registry.registerEventListener(self.on_event, "object:state-changed:showing", "window:activate",
                                               "object:state-changed:selected")

    def on_event(self, event):
        try:
            role = event.source.getRoleName()
        except GLib.GError:  # it disappeared meanwhile
            return
        if event.type.startswith("object:state-changed:selected"):
            self.heard.append(("selected" if event.detail1 else "deselected", event.source.name))
        elif event.type.startswith("window") or (event.detail1 and role == "alert"):
            self.heard.append((role, event.source.name))

    def expect(self, kind, name):
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            GLib.MainContext.default().iteration(False)
            if (kind, name) in self.heard:
                self.heard.clear()
                print(f"heard {kind} \"{name}\"")
                return
            time.sleep(0.01)
        sys.exit(f"A screen reader does not hear the {kind} \"{name}\", only {self.heard}.")


def choose_in_menu(entry, spoken):
    """Moves down the open menu to the entry and chooses it."""
    for _ in range(MOST_ENTRIES):
        press("Down")
        name = spoken.next()
        while name is not None and name != entry:
            name = spoken.next()
        if name == entry:
            print(f"menu entry \"{entry}\"")
            press("Return")
            return
    sys.exit(f"The menu does not speak the entry \"{entry}\".")


def rows_of(container):
    """The rows from top to bottom."""
    rows = [element for element in below(container) if element.getRoleName() == "list item" and is_showing(element)]
    return sorted(rows, key=lambda row: row.queryComponent().getExtents(pyatspi.DESKTOP_COORDS).y)
