#include "common/screen/InertWindows.h"

#include "common/screen/FormWindow.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>

namespace numbrela {

namespace {

using namespace testing;

// A menu, and the activity that it has opened.
class InertWindowsTest : public ::testing::Test {
protected:
    InertWindowsTest()
    {
        ShowAndActivate(menu_);
        activity_.setWindowModality(Qt::ApplicationModal);
        ShowAndActivate(activity_);
    }

    static void expectInFront(QWidget& window)
    {
        EXPECT_FALSE(window.isMinimized());
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    FormWindow menu_ { QStringLiteral("Menu"), QStringLiteral("Menú"), { 3000, 3000 }, {} };
    FormWindow activity_ { QStringLiteral("Activity"), QStringLiteral("Actividad"), { 3000, 3000 }, {} };
};

TEST_F(InertWindowsTest, BringBackTheMinimisedActivityAsLargeAsItWasWhenAPersonTurnsToThem)
{
    for (const auto state : { Qt::WindowNoState, Qt::WindowMaximized }) {
        activity_.setWindowState(state | Qt::WindowMinimized);
        ASSERT_TRUE(activity_.isMinimized());
        menu_.activateWindow();
        BringBackWindowBlocking(menu_);
        expectInFront(activity_);
        EXPECT_EQ(activity_.isMaximized(), state == Qt::WindowMaximized);
    }
}

// A box and the window it belongs to go together; some window managers minimise both, others only one of them.
TEST_F(InertWindowsTest, BringBackTheBoxThatIsOpenAndTheWindowThatItStandsOn)
{
    QMessageBox box(&activity_);
    box.setModal(true);
    ShowAndActivate(box);
    for (const auto& minimised : { std::vector<QWidget*> { &activity_ }, { &box }, { &activity_, &box } }) {
        for (const QWidget* turnedTo : { &menu_, &activity_ }) {
            for (QWidget* window : minimised) {
                window->showMinimized();
            }
            BringBackWindowBlocking(*turnedTo);
            EXPECT_FALSE(activity_.isMinimized());
            expectInFront(box);
        }
    }
}

TEST_F(InertWindowsTest, LeaveAMinimisedWindowWhenAPersonTurnsToItselfOrNothingIsInert)
{
    activity_.showMinimized();
    BringBackWindowBlocking(activity_);
    EXPECT_TRUE(activity_.isMinimized());
    activity_.hide();
    activity_.setWindowModality(Qt::NonModal);
    activity_.showMinimized();
    BringBackWindowBlocking(menu_);
    EXPECT_TRUE(activity_.isMinimized());
}

} // namespace

} // namespace numbrela
