#include "common/screen/NativeKeys.h"

#include "common/screen/KeyCodes.h"

#include <QGuiApplication>
#include <QKeyEvent>

#define explicit explicit_ // the header is C and has a field of this name
#include <xcb/xkb.h>
#undef explicit

#include <cstdlib>
#include <memory>

namespace numbrela {

namespace {

// The numbers of keys on X11 and Wayland are those of evdev plus 8. They name places: the digit row from 1 to 0, and
// the key right of M, which on a Spanish keyboard is the comma's.
constexpr quint32 scanCodeOf1 = 10;
constexpr quint32 scanCodeOf9 = 18;
constexpr quint32 scanCodeOf0 = 19;
constexpr quint32 scanCodeOfComma = 59;

struct Free {
    void operator()(void* reply) const { std::free(reply); } // NOLINT: the library allocates with malloc
};
template <typename Type>
using Reply = std::unique_ptr<Type, Free>;

// Null where the windows are not those of an X server.
xcb_connection_t* connection()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

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
    return scanCode == scanCodeOfComma ? KeyCode::Comma : 0;
}

void AskForRealReleasesOnly()
{
    if (xcb_connection_t* server = connection()) {
        constexpr auto flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
        const auto request = xcb_xkb_per_client_flags(server, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
        std::free(xcb_xkb_per_client_flags_reply(server, request, nullptr)); // NOLINT: see Free
    }
}

bool IsKeyDown(quint32 scanCode)
{
    xcb_connection_t* server = connection();
    if (server == nullptr) {
        return false;
    }
    const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(server, xcb_query_keymap(server), nullptr));
    constexpr quint32 keysInAByte = 8;
    constexpr quint32 keyCount = 256;
    return reply != nullptr && scanCode < keyCount
        && (reply->keys[scanCode / keysInAByte] >> (scanCode % keysInAByte) & 1) != 0;
}

} // namespace numbrela
