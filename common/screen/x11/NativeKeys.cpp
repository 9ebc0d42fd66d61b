#include "common/screen/NativeKeys.h"

#include "common/screen/KeyCodes.h"
#include "common/screen/x11/Connection.h"

#include <QElapsedTimer>
#include <QKeyEvent>

#define explicit explicit_ // the header is C and has a field of this name
#include <xcb/xkb.h>
#undef explicit

namespace numbrela {

namespace {

// Scan codes on X11 and Wayland are those of evdev plus 8. They stand for positions on the keyboard: the digit row from
// 1 to 0, and the key right of M, which is the comma on many keyboards.
constexpr quint32 scanCodeOf1 = 10;
constexpr quint32 scanCodeOf9 = 18;
constexpr quint32 scanCodeOf0 = 19;
constexpr quint32 scanCodeRightOfM = 59;

} // namespace

int NativeKeyCode(const QKeyEvent& event)
{
    const quint32 scanCode = event.nativeScanCode();
    if (scanCode >= scanCodeOf1 && scanCode <= scanCodeOf9) {
        return KeyCode::Digit0 + 1 + static_cast<int>(scanCode - scanCodeOf1);
    }
    if (scanCode == scanCodeOf0) {
        return KeyCode::Digit0;
    }
    return scanCode == scanCodeRightOfM && WritesWhatCommaDoesWithShift(event) ? KeyCode::Comma : 0;
}

void AskForRealReleasesOnly()
{
    xcb_connection_t* server = XConnection();
    if (server == nullptr || xcb_get_extension_data(server, &xcb_xkb_id)->present == 0) {
        return;
    }
    constexpr auto flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto request = xcb_xkb_per_client_flags(server, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    const Reply<xcb_xkb_per_client_flags_reply_t> reply(xcb_xkb_per_client_flags_reply(server, request, nullptr));
    if (reply == nullptr || (reply->value & flag) == 0) {
        qWarning("The X server does not tell held keys from others.");
    }
}

std::vector<quint32> KeysDown(const std::vector<quint32>& /*known*/)
{
    std::vector<quint32> keys;
    xcb_connection_t* server = XConnection();
    if (server == nullptr) {
        return keys;
    }
    const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(server, xcb_query_keymap(server), nullptr));
    constexpr quint32 keysInAByte = 8;
    const quint32 keyCount = reply == nullptr ? 0 : sizeof reply->keys * keysInAByte;
    for (quint32 scanCode = 0; scanCode < keyCount; ++scanCode) {
        if ((reply->keys[scanCode / keysInAByte] >> (scanCode % keysInAByte) & 1) != 0) {
            keys.push_back(scanCode);
        }
    }
    return keys;
}

// An X server on this machine stamps what happens with the milliseconds of the timer's clock, in 32 bits: they start
// anew after 49 days.
bool WasPressedBefore(const QKeyEvent& press, const QElapsedTimer& timer)
{
    const auto started = static_cast<quint32>(timer.msecsSinceReference());
    return static_cast<qint32>(started - static_cast<quint32>(press.timestamp())) >= 0;
}

} // namespace numbrela
