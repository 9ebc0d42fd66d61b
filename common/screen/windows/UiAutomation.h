#pragma once

#include <QString>

#include <windows.h>

#include <uiautomationcore.h>

namespace numbrela {

// What a notification asks for, with the numbers that Windows gives it.
enum class NotificationKind : int { ActionCompleted = 2 };
enum class NotificationProcessing : int { All = 2 };

// What an announcement needs of UIAutomationCore.dll. A function that this Windows has not is null: notifications came
// with Windows 10 1709.
struct UiAutomation {
    BOOL(WINAPI* ClientsAreListening)() = nullptr;
    HRESULT(WINAPI* HostProviderFromHwnd)(HWND, IRawElementProviderSimple**) = nullptr;
    HRESULT(WINAPI* RaiseNotificationEvent)
    (IRawElementProviderSimple*, NotificationKind, NotificationProcessing, BSTR text, BSTR activity) = nullptr;
};

// Looks for the DLL while the program runs, as Qt does, so that the program starts where it is not or is older.
UiAutomation FindUiAutomation();

// Has screen readers say a text that belongs to a window. Makes nothing while none listens.
void Notify(const UiAutomation& system, HWND window, const QString& text);

} // namespace numbrela
