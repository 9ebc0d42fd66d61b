#include "common/screen/CommandButton.h"

#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

namespace numbrela {

namespace {

using namespace testing;

// A window with a text box and two buttons, and how often each has been pressed.
class CommandButtonTest : public ::testing::Test {
protected:
    CommandButtonTest()
    {
        QObject::connect(&done_, &QPushButton::clicked, &form_, [this] { ++timesDone_; });
        QObject::connect(&next_, &QPushButton::clicked, &form_, [this] { ++timesNext_; });
    }

    void SetUp() override { ShowAndActivate(form_); }

    FormWindow form_ { QStringLiteral("Form"), QStringLiteral("Form"), { 4500, 3000 }, {} };
    CommandButton& done_
        = *AddButton(form_.Area(), QStringLiteral("Done"), QStringLiteral("&Hecho"), { 300, 300, 1500, 495 }, {});
    CommandButton& next_
        = *AddButton(form_.Area(), QStringLiteral("Next"), QStringLiteral("&Continuar"), { 300, 900, 1500, 495 }, {});
    TextBox& box_ = *AddTextBox(form_.Area(), QStringLiteral("Box"), { 300, 1500, 1500, 495 }, {});
    int timesDone_ = 0;
    int timesNext_ = 0;
};

struct PressingKey {
    const char* Name;
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
};

class PressingKeyTest : public CommandButtonTest, public ::testing::WithParamInterface<PressingKey> { };

INSTANTIATE_TEST_SUITE_P(Keys, PressingKeyTest,
    ::testing::Values(PressingKey { "Enter", Qt::Key_Return, Qt::NoModifier },
        PressingKey { "KeypadEnter", Qt::Key_Enter, Qt::KeypadModifier },
        PressingKey { "Space", Qt::Key_Space, Qt::NoModifier }),
    [](const auto& row) { return row.param.Name; });

TEST_P(PressingKeyTest, PressesTheFocusedButtonExactlyOnce)
{
    next_.setFocus();
    Press(GetParam().Key, GetParam().Modifiers);
    EXPECT_EQ(timesNext_, 1);
    EXPECT_EQ(timesDone_, 0);
    Press(GetParam().Key, GetParam().Modifiers);
    EXPECT_EQ(timesNext_, 2);
    EXPECT_EQ(timesDone_, 0);
}

TEST_P(PressingKeyTest, PressesOnceHoweverLongItIsHeld)
{
    done_.setFocus();
    HoldDown(GetParam().Key, GetParam().Modifiers);
    Repeat(GetParam().Key, GetParam().Modifiers);
    Repeat(GetParam().Key, GetParam().Modifiers);
    LetGo(GetParam().Key, GetParam().Modifiers);
    EXPECT_EQ(timesDone_, 1);
}

TEST_P(PressingKeyTest, PressesNothingWhenItIsHeldFromAnotherControlOn)
{
    box_.setFocus();
    HoldDown(GetParam().Key, GetParam().Modifiers);
    next_.setFocus();
    Repeat(GetParam().Key, GetParam().Modifiers);
    Repeat(GetParam().Key, GetParam().Modifiers);
    LetGo(GetParam().Key, GetParam().Modifiers);
    EXPECT_EQ(timesNext_, 0);
    EXPECT_EQ(timesDone_, 0);
}

TEST_P(PressingKeyTest, PressesNoButtonWhenATextBoxHasTheFocus)
{
    box_.setFocus();
    Press(GetParam().Key, GetParam().Modifiers);
    EXPECT_EQ(timesNext_, 0);
    EXPECT_EQ(timesDone_, 0);
}

TEST_P(PressingKeyTest, DoesNotPressADisabledButton)
{
    done_.setEnabled(false);
    for (const auto type : { QEvent::KeyPress, QEvent::KeyRelease }) {
        QKeyEvent event(type, GetParam().Key, GetParam().Modifiers);
        QCoreApplication::sendEvent(&done_, &event);
    }
    EXPECT_EQ(timesDone_, 0);
}

TEST_F(CommandButtonTest, ADoubleClickPressesItOnce)
{
    QTest::mouseClick(&done_, Qt::LeftButton);
    QTest::mouseDClick(&done_, Qt::LeftButton);
    QTest::mouseRelease(&done_, Qt::LeftButton);
    EXPECT_EQ(timesDone_, 1);
    EXPECT_FALSE(done_.isDown());
    QTest::mouseClick(&done_, Qt::LeftButton);
    EXPECT_EQ(timesDone_, 2);
}

TEST_F(CommandButtonTest, GivesTheFocusAwayWhenItIsDisabled)
{
    next_.setFocus();
    next_.setEnabled(false);
    EXPECT_EQ(FocusName(), "Box");
    Press(Qt::Key_Return);
    EXPECT_EQ(timesNext_, 0);
}

TEST_F(CommandButtonTest, IsPressedByAClick)
{
    Click(form_, QStringLiteral("Done"));
    EXPECT_EQ(timesDone_, 1);
    EXPECT_EQ(FocusName(), "Done");
    QTest::mouseClick(&done_, Qt::RightButton);
    EXPECT_EQ(timesDone_, 1);
}

TEST_F(CommandButtonTest, IsPressedByItsAccessKeyFromAnywhere)
{
    box_.setFocus();
    Press(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(next_.isDown()) << "and comes up again a moment later";
    EXPECT_FALSE(done_.isDown());
    EXPECT_EQ(box_.Text(), "");
}

// A button that checks an answer would count a wrong one again and again.
TEST_F(CommandButtonTest, IsPressedOnceHoweverLongItsAccessKeyIsHeld)
{
    box_.setFocus();
    QSignalSpy pressed(&done_, &QPushButton::clicked);
    const auto keyDown = [this](bool repeated) {
        QTest::simulateEvent(form_.windowHandle(), true, Qt::Key_H, Qt::AltModifier, QStringLiteral("h"), repeated);
    };
    for (int time = 1; time <= 2; ++time) {
        keyDown(false);
        EXPECT_TRUE(pressed.wait()) << "it comes up again";
        keyDown(true);
        EXPECT_FALSE(done_.isDown());
        keyDown(true);
        EXPECT_FALSE(done_.isDown());
        QTest::simulateEvent(form_.windowHandle(), false, Qt::Key_H, Qt::AltModifier, QStringLiteral("h"), false);
        EXPECT_EQ(timesDone_, time);
    }
    EXPECT_EQ(box_.Text(), "");
}

TEST_F(CommandButtonTest, IsNotPressedByOtherKeys)
{
    done_.setFocus();
    for (const int key : { int { Qt::Key_Escape }, int { Qt::Key_H }, int { Qt::Key_5 }, int { Qt::Key_Backspace } }) {
        Press(key);
    }
    EXPECT_EQ(timesDone_, 0);
    EXPECT_EQ(timesNext_, 0);
    EXPECT_TRUE(form_.isVisible());
    EXPECT_EQ(FocusName(), "Done");
}

TEST_F(CommandButtonTest, IsNeverTheButtonThatEnterPressesFromAfar)
{
    EXPECT_FALSE(done_.autoDefault());
    EXPECT_FALSE(done_.isDefault());
}

TEST_F(CommandButtonTest, HasTheColourOfTheProgramUntilItIsGivenOne)
{
    EXPECT_EQ(done_.BackColour().name(), QApplication::palette().color(QPalette::Button).name());
}

TEST_F(CommandButtonTest, WritesItsCaptionInBlackOnItsColour)
{
    done_.SetBackColour(Qt::red);
    EXPECT_EQ(done_.BackColour(), QColor(Qt::red));
    for (const auto group : { QPalette::Active, QPalette::Inactive }) {
        EXPECT_EQ(done_.palette().color(group, QPalette::Button), QColor(Qt::red));
        EXPECT_EQ(done_.palette().color(group, QPalette::ButtonText), QColor(Qt::black));
    }
    EXPECT_EQ(next_.BackColour().name(), QApplication::palette().color(QPalette::Button).name());
}

TEST_F(CommandButtonTest, CanChangeItsColour)
{
    done_.SetBackColour(Qt::yellow);
    done_.SetBackColour(Qt::cyan);
    EXPECT_EQ(done_.BackColour(), QColor(Qt::cyan));
}

// The style shades a button from top to bottom, so that its hue is compared, beside the caption.
QColor groundOf(CommandButton& button)
{
    const QImage image = button.grab().toImage();
    return image.pixelColor(image.width() / 10, image.height() / 2);
}

TEST_F(CommandButtonTest, IsPaintedInItsColour)
{
    for (const auto colour : { Qt::yellow, Qt::cyan, Qt::green, Qt::red }) {
        done_.SetBackColour(colour);
        const QColor painted = groundOf(done_);
        EXPECT_NEAR(painted.hsvHue(), QColor(colour).hsvHue(), 2);
        EXPECT_GT(painted.hsvSaturation(), 100);
    }
}

TEST_F(CommandButtonTest, IsPaintedInGreyWhileItIsDisabled)
{
    done_.SetBackColour(Qt::red);
    done_.setEnabled(false);
    EXPECT_LT(groundOf(done_).hsvSaturation(), 20);
    done_.setEnabled(true);
    EXPECT_GT(groundOf(done_).hsvSaturation(), 100);
}

// Whether the frame that tells of the focus is painted inside the upper edge.
bool showsFocus(CommandButton& button)
{
    const QImage image = button.grab().toImage();
    const QColor frame = button.palette().color(QPalette::Highlight);
    return image.pixelColor(image.width() / 2, 3) == frame && image.pixelColor(3, image.height() / 2) == frame;
}

TEST_F(CommandButtonTest, ShowsThatItHasTheFocusHoweverItCame)
{
    done_.SetBackColour(Qt::yellow);
    box_.setFocus();
    EXPECT_FALSE(showsFocus(done_));
    done_.setFocus();
    EXPECT_TRUE(showsFocus(done_)) << "by the program";
    Press(Qt::Key_Tab);
    EXPECT_FALSE(showsFocus(done_));
    EXPECT_TRUE(showsFocus(next_)) << "by Tab";
    Click(form_, QStringLiteral("Done"));
    EXPECT_TRUE(showsFocus(done_)) << "by a click";
    EXPECT_FALSE(showsFocus(next_));
}

} // namespace

} // namespace numbrela
