#include "common/screen/InertWindows.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QWidget>

#include <windows.h>

namespace numbrela {

namespace {

// Looks at each message of the system before Qt does, and lets all of them pass.
class InertWindowsFilter : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override
    {
        const auto& told = *static_cast<const MSG*>(message);
        noteMinimising(told);
        if (turnsToWindow(told)) {
            // Also where the pointer is over a part of the frame, or the message is one of a window inside the window.
            const auto number = reinterpret_cast<WId>(::GetAncestor(told.hwnd, GA_ROOT));
            if (const QWidget* const window = QWidget::find(number); window != nullptr) {
                BringBackWindowBlocking(*window->window());
            }
        }
        return false;
    }

private:
    void noteMinimising(const MSG& told)
    {
        const bool begins = told.message == WM_SYSCOMMAND && (told.wParam & 0xFFF0U) == SC_MINIMIZE;
        const bool ends = told.message == WM_SIZE && told.wParam == SIZE_MINIMIZED;
        if (begins || ends) {
            lastMinimising_ = ::GetTickCount64();
        }
    }

    // An inert window is a disabled one, which is told of a press only to set the pointer's shape.
    bool turnsToWindow(const MSG& told) const
    {
        switch (told.message) {
        case WM_SETCURSOR:
            return LOWORD(told.lParam) == static_cast<WORD>(HTERROR)
                && (HIWORD(told.lParam) == WM_LBUTTONDOWN || HIWORD(told.lParam) == WM_RBUTTONDOWN);
        case WM_ACTIVATE:
            return LOWORD(told.wParam) != WA_INACTIVE && ::GetTickCount64() - lastMinimising_ > SystemsFocusDelay;
        default:
            return false;
        }
    }

    ULONGLONG lastMinimising_ = 0; // milliseconds since the system has started
};

} // namespace

std::unique_ptr<QAbstractNativeEventFilter> WatchInertWindows()
{
    if (QGuiApplication::platformName() != QLatin1String("windows")) {
        return nullptr; // without a display, the system tells nothing about windows
    }
    auto filter = std::make_unique<InertWindowsFilter>();
    qApp->installNativeEventFilter(filter.get());
    return filter;
}

} // namespace numbrela
