#pragma once

#include <QtGlobal>

#include <vector>

class QElapsedTimer;
class QKeyEvent;

namespace numbrela {

// What only the operating system knows about the keyboard.

// The code of the key in the event, if the system identifies the key itself and not just the character that it types
// with the modifiers held; otherwise 0.
int NativeKeyCode(const QKeyEvent& event);

// Asks the system not to send releases while a key is held: they could not be told from real ones.
void AskForRealReleasesOnly();

// The scan codes of the keys that are down at this moment; empty if the system does not report them. A system that
// tells two keys with one meaning apart in an event only, such as the two of Enter, reports the one of them that is
// known to have been pressed.
std::vector<quint32> KeysDown(const std::vector<quint32>& known);

// Whether a press that is not marked as a repetition was made before the timer was started.
bool WasPressedBefore(const QKeyEvent& press, const QElapsedTimer& timer);

} // namespace numbrela
