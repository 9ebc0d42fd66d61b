#include "common/screen/Screens.h"

#include "common/screen/Boxes.h"
#include "common/screen/FormWindow.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QScreen>

namespace numbrela {

namespace {

using namespace testing;

// The screen of a test has always the same size. So a window is made too large for it, and the screen tells a change.
class ScreensTest : public ::testing::Test {
protected:
    void changeScreen() const { Q_EMIT screen_.availableGeometryChanged(room_); }

    void expectBackOntoScreen(QWidget& window) const
    {
        const QSize size = window.size();
        window.move(room_.bottomRight());
        changeScreen();
        EXPECT_EQ(window.frameGeometry().bottomRight(), room_.bottomRight());
        EXPECT_EQ(window.size(), size);
        window.resize(room_.size() * 2);
        changeScreen();
        EXPECT_TRUE(room_.contains(window.frameGeometry()));
        window.resize(size);
        window.move(room_.center());
        changeScreen();
        EXPECT_EQ(window.pos(), room_.center()) << "it has room where it is";
        EXPECT_EQ(window.size(), size);
    }

    QScreen& screen_ = *QApplication::primaryScreen();
    const QRect room_ = screen_.availableGeometry();
};

// As a page in a browser does when its tab or its device is turned.
TEST_F(ScreensTest, EveryWindowComesBackOntoAScreenThatHasBecomeTooSmall)
{
    FormWindow form(QStringLiteral("Form"), QStringLiteral("Form"), { 3000, 3000 }, {});
    ShowAndActivate(form);
    expectBackOntoScreen(form);
    const auto expectBoxBack = [this](QDialog& box) {
        expectBackOntoScreen(box);
        box.reject();
    };
    ExpectDialog(expectBoxBack);
    ShowMessage(&form, "Hola");
    ExpectDialog(expectBoxBack);
    AskText(&form, "Valor:", "Sumas");
    ExpectDialog(expectBoxBack);
    QDialog(&form).exec();
    EXPECT_EQ(PendingBoxes(), 0);
}

TEST_F(ScreensTest, AWindowThatCannotBeAsSmallShowsItsUpperLeftCorner)
{
    QWidget window;
    window.setFixedSize(room_.size() * 2);
    ShowAndActivate(window);
    window.move(room_.bottomRight());
    changeScreen();
    EXPECT_EQ(window.pos(), room_.topLeft());
}

TEST_F(ScreensTest, AHiddenWindowOneThatFillsTheScreenAndAnOpenMenuStayAsTheyAre)
{
    QWidget window;
    window.setMinimumSize(room_.size() * 2); // it would take another size at once
    ShowAndActivate(window);
    QMenu menu;
    menu.popup(room_.center());
    QWidget hidden;
    const QRect beyond(room_.bottomRight(), room_.size() * 2);
    menu.setGeometry(beyond);
    hidden.setGeometry(beyond);
    for (const auto state : { Qt::WindowMaximized, Qt::WindowFullScreen, Qt::WindowMinimized }) {
        window.setWindowState(state);
        QCoreApplication::processEvents();
        const QRect before = window.geometry();
        changeScreen();
        EXPECT_EQ(window.geometry(), before) << state;
    }
    EXPECT_EQ(menu.geometry(), beyond);
    EXPECT_EQ(hidden.geometry(), beyond);
}

TEST_F(ScreensTest, AScreenThatComesLaterIsWatchedToo)
{
    QObject::disconnect(&screen_, &QScreen::availableGeometryChanged, nullptr, nullptr); // as if it were not there yet
    Q_EMIT qApp->screenAdded(&screen_);
    QWidget window;
    ShowAndActivate(window);
    window.move(room_.bottomRight());
    changeScreen();
    EXPECT_TRUE(room_.contains(window.frameGeometry()));
}

} // namespace

} // namespace numbrela
