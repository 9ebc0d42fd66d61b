#include "common/screen/InertWindows.h"

#include "common/screen/x11/Connection.h"

#include <QAbstractNativeEventFilter>
#include <QWidget>

#include <xcb/xcb.h>

#include <cstring>
#include <optional>
#include <string_view>

namespace numbrela {

namespace {

// Presses arrive as events of the X Input extension, whose header is not installed everywhere: the types of these
// events, and the offset in bytes of the window they belong to.
constexpr std::uint16_t xinputButtonPress = 4;
constexpr std::uint16_t xinputTouchBegin = 18;
constexpr std::size_t xinputWindowOffset = 24;

xcb_atom_t atomOf(xcb_connection_t* connection, std::string_view name)
{
    const xcb_intern_atom_cookie_t asked
        = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, asked, nullptr));
    return reply != nullptr ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

// Looks at each event of the X server before Qt does, and lets all of them pass.
class InertWindowsFilter : public QAbstractNativeEventFilter {
public:
    explicit InertWindowsFilter(xcb_connection_t* connection)
        : protocols_(atomOf(connection, "WM_PROTOCOLS"))
        , takeFocus_(atomOf(connection, "WM_TAKE_FOCUS"))
        , windowState_(atomOf(connection, "WM_STATE"))
    {
    }

    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override
    {
        if (const std::optional<xcb_window_t> number = windowTurnedTo(message)) {
            if (const QWidget* const window = QWidget::find(*number); window != nullptr) {
                BringBackWindowBlocking(*window->window());
            }
        }
        return false;
    }

private:
    std::optional<xcb_window_t> windowTurnedTo(const void* message)
    {
        constexpr int withoutSentEventFlag = 0x7F;
        switch (static_cast<const xcb_generic_event_t*>(message)->response_type & withoutSentEventFlag) {
        case XCB_PROPERTY_NOTIFY:
            noteStateChange(*static_cast<const xcb_property_notify_event_t*>(message));
            return std::nullopt;
        case XCB_CLIENT_MESSAGE:
            return windowGivenTheFocus(*static_cast<const xcb_client_message_event_t*>(message));
        case XCB_GE_GENERIC:
            return windowPressed(static_cast<const char*>(message));
        default:
            return std::nullopt;
        }
    }

    void noteStateChange(const xcb_property_notify_event_t& event)
    {
        if (event.atom == windowState_) {
            lastStateChange_ = event.time;
        }
    }

    std::optional<xcb_window_t> windowGivenTheFocus(const xcb_client_message_event_t& event) const
    {
        // Signed, because the focus may have been given just before; correct even when the server's clock wraps.
        const auto since = static_cast<std::int32_t>(event.data.data32[1] - lastStateChange_);
        const bool isGiven = event.type == protocols_ && event.data.data32[0] == takeFocus_;
        return isGiven && since > SystemsFocusDelay ? std::optional(event.window) : std::nullopt;
    }

    static std::optional<xcb_window_t> windowPressed(const char* event)
    {
        xcb_ge_generic_event_t head {};
        std::memcpy(&head, event, sizeof head);
        if (head.event_type != xinputButtonPress && head.event_type != xinputTouchBegin) {
            return std::nullopt;
        }
        xcb_window_t window = XCB_NONE;
        std::memcpy(&window, event + xinputWindowOffset, sizeof window);
        return window;
    }

    xcb_atom_t protocols_;
    xcb_atom_t takeFocus_;
    xcb_atom_t windowState_;
    xcb_timestamp_t lastStateChange_ = 0; // when a window was last minimised or restored
};

} // namespace

std::unique_ptr<QAbstractNativeEventFilter> WatchInertWindows()
{
    xcb_connection_t* const connection = XConnection();
    if (connection == nullptr) {
        return nullptr;
    }
    auto filter = std::make_unique<InertWindowsFilter>(connection);
    qApp->installNativeEventFilter(filter.get());
    return filter;
}

} // namespace numbrela
