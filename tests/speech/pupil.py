"""A pupil who does not see: presses keys, and knows only what the accessibility bus says."""

import re
import time

import pyatspi
from gi.repository import GLib

from desktop import press

PATIENCE = 20  # seconds in which something expected is heard


class Deaf(AssertionError):
    """What was to be heard was not."""


class Pupil:
    """Hears what a screen reader would speak, sentence by sentence, each but once. What is announced must be expected."""

    def __init__(self, waits_after_a_key=lambda: None):
        self.waits_after_a_key = waits_after_a_key
        self.sentences = []
        self.announced = set()  # which of them were announcements
        self.heard = 0  # of the sentences, so many have been listened to
        self.expected = []  # the sentences that were listened for, as they came
        self.focus = None
        self.written = []  # what came into the text that has the focus
        self.caret = None  # the offset in that text
        self._listen("window:activate", self._on_window)
        self._listen("object:state-changed:focused", self._on_focus)
        self._listen("object:state-changed:showing", self._on_showing)
        self._listen("object:text-changed:insert", self._on_insertion)
        self._listen("object:text-caret-moved", self._on_caret)
        self._listen("object:active-descendant-changed", self._on_descendant)

    # ------------------------------------------------------------------------------------------------ what is heard

    def hears(self, pattern, counts=True):
        """Waits for a sentence that matches as a whole. What was said before it is forgotten, but for announcements.
        One that does not count is on the bus, but a reader need not speak it."""
        deadline = time.monotonic() + PATIENCE
        while True:
            for place in range(self.heard, len(self.sentences)):
                match = re.fullmatch(pattern, self.sentences[place], re.DOTALL)
                if match:
                    self._has_heard(place, counts)
                    return match
            if time.monotonic() > deadline:
                raise Deaf(f"waited in vain for {pattern!r}; heard: {self.sentences}")
            self._attend()

    def _has_heard(self, place, counts=True):
        surprises = [one for one in range(self.heard, place) if one in self.announced]
        if surprises:
            raise Deaf(f"{self.sentences[surprises[0]]!r} was announced, and nobody expected it: {self.sentences}")
        if counts:
            self.expected.append(self.sentences[place])
        self.heard = place + 1

    def finds_the_caret(self, offset):
        """Waits until the reader knows that the caret is there."""
        self._attend_until(lambda: self.caret == offset)

    def notices(self, inserted):
        """Waits until this has been written where the focus is."""
        self._attend_until(lambda: inserted in self.written)
        self.written.clear()

    def has_focus_on(self, name):
        return self.focus.name == name

    def finds_the_program(self):
        """As a reader does that has been started last: looks which window is in front, and what has the focus there."""
        self._attend_until(lambda: self.focus is not None or self._looks_around())

    def _looks_around(self):
        for window in (window for program in pyatspi.Registry.getDesktop(0) for window in program or []):
            if window.getState().contains(pyatspi.STATE_ACTIVE):
                self.focus = pyatspi.findDescendant(
                    window, lambda one: one.getState().contains(pyatspi.STATE_FOCUSED)
                )
        return self.focus is not None

    # --------------------------------------------------------------------------------------------- what the hands do

    def presses(self, *keys):
        press(*keys)
        self.waits_after_a_key()

    def goes_to(self, pattern, key="Tab", most=40):
        """Presses the key until what has the focus is called so."""
        for _ in range(most):
            before = len(self.sentences)
            self.presses(key)
            self._attend_until(lambda: len(self.sentences) > before)
            for place in range(before, len(self.sentences)):
                match = re.fullmatch(pattern, self.sentences[place], re.DOTALL)
                if match:
                    self._has_heard(place)
                    return match
        raise Deaf(f"{pattern!r} was not found by {key}; heard: {self.sentences}")

    def writes(self, text):
        """From left to right."""
        names = {",": "comma", ".": "period", " ": "space", "-": "minus"}
        for character in text:
            self.presses(names.get(character, character))

    def writes_from_the_right(self, text):
        self.writes(text[::-1])

    # --------------------------------------------------------------------------------------------------- the bus

    def _listen(self, kind, handler):
        def unless_it_is_gone(event):
            try:
                handler(event)
            except GLib.GError:  # what the event is about is gone by now
                pass

        pyatspi.Registry.registerEventListener(unless_it_is_gone, kind)

    def _attend(self):
        """Lets one event come, or a tenth of a second go by."""
        GLib.timeout_add(100, lambda: False)
        GLib.MainContext.default().iteration(True)

    def _attend_until(self, condition):
        deadline = time.monotonic() + PATIENCE
        while not condition():
            if time.monotonic() > deadline:
                raise Deaf(f"nothing more was said; heard: {self.sentences}")
            self._attend()

    def _say(self, *parts):
        self.sentences.append(" | ".join(part for part in parts if part))

    def _on_window(self, event):
        self.focus = None
        self._say(event.source.name, *texts_of_dialog(event.source))

    def _on_focus(self, event):
        if event.detail1 == 1 and event.source != self.focus:
            sentence = described(event.source)
            self.focus = event.source
            self._say(*sentence)

    def _on_showing(self, event):
        if event.detail1 == 1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
            self.announced.add(len(self.sentences))
            self._say(event.source.name)

    def _on_insertion(self, event):
        if event.source == self.focus:
            self.written.append(event.any_data)

    def _on_caret(self, event):
        """A reader asks for the word at the caret, wherever that is, and takes the focus to be there: so a caret that
        moves before its box gets the focus keeps the reader from saying that it has got it."""
        if event.source.getState().contains(pyatspi.STATE_FOCUSED):
            self.focus = event.source
            self.caret = event.detail1
        event.source.queryText().getTextAtOffset(event.detail1, pyatspi.TEXT_BOUNDARY_WORD_START)

    def _on_descendant(self, event):
        self._say(event.any_data.name)


def texts_of_dialog(window):
    """A reader says what is asked in a box, but not the labels in an ordinary window."""
    if window.getRole() not in (pyatspi.ROLE_DIALOG, pyatspi.ROLE_ALERT):
        return []
    return [label.name for label in window if label.getRole() == pyatspi.ROLE_LABEL]


def described(accessible):
    """What a reader says of what has the focus: its name, what is written in it, and its description."""
    written = ""
    if accessible.getRole() in (pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY):
        text = accessible.queryText()
        written = text.getText(0, text.characterCount)
    return accessible.name, written, accessible.description
