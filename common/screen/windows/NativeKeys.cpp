#include "common/screen/NativeKeys.h"

#include "common/screen/windows/ScanCodes.h"

#include <QKeyEvent>

#include <windows.h>

namespace numbrela {

int NativeKeyCode(const QKeyEvent& event)
{
    const quint32 key = event.nativeVirtualKey();
    const bool bringsOnlyACharacter
        = key == VK_PROCESSKEY || key == VK_PACKET; // of an input method or a touch keyboard
    return bringsOnlyACharacter ? 0 : static_cast<int>(key);
}

// Windows repeats only the press of a held key, and says that it is a repetition.
void AskForRealReleasesOnly() { }

std::vector<quint32> KeysDown(const std::vector<quint32>& known)
{
    constexpr int firstKey = VK_BACK; // before it are the buttons of the mouse
    constexpr int lastKey = VK_OEM_CLEAR;
    std::vector<int> down;
    for (int key = firstKey; key <= lastKey; ++key) {
        if (::GetAsyncKeyState(key) < 0) { // the highest bit
            down.push_back(key);
        }
    }
    return ScanCodesOf(down, known);
}

// Windows marks every repetition, so that what is not marked is new, however late the program hears of it.
bool WasPressedBefore(const QKeyEvent& /*press*/, const QElapsedTimer& /*timer*/)
{
    return true;
}

} // namespace numbrela
