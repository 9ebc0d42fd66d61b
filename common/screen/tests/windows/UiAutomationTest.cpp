#include "common/screen/windows/UiAutomation.h"

#include "common/screen/Announcer.h"
#include "common/screen/FormWindow.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <memory>
#include <string>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

const auto window = reinterpret_cast<HWND>(0x1234);

struct Notification {
    NotificationKind Kind;
    NotificationProcessing Processing;
    std::u16string Text;
    std::u16string Activity;
};

// What has been asked of the system.
struct Asked {
    std::vector<Notification> Notifications;
    std::vector<HWND> Hosts;
    bool SenderWasComplete = false;
    bool ListenersAskedFor = false;
    IRawElementProviderSimple* Kept = nullptr; // the sender, by a system that keeps it
};
std::unique_ptr<Asked> asked;

std::u16string contents(BSTR text)
{
    return { reinterpret_cast<const char16_t*>(text), ::SysStringLen(text) };
}

BOOL WINAPI somebodyListens()
{
    asked->ListenersAskedFor = true;
    return TRUE;
}

BOOL WINAPI nobodyListens()
{
    asked->ListenersAskedFor = true;
    return FALSE;
}

HRESULT WINAPI hostOf(HWND of, IRawElementProviderSimple** host)
{
    asked->Hosts.push_back(of);
    *host = nullptr;
    return S_OK;
}

// Asks the sender what the system asks it.
bool isComplete(IRawElementProviderSimple& sender)
{
    void* same = nullptr;
    const bool isProvider
        = sender.QueryInterface(__uuidof(IRawElementProviderSimple), &same) == S_OK && same == &sender;
    sender.Release();
    void* other = &sender;
    const bool isNothingElse
        = sender.QueryInterface(__uuidof(IRawElementProviderFragment), &other) == E_NOINTERFACE && other == nullptr;
    ProviderOptions options {};
    const bool isOfTheProgram
        = sender.get_ProviderOptions(&options) == S_OK && (options & ProviderOptions_ServerSideProvider) != 0;
    IUnknown* pattern = &sender;
    const bool hasNoPattern = sender.GetPatternProvider(10000, &pattern) == S_OK && pattern == nullptr;
    VARIANT name {};
    name.vt = VT_BSTR;
    const bool hasNoName = sender.GetPropertyValue(30005, &name) == S_OK && name.vt == VT_EMPTY;
    IRawElementProviderSimple* host = nullptr;
    return isProvider && isNothingElse && isOfTheProgram && hasNoPattern && hasNoName
        && sender.get_HostRawElementProvider(&host) == S_OK;
}

HRESULT WINAPI raised(IRawElementProviderSimple* sender, NotificationKind kind, NotificationProcessing processing,
    BSTR text, BSTR activity)
{
    asked->Notifications.push_back({ kind, processing, contents(text), contents(activity) });
    asked->SenderWasComplete = isComplete(*sender);
    asked->Kept = sender;
    sender->AddRef();
    return S_OK;
}

class UiAutomationTest : public ::testing::Test {
protected:
    UiAutomationTest() { asked = std::make_unique<Asked>(); }
    ~UiAutomationTest() override
    {
        if (asked->Kept != nullptr) {
            EXPECT_EQ(asked->Kept->Release(), 0U) << "the program keeps no sender";
        }
        asked.reset();
    }
};

TEST_F(UiAutomationTest, AnAnnouncementIsANotificationOfItsWindowThatNothingElseReplaces)
{
    Notify({ &somebodyListens, &hostOf, &raised }, window, QStringLiteral("MUY BIEN. ¿Cuántos años? «½ ñandú» 𝟛 €"));
    ASSERT_EQ(asked->Notifications.size(), 1U);
    const Notification& notification = asked->Notifications.front();
    EXPECT_EQ(notification.Text, u"MUY BIEN. ¿Cuántos años? «½ ñandú» 𝟛 €");
    EXPECT_EQ(notification.Activity, u"Numbrela");
    EXPECT_EQ(notification.Kind, NotificationKind::ActionCompleted);
    EXPECT_EQ(notification.Processing, NotificationProcessing::All);
    EXPECT_TRUE(asked->SenderWasComplete);
    EXPECT_EQ(asked->Hosts, std::vector { window });
}

TEST_F(UiAutomationTest, NothingIsMadeWhileNobodyListens)
{
    Notify({ &nobodyListens, &hostOf, &raised }, window, QStringLiteral("CORRECTO"));
    EXPECT_TRUE(asked->ListenersAskedFor);
    EXPECT_TRUE(asked->Notifications.empty());
    EXPECT_TRUE(asked->Hosts.empty());
}

TEST_F(UiAutomationTest, AWindowsThatIsOlderThanNotificationsIsNotAskedForThem)
{
    Notify({}, window, QStringLiteral("CORRECTO"));
    Notify({ nullptr, &hostOf, &raised }, window, QStringLiteral("CORRECTO"));
    Notify({ &somebodyListens, nullptr, &raised }, window, QStringLiteral("CORRECTO"));
    Notify({ &somebodyListens, &hostOf, nullptr }, window, QStringLiteral("CORRECTO"));
    EXPECT_TRUE(asked->Notifications.empty());
    EXPECT_FALSE(asked->ListenersAskedFor);
}

// Whether this system has notifications or not: nothing must fail.
TEST_F(UiAutomationTest, TheSystemsOwnIsFoundAndAsked)
{
    const UiAutomation system = FindUiAutomation();
    EXPECT_NE(system.ClientsAreListening, nullptr);
    EXPECT_NE(system.HostProviderFromHwnd, nullptr);
    FormWindow form { QStringLiteral("Form"), QStringLiteral("SUMAS"), { 6000, 3000 }, {} };
    ShowAndActivate(form);
    Announcer announcer(form);
    announcer.Announce(QStringLiteral("CORRECTO"));
    QCoreApplication::processEvents();
    EXPECT_EQ(announcer.Said(), QStringLiteral("CORRECTO"));
}

} // namespace

} // namespace numbrela
