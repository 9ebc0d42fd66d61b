#include "common/screen/NativeAnnouncement.h"

#include "common/screen/Announcer.h"
#include "common/screen/FormWindow.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>

namespace numbrela {

namespace {

using namespace testing;

// What is said of it to a reader that listens is seen where there is one, on a real accessibility bus.
TEST(NativeAnnouncementTest, IsANotificationOfItsWindow)
{
    FormWindow form { QStringLiteral("Form"), QStringLiteral("SUMAS"), { 6000, 3000 }, {} };
    auto& announcer = *new Announcer(form);
    ShowAndActivate(form);
    announcer.Announce(QStringLiteral("CORRECTO"));
    QCoreApplication::processEvents();
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&announcer);
    EXPECT_EQ(spoken.role(), QAccessible::Notification);
    EXPECT_EQ(spoken.text(QAccessible::Name), QStringLiteral("CORRECTO"));
    EXPECT_EQ(spoken.text(QAccessible::Description), QString());
    EXPECT_EQ(spoken.parent(), QAccessible::queryAccessibleInterface(&form));
    EXPECT_EQ(spoken.childCount(), 0);
    EXPECT_EQ(spoken.child(0), nullptr);
    EXPECT_EQ(spoken.indexOfChild(spoken.parent()), -1);
    EXPECT_FALSE(spoken.state().invisible);
}

} // namespace

} // namespace numbrela
