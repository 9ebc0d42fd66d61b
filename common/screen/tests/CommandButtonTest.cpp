#include "common/screen/CommandButton.h"

#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

#include <set>
#include <utility>
#include <vector>

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

const std::pair<int, Qt::KeyboardModifiers> pressingKeys[]
    = { { Qt::Key_Return, {} }, { Qt::Key_Enter, Qt::KeypadModifier }, { Qt::Key_Space, {} } };

TEST_F(CommandButtonTest, AKeyPressesTheFocusedButtonExactlyOnceHoweverLongItIsHeldAndWhereverTheFocusGoesMeanwhile)
{
    int times = 0;
    for (const auto& [key, modifiers] : pressingKeys) {
        SCOPED_TRACE(key);
        for (QWidget* focused : { static_cast<QWidget*>(&box_), static_cast<QWidget*>(&next_) }) {
            focused->setFocus();
            HoldDown(key, modifiers);
            next_.setFocus();
            Repeat(key, modifiers);
            Repeat(key, modifiers);
            LetGo(key, modifiers);
            times += focused == &next_ ? 1 : 0;
            EXPECT_EQ(timesNext_, times);
        }
        Press(key, modifiers);
        EXPECT_EQ(timesNext_, ++times);
        EXPECT_EQ(timesDone_, 0);
    }
}

TEST_F(CommandButtonTest, NoKeyPressesADisabledButtonWhichGivesTheFocusAway)
{
    for (const auto& [key, modifiers] : pressingKeys) {
        next_.setFocus();
        next_.setEnabled(false);
        EXPECT_EQ(FocusName(), "Box");
        Press(key, modifiers);
        for (const auto type : { QEvent::KeyPress, QEvent::KeyRelease }) {
            QKeyEvent event(type, key, modifiers);
            QCoreApplication::sendEvent(&next_, &event);
        }
        EXPECT_EQ(timesNext_, 0);
        next_.setEnabled(true);
    }
}

TEST_F(CommandButtonTest, ADoubleClickPressesItOnce)
{
    QTest::mouseClick(&done_, Qt::RightButton);
    EXPECT_EQ(timesDone_, 0);
    QTest::mouseClick(&done_, Qt::LeftButton);
    EXPECT_EQ(timesDone_, 1);
    EXPECT_EQ(FocusName(), "Done");
    QTest::mouseDClick(&done_, Qt::LeftButton);
    QTest::mouseRelease(&done_, Qt::LeftButton);
    EXPECT_EQ(timesDone_, 1);
    EXPECT_FALSE(done_.isDown());
    QTest::mouseClick(&done_, Qt::LeftButton);
    EXPECT_EQ(timesDone_, 2);
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
    EXPECT_FALSE(done_.autoDefault()) << "nor by Enter from afar";
    EXPECT_FALSE(done_.isDefault());
}

TEST_F(CommandButtonTest, WritesItsCaptionInBlackOnItsColour)
{
    done_.SetBackColour(Qt::yellow);
    done_.SetBackColour(Qt::red);
    EXPECT_EQ(done_.BackColour(), QColor(Qt::red));
    for (const auto group : { QPalette::Active, QPalette::Inactive }) {
        EXPECT_EQ(done_.palette().color(group, QPalette::Button), QColor(Qt::red));
        EXPECT_EQ(done_.palette().color(group, QPalette::ButtonText), QColor(Qt::black));
    }
    EXPECT_EQ(next_.BackColour().name(), QApplication::palette().color(QPalette::Button).name());
}

// The ground beside the caption, from the upper edge to the lower one.
std::set<QRgb> groundOf(CommandButton& button)
{
    const QImage image = button.grab().toImage();
    constexpr int edge = 8; // the thickest, with the frame of the focus in it
    std::set<QRgb> colours;
    for (int y = edge; y < image.height() - edge; ++y) {
        colours.insert(image.pixel(edge + 1, y));
    }
    return colours;
}

TEST_F(CommandButtonTest, IsPaintedFlatInExactlyItsColourAndInGreyWhileItIsDisabled)
{
    const QColor grey = QApplication::palette().color(QPalette::Disabled, QPalette::Button);
    EXPECT_EQ(grey.saturation(), 0);
    for (const auto colour : { Qt::yellow, Qt::cyan, Qt::green, Qt::red, Qt::white, Qt::magenta }) {
        done_.SetBackColour(colour);
        EXPECT_EQ(groundOf(done_), std::set { QColor(colour).rgb() });
        done_.setFocus();
        EXPECT_EQ(groundOf(done_), std::set { QColor(colour).rgb() }) << "with the focus";
        box_.setFocus();
        done_.setEnabled(false);
        EXPECT_EQ(groundOf(done_), std::set { grey.rgb() });
        done_.setEnabled(true);
    }
    EXPECT_EQ(groundOf(next_), std::set { QApplication::palette().color(QPalette::Button).rgb() });
    done_.SetBackColour(Qt::cyan);
    done_.setDown(true);
    ASSERT_EQ(groundOf(done_).size(), 1U);
    const QColor down(*groundOf(done_).begin());
    EXPECT_LT(down.value(), QColor(Qt::cyan).value()) << "darker while it is down";
    EXPECT_EQ(down.hue(), QColor(Qt::cyan).hue());
}

// How many pixels of two pictures of equal size differ.
int differingPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += a.pixel(x, y) == b.pixel(x, y) ? 0 : 1;
        }
    }
    return count;
}

TEST_F(CommandButtonTest, LooksDifferentInEachOfItsStates)
{
    box_.setFocus();
    for (const QColor& colour : { QColor(Qt::red), QColor(Qt::green), QColor(Qt::white), next_.BackColour() }) {
        done_.SetBackColour(colour);
        std::vector<QImage> states;
        const auto picture = [&](bool underMouse, bool isDown, bool isDefault = false) {
            done_.setAttribute(Qt::WA_UnderMouse, underMouse);
            done_.setDown(isDown);
            done_.setDefault(isDefault);
            states.push_back(done_.grab().toImage());
        };
        picture(false, false);
        picture(true, false);
        picture(true, true);
        picture(false, false, true);
        done_.setFocus();
        picture(false, false);
        picture(false, true);
        box_.setFocus();
        done_.setEnabled(false);
        picture(false, false);
        done_.setEnabled(true);
        EXPECT_EQ(done_.grab().toImage(), states.front());

        const int oneLineAround = 2 * (done_.width() + done_.height()) - 8 * 3; // less what is round at the corners
        for (std::size_t i = 0; i < states.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_GT(differingPixels(states[i], states[j]), oneLineAround) << i << ' ' << j;
            }
        }
    }
}

// Whether the frame that tells of the focus is painted inside the edges, between two white lines.
bool showsFocus(CommandButton& button)
{
    const QImage image = button.grab().toImage();
    const QRgb frame = button.palette().color(QPalette::Highlight).rgb();
    const QRgb white = QColor(Qt::white).rgb();
    const std::vector<QRgb> wanted { white, frame, frame, white };
    std::vector<QRgb> fromTheTop;
    std::vector<QRgb> fromTheLeft;
    for (int inset = 1; inset <= 4; ++inset) {
        fromTheTop.push_back(image.pixel(image.width() / 2, inset));
        fromTheLeft.push_back(image.pixel(inset, image.height() / 2));
    }
    return fromTheTop == wanted && fromTheLeft == wanted;
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
