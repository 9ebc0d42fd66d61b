#include "common/screen/windows/UiAutomation.h"

#include "common/screen/windows/ComObject.h"

#include <atomic>
#include <memory>

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // interfaces of COM have none: Release() destroys

namespace numbrela {

namespace {

// The window as the sender of a notification. Whatever else a reader asks about it, the system knows from the window.
// The system may keep it longer than the notification lasts.
class Sender final : public IRawElementProviderSimple {
public:
    Sender(const UiAutomation& system, HWND window)
        : system_(system)
        , window_(window)
    {
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override
    {
        const bool is = wanted == __uuidof(IUnknown) || wanted == __uuidof(IRawElementProviderSimple);
        *found = is ? this : nullptr;
        if (is) {
            AddRef();
        }
        return is ? S_OK : E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++users_; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG users = --users_;
        if (users == 0) {
            delete this;
        }
        return users;
    }

    HRESULT STDMETHODCALLTYPE get_ProviderOptions(ProviderOptions* options) override
    {
        // To be asked in the thread that made it alone, which is that of the window.
        *options = static_cast<ProviderOptions>(ProviderOptions_ServerSideProvider | ProviderOptions_UseComThreading);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetPatternProvider(PATTERNID /*pattern*/, IUnknown** provider) override
    {
        *provider = nullptr;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetPropertyValue(PROPERTYID /*property*/, VARIANT* value) override
    {
        value->vt = VT_EMPTY;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE get_HostRawElementProvider(IRawElementProviderSimple** host) override
    {
        return system_.HostProviderFromHwnd(window_, host);
    }

private:
    ~Sender() = default;

    UiAutomation system_;
    HWND window_;
    std::atomic<ULONG> users_ = 1;
};

struct FreeString {
    void operator()(OLECHAR* text) const { ::SysFreeString(text); }
};
using String = std::unique_ptr<OLECHAR, FreeString>;

String stringOf(const QString& text)
{
    return String(::SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.utf16()), static_cast<UINT>(text.size())));
}

template <typename Function>
void find(HMODULE library, const char* name, Function*& function)
{
    function = reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

} // namespace

UiAutomation FindUiAutomation()
{
    UiAutomation system;
    // The system's own: not one that somebody has put beside the program.
    HMODULE library = ::LoadLibraryExW(L"uiautomationcore.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library != nullptr) {
        find(library, "UiaClientsAreListening", system.ClientsAreListening);
        find(library, "UiaHostProviderFromHwnd", system.HostProviderFromHwnd);
        find(library, "UiaRaiseNotificationEvent", system.RaiseNotificationEvent);
    }
    return system;
}

void Notify(const UiAutomation& system, HWND window, const QString& text)
{
    const bool isComplete = system.ClientsAreListening != nullptr && system.HostProviderFromHwnd != nullptr
        && system.RaiseNotificationEvent != nullptr;
    if (!isComplete || system.ClientsAreListening() == FALSE) {
        return;
    }
    const ComObject<Sender> sender(new Sender(system, window));
    const String said = stringOf(text);
    const String activity = stringOf(QStringLiteral("Numbrela"));
    // All: with any of the processings by which a newer notification takes the place of an older one, a reader falls
    // silent in the middle of what it says, be it the verdict or the name of the box that has just got the focus. An
    // important one would not wait until that name is said.
    system.RaiseNotificationEvent(
        sender.get(), NotificationKind::ActionCompleted, NotificationProcessing::All, said.get(), activity.get());
}

} // namespace numbrela
