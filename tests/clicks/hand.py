"""A hand on a mouse: looks where things are on the screen, and clicks there."""

import subprocess
import time

import pyatspi
from gi.repository import Atspi, GLib

PATIENCE = 20  # seconds in which something expected is there
SIGNS = {",": "Coma", " ": "Espacio", "<": "Borrar cifra", "^": "Flecha arriba", "v": "Flecha abajo",
         "(": "Flecha izquierda", ")": "Flecha derecha"}  # fmt: skip


MENU_ROLES = (pyatspi.ROLE_MENU, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM)


class Lost(AssertionError):
    """What was to be on the screen was not."""


class Hand:
    def __init__(self):
        pyatspi.Registry.getDesktop(0).set_cache_mask(Atspi.Cache.NONE)  # what is seen is what there is now
        self.sees("NUMBRELA")

    # ------------------------------------------------------------------------------------------------ what is seen

    def sees(self, title):
        """Waits until the window with this title is in front."""
        return self._until(f"the window {title!r}", lambda: self._front() and self._front().name == title)

    def finds(self, name, role=None):
        """The control of the window in front, or of its open menu, that is called so and can be seen."""
        return self._until(f"{name!r}", lambda: self._find(name, role))

    def reads(self, name):
        """The text of a box."""
        return text_of(self.finds(name))

    def reads_that(self, name, text):
        """Waits until a box has this text, whatever blanks are around it."""
        return self._until(f"{text!r} in {name!r}", lambda: text_of(self._find(name)).strip() == text)

    def all(self, role):
        return [one for one in shown_in(self._front()) if one.getRole() == role]

    def lines_of(self, name):
        return list(self.finds(name, pyatspi.ROLE_LIST))

    def has_the_keypad(self):
        return self._find("Teclado en pantalla", pyatspi.ROLE_PANEL) is not None

    def middle_of(self, control):
        place = extents(control)
        return place.x + place.width // 2, place.y + place.height // 2

    def waits_until(self, condition):
        self._until("what was to happen", condition)

    def _front(self):
        pyatspi.Registry.getDesktop(0).clear_cache()
        for program in pyatspi.Registry.getDesktop(0):
            for window in program or []:
                if window.getState().contains(pyatspi.STATE_ACTIVE):
                    return window
        return None

    def _find(self, name, role=None):
        roles = role if isinstance(role, tuple) else (role,)
        return next((one for one in shown_in(self._front()) if one.name == name and (role is None or one.getRole() in roles)), None)

    def _until(self, what, condition):
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            try:
                found = condition()
            except (GLib.GError, AttributeError):  # a part of the window has gone while it was looked at
                found = None
            if found:
                return found
            self._attend()
        front = self._front()
        seen = [one.name for one in shown_in(front) if one.name]
        raise Lost(f"looked in vain for {what} in {front and front.name!r}, which has: {seen}")

    def _attend(self):
        """Hears of programs that have come or gone, for a fiftieth of a second."""
        GLib.timeout_add(20, lambda: False)
        GLib.MainContext.default().iteration(True)
        while GLib.MainContext.default().iteration(False):
            pass

    # ------------------------------------------------------------------------------------------------ what is done

    def clicks(self, name, role=None):
        self.clicks_on(self.finds(name, role))

    def clicks_on(self, control, times=1):
        """As a person does, where it is not covered by the keypad."""
        self._point_at(*self._free_point(control), "click", "--repeat", str(times), "--delay", "50", "1")

    def clicks_at_the_left_end(self, box):
        """In front of its first character."""
        place = extents(box)
        self._point_at(place.x + 4, place.y + place.height // 2, "click", "1")

    def closes_by_the_frame(self):
        """By the button at the right end of the title."""
        place = extents(self._front())
        self._point_at(place.x + place.width - 8, place.y - 10, "click", "1")

    def maximises(self):
        """By a double click on the title."""
        before = extents(self._front())
        self._point_at(before.x + before.width // 2, before.y - 10, "click", "--repeat", "2", "--delay", "50", "1")
        self.waits_until(lambda: extents(self._front()).width > before.width)

    def chooses(self, *path):
        """Opens one menu after the other, and clicks the last item."""
        for item in path:
            self.clicks(item, MENU_ROLES)

    def writes(self, text):
        """On the keypad, which leaves at least half of every button free."""
        self._sees_half_of_each_button()
        for character in text:
            self.clicks(SIGNS.get(character, character), pyatspi.ROLE_PUSH_BUTTON)

    def writes_from_the_right(self, text):
        self.writes(text[::-1])

    def shows_the_keypad(self):
        self.clicks("Teclado en pantalla", pyatspi.ROLE_CHECK_BOX)
        self.finds("0", pyatspi.ROLE_PUSH_BUTTON)

    def turns_the_wheel_over(self, control):
        self._point_at(*self._free_point(control), "click", "5")

    def _point_at(self, x, y, *then):
        subprocess.run(["xdotool", "mousemove", str(x), str(y), *then], check=True, timeout=10)

    def _sees_half_of_each_button(self):
        pad = self.finds("Teclado en pantalla", pyatspi.ROLE_PANEL)
        for button in self.all(pyatspi.ROLE_PUSH_BUTTON):
            place = extents(button)
            if button.parent != pad and 2 * overlap(place, extents(pad)) > place.width * place.height:
                raise Lost(f"{button.name!r} is more than half covered by the keypad")

    def _free_point(self, control):
        place = extents(control)
        pad = self._find("Teclado en pantalla", pyatspi.ROLE_PANEL)
        covered = extents(pad) if pad and control.parent != pad else None
        for share in (0.5, 0.1, 0.9, 0.25, 0.75):
            for height in (0.5, 0.1, 0.9):
                x, y = int(place.x + place.width * share), int(place.y + place.height * height)
                if covered is None or not contains(covered, x, y):
                    return x, y
        raise Lost(f"{control.name!r} is covered by the keypad")


def extents(control):
    return control.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def contains(place, x, y):
    return place.x <= x < place.x + place.width and place.y <= y < place.y + place.height


def overlap(one, other):
    """In square pixels."""
    width = min(one.x + one.width, other.x + other.width) - max(one.x, other.x)
    height = min(one.y + one.height, other.y + other.height) - max(one.y, other.y)
    return max(0, width) * max(0, height)


def shown_in(parent):
    """All that can be seen in a window, or anything else."""
    for one in parent or []:
        if one is not None and one.getState().contains(pyatspi.STATE_SHOWING):
            yield one
        if one is not None:
            yield from shown_in(one)


def text_of(control):
    text = control.queryText()
    return text.getText(0, text.characterCount)
