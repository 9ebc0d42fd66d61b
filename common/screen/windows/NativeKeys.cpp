#include "common/screen/NativeKeys.h"

#include <QKeyEvent>

#include <windows.h>

#include <set>

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

std::vector<quint32> KeysDown()
{
    constexpr UINT firstKey = VK_BACK; // before it are the buttons of the mouse
    constexpr UINT lastKey = VK_OEM_CLEAR;
    constexpr UINT laterKeys = 0xE0; // the prefix of the keys that later keyboards have added,
    constexpr quint32 laterKey = 0x100; // and how a key event marks one
    std::set<quint32> keys; // several virtual keys may be on one key of the keyboard
    for (UINT key = firstKey; key <= lastKey; ++key) {
        const UINT scanCode = ::MapVirtualKeyW(key, MAPVK_VK_TO_VSC_EX);
        const UINT prefix = scanCode >> 8U;
        const bool isEitherOfTwo
            = key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU; // which have codes of their own
        const bool isDown = ::GetAsyncKeyState(static_cast<int>(key)) < 0; // the highest bit
        if (isDown && !isEitherOfTwo && scanCode != 0 && (prefix == 0 || prefix == laterKeys)) {
            keys.insert((scanCode & 0xFFU) | (prefix == laterKeys ? laterKey : 0));
        }
    }
    return { keys.begin(), keys.end() };
}

quint32 Now()
{
    return ::GetTickCount();
}

// Windows marks every repetition, so that what is not marked is new, however late the program hears of it.
bool WasPressedBefore(const QKeyEvent& /*press*/, quint32 /*moment*/)
{
    return true;
}

} // namespace numbrela
