#include "common/screen/windows/ScanCodes.h"

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace numbrela {

namespace {

constexpr quint32 laterKey = 0x100; // how Qt marks a key that later keyboards have added, such as Enter of the keypad

// Enter, and what a keypad without Num Lock has in common with the keys left of it.
bool isOnTwoKeys(int virtualKey)
{
    return virtualKey == VK_RETURN || virtualKey == VK_INSERT || virtualKey == VK_DELETE
        || (virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN);
}

// Of the two Shift, Control or Alt: each of them has a virtual key of its own, too.
bool isEitherOfTwo(int virtualKey)
{
    return virtualKey == VK_SHIFT || virtualKey == VK_CONTROL || virtualKey == VK_MENU;
}

} // namespace

std::vector<quint32> ScanCodesOf(const std::vector<int>& virtualKeys, const std::vector<quint32>& known)
{
    constexpr UINT laterKeys = 0xE0; // the prefix of their codes
    std::set<quint32> codes; // several virtual keys may be on one key of the keyboard
    for (const int virtualKey : virtualKeys) {
        const UINT mapped = ::MapVirtualKeyW(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC_EX);
        const UINT prefix = mapped >> 8U;
        const quint32 code = mapped & 0xFFU;
        if (isOnTwoKeys(virtualKey)) {
            std::copy_if(known.begin(), known.end(), std::inserter(codes, codes.end()),
                [code](quint32 one) { return one == code || one == (code | laterKey); });
        } else if (!isEitherOfTwo(virtualKey) && mapped != 0 && (prefix == 0 || prefix == laterKeys)) {
            codes.insert(code | (prefix == laterKeys ? laterKey : 0));
        }
    }
    return { codes.begin(), codes.end() };
}

} // namespace numbrela
