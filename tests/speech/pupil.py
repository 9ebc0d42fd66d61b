"""A pupil who does not see: presses keys, and knows only what is heard."""

import re
import time

from desktop import press

PATIENCE = 20  # seconds in which something expected is heard


class Deaf(AssertionError):
    """What was to be heard was not."""


class Pupil:
    """Hears what a screen reader would speak, sentence by sentence, each but once. What is announced must be expected.
    How it gets to the ears depends on the operating system: a deriving class says it by _say, _announce, focus, written
    and caret, and lets it come in _attend."""

    KEY_DELAY = 60  # milliseconds: as fast as quick fingers

    def __init__(self, waits_after_a_key=lambda: None):
        self.waits_after_a_key = waits_after_a_key
        self.sentences = []
        self.announced = set()  # which of them were announcements
        self.heard = 0  # of the sentences, so many have been listened to
        self.expected = []  # the sentences that were listened for, as they came
        self.focus = None
        self.written = []  # what came into the text that has the focus
        self.caret = None  # the offset in that text

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

    # --------------------------------------------------------------------------------------------- what the hands do

    def presses(self, *keys):
        press(*keys, delay=self.KEY_DELAY)
        self.waits_after_a_key()

    def closes_by(self, key):
        """Presses a key that closes the window, and lets it go in the next one, as slow fingers do: of a key that is
        let go when its window is gone and no other has the focus yet, wine does not tell, and takes it to be held."""
        before = len(self.sentences)
        press(key, delay=self.KEY_DELAY, action="keydown")
        self._attend_until(lambda: len(self.sentences) > before and self._gets_keys())
        press(key, delay=self.KEY_DELAY, action="keyup")
        self.waits_after_a_key()

    def faces(self, window):
        """Turns to a window that is in front; wherever that gives it the focus, there is nothing to do."""

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

    # ------------------------------------------------------------------------------------------- how it is listened to

    def _gets_keys(self):
        """Whether the window of which was heard last gets what is pressed."""
        return True

    def _attend_until(self, condition):
        deadline = time.monotonic() + PATIENCE
        while not condition():
            if time.monotonic() > deadline:
                raise Deaf(f"nothing more was said; heard: {self.sentences}")
            self._attend()

    def _say(self, *parts):
        self.sentences.append(" | ".join(part for part in parts if part))

    def _announce(self, text):
        self.announced.add(len(self.sentences))
        self._say(text)
