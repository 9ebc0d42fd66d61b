// Stands for the system's UIAutomationCore.dll under wine, which has no notifications and takes no events, with a
// reader in it that listens. What a program raises is written to the file that the environment names in NUMBRELA_HEARD,
// as records that end with RS and have fields that end with US, in UTF-8:
//   window  NAME TEXT...                  the window that has the focus now, and of a box the texts in it
//   focus   ID TYPE NAME TEXT DESCRIPTION what has the focus now, with the number of its control type
//   caret   ID OFFSET                     the caret has moved
//   text    ID TEXT                       the text has changed
//   said    TEXT                          an announcement
// Whatever is not in the event itself is asked of the program when it takes messages again: a reader is another process
// and can't ask earlier.

#include "common/screen/windows/ComObject.h"

#include <windows.h>

// Qt has declared what the cross compiler's headers lack; what an interface needs must stand before it.
#include <private/uiatypes_p.h>

#include <private/uiaattributeids_p.h>
#include <private/uiacontroltypeids_p.h>
#include <private/uiaeventids_p.h>
#include <private/uiapatternids_p.h>
#include <private/uiapropertyids_p.h>

#include <private/uiaserverinterfaces_p.h>

#include <cstdlib>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using numbrela::ComObject;

template <typename Interface>
ComObject<Interface> as(IUnknown* object)
{
    void* found = nullptr;
    if (object == nullptr || object->QueryInterface(__uuidof(Interface), &found) != S_OK) {
        return nullptr;
    }
    return ComObject<Interface>(static_cast<Interface*>(found));
}

