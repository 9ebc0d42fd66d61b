#pragma once

#include <QtGlobal>

#include <vector>

class QKeyEvent;

namespace numbrela {

// What only the system that the program runs on can say of its keyboard.

// The code of the key that the event is about, if the system knows the key itself and not only the character that it
// writes with the modifiers that are held; 0 where it does not.
int NativeKeyCode(const QKeyEvent& event);

// Has the system send no releases for a key that is held, which could not be told from real ones.
void AskForRealReleasesOnly();

// The scan codes of the keys that are down at this moment; none where the system does not tell.
std::vector<quint32> KeysDown();

} // namespace numbrela
