#pragma once

class QKeyEvent;

#include <QtGlobal>

namespace numbrela {

// What only the system that the program runs on can say of its keyboard.

// The code of the key that the event is about, if the system knows the key itself and not only the character that it
// writes with the modifiers that are held; 0 where it does not.
int NativeKeyCode(const QKeyEvent& event);

// Has the system send no releases for a key that is held, which could not be told from real ones.
void AskForRealReleasesOnly();

// Whether the key with this scan code is down at this moment; false where that is not known.
bool IsKeyDown(quint32 scanCode);

} // namespace numbrela