std::string utf8(BSTR text)
{
    const int length = static_cast<int>(::SysStringLen(text));
    std::string bytes(static_cast<std::size_t>(length) * 3, '\0');
    bytes.resize(static_cast<std::size_t>(::WideCharToMultiByte(
        CP_UTF8, 0, text, length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::string taken(BSTR text)
{
    const std::string bytes = utf8(text);
    ::SysFreeString(text);
    return bytes;
}

void write(const std::vector<std::string>& fields)
{
    std::string record;
    for (const std::string& field : fields) {
        record += field + '\x1f';
    }
    record += '\x1e';
    const HANDLE file = ::CreateFileA(std::getenv("NUMBRELA_HEARD"), FILE_APPEND_DATA,
        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    ::WriteFile(file, record.data(), static_cast<DWORD>(record.size()), &written, nullptr);
    ::CloseHandle(file);
}

std::string textOf(IRawElementProviderSimple& element, PROPERTYID property)
{
    VARIANT value {};
    element.GetPropertyValue(property, &value);
    return value.vt == VT_BSTR ? taken(value.bstrVal) : std::string();
}

long controlTypeOf(IRawElementProviderSimple& element)
{
    VARIANT value {};
    element.GetPropertyValue(UIA_ControlTypePropertyId, &value);
    return value.vt == VT_I4 ? value.lVal : 0;
}

bool isDialog(IRawElementProviderSimple& element)
{
    VARIANT value {};
    element.GetPropertyValue(UIA_IsDialogPropertyId, &value);
    return value.vt == VT_BOOL && value.boolVal != VARIANT_FALSE;
}

std::string idOf(IRawElementProviderFragment& element)
{
    SAFEARRAY* numbers = nullptr;
    element.GetRuntimeId(&numbers);
    LONG last = -1;
    int number = 0;
    if (numbers != nullptr && ::SafeArrayGetUBound(numbers, 1, &last) == S_OK) {
        ::SafeArrayGetElement(numbers, &last, &number);
        ::SafeArrayDestroy(numbers);
    }
    return std::to_string(number);
}

ComObject<ITextRangeProvider> wholeTextOf(ITextProvider& text)
{
    ITextRangeProvider* range = nullptr;
    text.get_DocumentRange(&range);
    return ComObject<ITextRangeProvider>(range);
}

ComObject<ITextProvider> textPatternOf(IRawElementProviderSimple& element)
{
    IUnknown* pattern = nullptr;
    element.GetPatternProvider(UIA_TextPatternId, &pattern);
    const ComObject<IUnknown> held(pattern);
    return as<ITextProvider>(pattern);
}

std::string contentsOf(IRawElementProviderSimple& element)
{
    const ComObject<ITextProvider> pattern = textPatternOf(element);
    if (pattern == nullptr) {
        return {};
    }
    BSTR text = nullptr;
    wholeTextOf(*pattern)->GetText(-1, &text);
    return taken(text);
}

int caretOffsetIn(ITextProvider& text)
{
    SAFEARRAY* selected = nullptr;
    text.GetSelection(&selected);
    LONG first = 0;
    IUnknown* found = nullptr;
    ::SafeArrayGetElement(selected, &first, &found);
    ::SafeArrayDestroy(selected);
    const ComObject<IUnknown> held(found);
    int offset = -1;
    as<ITextRangeProvider>(found)->CompareEndpoints(
        TextPatternRangeEndpoint_Start, wholeTextOf(text).get(), TextPatternRangeEndpoint_Start, &offset);
    return offset;
}

ComObject<IRawElementProviderFragment> next(IRawElementProviderFragment& element, NavigateDirection direction)
{
    IRawElementProviderFragment* found = nullptr;
    element.Navigate(direction, &found);
    return ComObject<IRawElementProviderFragment>(found);
}

// What is asked in a box; the labels of an ordinary window are not read out.
std::vector<std::string> textsOfDialog(IRawElementProviderSimple& window)
{
    std::vector<std::string> texts;
    const auto fragment = as<IRawElementProviderFragment>(&window);
    if (!isDialog(window) || fragment == nullptr) {
        return texts;
    }
    for (auto child = next(*fragment, NavigateDirection_FirstChild); child != nullptr;
         child = next(*child, NavigateDirection_NextSibling)) {
        const auto element = as<IRawElementProviderSimple>(child.get());
        if (controlTypeOf(*element) == UIA_TextControlTypeId) {
            texts.push_back(textOf(*element, UIA_NamePropertyId));
        }
    }
    return texts;
}

// The window that the element is in: its outermost ancestor.
void noticeWindowOf(IRawElementProviderFragment& element)
{
    static std::string last;
    auto window = as<IRawElementProviderFragment>(&element);
    while (auto around = next(*window, NavigateDirection_Parent)) {
        window = std::move(around);
    }
    const std::string id = idOf(*window);
    if (id == last) {
        return;
    }
    last = id;
    const auto simple = as<IRawElementProviderSimple>(window.get());
    std::vector<std::string> fields { "window", textOf(*simple, UIA_NamePropertyId) };
    for (std::string& text : textsOfDialog(*simple)) {
        fields.push_back(std::move(text));
    }
    write(fields);
}

// When a line gets the focus that is in another list than what had it before, the list is named first.
void noticeListOf(IRawElementProviderFragment& element)
{
    static std::string last;
    const auto around = next(element, NavigateDirection_Parent);
    const auto list = as<IRawElementProviderSimple>(around.get());
    const std::string id
        = list != nullptr && controlTypeOf(*list) == UIA_ListControlTypeId ? idOf(*around) : std::string();
    if (!id.empty() && id != last) {
        write({ "focus", id, std::to_string(UIA_ListControlTypeId), textOf(*list, UIA_NamePropertyId), {}, {} });
    }
    last = id;
}

void noticeFocusOn(IRawElementProviderSimple& element, IRawElementProviderFragment& fragment)
{
    noticeWindowOf(fragment);
    noticeListOf(fragment);
    write({ "focus", idOf(fragment), std::to_string(controlTypeOf(element)), textOf(element, UIA_NamePropertyId),
        contentsOf(element), textOf(element, UIA_FullDescriptionPropertyId) });
}

void notice(EVENTID event, IRawElementProviderSimple& element)
{
    const auto fragment = as<IRawElementProviderFragment>(&element);
    if (fragment == nullptr || controlTypeOf(element) == 0) {
        return; // it is gone by now
    }
    switch (event) {
    case UIA_AutomationFocusChangedEventId:
        noticeFocusOn(element, *fragment);
        break;
    case UIA_Text_TextSelectionChangedEventId:
        write({ "caret", idOf(*fragment), std::to_string(caretOffsetIn(*textPatternOf(element))) });
        break;
    case UIA_Text_TextChangedEventId:
        write({ "text", idOf(*fragment), contentsOf(element) });
        break;
    default:
        break;
    }
}

// What has been raised and not been looked at yet.
std::deque<std::function<void()>> waiting;

LRESULT CALLBACK lookAtWaiting(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message != WM_APP) {
        return ::DefWindowProcW(window, message, first, second);
    }
    const auto look = std::move(waiting.front());
    waiting.pop_front();
    look();
    return 0;
}

HWND makeMailbox()
{
    WNDCLASSW mailbox {};
    mailbox.lpfnWndProc = &lookAtWaiting;
    mailbox.lpszClassName = L"Reader";
    ::RegisterClassW(&mailbox);
    return ::CreateWindowW(L"Reader", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

// All events come from the thread of the windows.
void later(std::function<void()> look)
{
    static const HWND mailbox = makeMailbox();
    waiting.push_back(std::move(look));
    ::PostMessageW(mailbox, WM_APP, 0, 0);
}

} // namespace

extern "C" {

__declspec(dllexport) BOOL WINAPI UiaClientsAreListening()
{
    return TRUE;
}

__declspec(dllexport) HRESULT WINAPI UiaHostProviderFromHwnd(HWND /*window*/, IRawElementProviderSimple** provider)
{
    *provider = nullptr;
    return S_OK;
}

// What a reader asks for first. It looks what has the focus.
__declspec(dllexport) LRESULT WINAPI UiaReturnRawElementProvider(
    HWND /*window*/, WPARAM /*first*/, LPARAM /*second*/, IRawElementProviderSimple* provider)
{
    if (const auto root = as<IRawElementProviderFragmentRoot>(provider)) {
        IRawElementProviderFragment* found = nullptr;
        root->GetFocus(&found);
        const ComObject<IRawElementProviderFragment> focus(found);
        if (const auto element = as<IRawElementProviderSimple>(found)) {
            noticeFocusOn(*element, *focus);
        }
    }
    return 0;
}

__declspec(dllexport) HRESULT WINAPI UiaRaiseAutomationPropertyChangedEvent(
    IRawElementProviderSimple* /*provider*/, PROPERTYID /*property*/, VARIANT /*before*/, VARIANT /*now*/)
{
    return S_OK;
}

__declspec(dllexport) HRESULT WINAPI UiaRaiseAutomationEvent(IRawElementProviderSimple* provider, EVENTID event)
{
    later([event, element = std::shared_ptr(as<IRawElementProviderSimple>(provider))] { notice(event, *element); });
    return S_OK;
}

__declspec(dllexport) HRESULT WINAPI UiaRaiseNotificationEvent(IRawElementProviderSimple* /*provider*/,
    NotificationKind /*kind*/, NotificationProcessing /*processing*/, BSTR text, BSTR /*activity*/)
{
    later([said = utf8(text)] { write({ "said", said }); });
    return S_OK;
}

// Asks the window in front for its provider, as a reader does. For rundll32.
__declspec(dllexport) void CALLBACK
    AskWindowInFront(HWND /*owner*/, HINSTANCE /*program*/, LPSTR /*line*/, int /*show*/)
{
    constexpr LPARAM uiaRoot = -25;
    constexpr UINT patience = 5000; // milliseconds
    ::SendMessageTimeoutW(::GetForegroundWindow(), WM_GETOBJECT, 0, uiaRoot, SMTO_ABORTIFHUNG, patience, nullptr);
}
}
