"""A pupil who hears what the accessibility bus of Linux says."""

import pyatspi
from gi.repository import GLib

from pupil import Pupil


class LinuxPupil(Pupil):
    """While a reader listens, Qt asks it about each key before the key goes on: of two keys pressed within a
    millisecond, an access key would open its menu before Alt arrives and closes it again. So the hands are no faster than
    a person's."""

    def __init__(self, waits_after_a_key=lambda: None):
        super().__init__(waits_after_a_key)
        self.drawn_by_a_caret_to = None  # the box of which a caret alone has told that it has the focus
        self._listen("window:activate", self._on_window)
        self._listen("object:state-changed:focused", self._on_focus)
        self._listen("object:state-changed:showing", self._on_showing)
        self._listen("object:text-changed:delete", self._on_deletion)
        self._listen("object:text-changed:insert", self._on_insertion)
        self._listen("object:text-caret-moved", self._on_caret)
        self._listen("object:active-descendant-changed", self._on_descendant)

    def _looks_around(self):
        for window in (window for program in pyatspi.Registry.getDesktop(0) for window in program or []):
            if window.getState().contains(pyatspi.STATE_ACTIVE):
                self.focus = pyatspi.findDescendant(
                    window, lambda one: one.getState().contains(pyatspi.STATE_FOCUSED)
                )
        return self.focus is not None

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

    def _on_window(self, event):
        self.focus = None
        self._say(event.source.name, *texts_of_dialog(event.source))

    def _on_focus(self, event):
        if event.detail1 == 1 and event.source != self.focus:
            sentence = described(event.source)
            self.focus = event.source
            self._say(*sentence)
        self.drawn_by_a_caret_to = None

    def _on_showing(self, event):
        if event.detail1 == 1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
            self._announce(event.source.name)

    def _on_deletion(self, event):
        self._on_new_text(event.source)

    def _on_insertion(self, event):
        self._on_new_text(event.source)
        if event.source == self.focus:
            self.written.append(event.any_data)

    def _on_new_text(self, box):
        """Where the program itself writes, a clock's next second for one, the caret goes before the text. A pupil whose
        hands were busy meanwhile may find the focus there already, but has yet to hear of it."""
        if box == self.drawn_by_a_caret_to:
            self.focus = None

    def _on_caret(self, event):
        """A reader asks for the word at the caret, wherever that is, and takes the focus to be there: so a caret that
        moves before its box gets the focus keeps the reader from saying that it has got it."""
        if event.source.getState().contains(pyatspi.STATE_FOCUSED):
            if event.source != self.focus:
                self.drawn_by_a_caret_to = event.source
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
