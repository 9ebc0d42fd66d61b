#include "common/screen/Fingers.h"

#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QDialogButtonBox>
#include <QMenu>
#include <QMenuBar>
#include <QPointingDevice>
#include <QTest>
#include <QTouchEvent>

#include <functional>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

// Two buttons, one under the other without a gap, two boxes of six digits below them, and a menu of one item.
class Form : public FormWindow {
public:
    Form()
        : FormWindow(QStringLiteral("Form"), QStringLiteral("Form"), { 4500, 3000 }, {})
    {
        Menu.addAction(QStringLiteral("Uno"), this, [this] { ++TimesChosen; });
        QObject::connect(&Done, &QPushButton::clicked, this, [this] { ++TimesDone; });
        QObject::connect(&Next, &QPushButton::clicked, this, [this] { ++TimesNext; });
        Box.SetText("123456");
        Other.SetText("123456");
        ShowAndActivate(*this);
    }

    using FormWindow::MenuBar;

    QMenu& Menu = *AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
    CommandButton& Done
        = *AddButton(Area(), QStringLiteral("Done"), QStringLiteral("&Hecho"), { 300, 300, 1500, 495 }, {});
    CommandButton& Next
        = *AddButton(Area(), QStringLiteral("Next"), QStringLiteral("&Continuar"), { 300, 795, 1500, 495 }, {});
    TextBox& Box
        = *AddTextBox(Area(), QStringLiteral("Box"), { 300, 1500, 1500, 495 }, { "Courier", 12 }, Qt::AlignLeft);
    TextBox& Other = *AddTextBox(Area(), QStringLiteral("Other"), { 300, 2100, 1500, 495 }, {});
    int TimesDone = 0;
    int TimesNext = 0;
    int TimesChosen = 0;
};

class FingersTest : public ::testing::Test {
protected:
    // A tap by itself, on the upper left corner of a control, wherever that seems to be on the screen.
    static void tapAt(QWidget& control, QPointF onScreen = {})
    {
        SendTouch(control, QEventPoint::Pressed, onScreen);
        SendTouch(control, QEventPoint::Released, onScreen);
        QCoreApplication::processEvents();
    }

    QPoint onGround() const { return { 5, form_.height() - 5 }; }

    const Pace pace_;
    Form form_;
    int timesBrought_ = 0;
};

// --- One finger ------------------------------------------------------------------------------------------------------

TEST_F(FingersTest, AFingerPressesAButtonAsAMouseDoesAndAgainAtOnceAfterOneThatWasDragged)
{
    pace_.TapQuickly();
    form_.Box.setFocus();
    FingerDown(form_.Done);
    EXPECT_TRUE(form_.Done.isDown());
    EXPECT_EQ(FocusName(), "Done");
    MoveFinger(form_.Done, { -20, 5 });
    EXPECT_FALSE(form_.Done.isDown());
    LiftFinger();
    EXPECT_EQ(form_.TimesDone, 0);
    FingerDown(form_.Done);
    MoveFinger(form_.Done, { -20, 5 });
    MoveFinger(form_.Done, { 5, 5 });
    EXPECT_TRUE(form_.Done.isDown());
    LiftFinger();
    EXPECT_EQ(form_.TimesDone, 1);
    EXPECT_FALSE(form_.Done.isDown());
    form_.Done.setEnabled(false);
    Tap(form_.Done);
    EXPECT_EQ(form_.TimesDone, 1);
}

TEST_F(FingersTest, OneThatThePanelTakesBackPressesNothing)
{
    FingerDown(form_.Done);
    TakeFingerBack(form_.Done);
    EXPECT_FALSE(form_.Done.isDown());
    LiftFinger();
    EXPECT_EQ(form_.TimesDone, 0);
}

TEST_F(FingersTest, OneThatIsDraggedHighlightsAndOneThatTremblesDoesNot)
{
    const QPoint start(5, form_.Box.height() / 2);
    DragByFinger(form_.Box, start, start + QPoint(8, 0));
    EXPECT_FALSE(form_.Box.hasSelectedText());
    DragByFinger(form_.Box, start, start + QPoint(60, 0));
    EXPECT_GE(form_.Box.selectedText().size(), 5);
    EXPECT_EQ(form_.Box.CaretPosition(), 0);
}

TEST_F(FingersTest, AMenuIsOpenedAndItsItemChosenByAFinger)
{
    QMenuBar& bar = *form_.MenuBar();
    Tap(bar, bar.actionGeometry(bar.actions().front()).center());
    ASSERT_EQ(QApplication::activePopupWidget(), &form_.Menu);
    Tap(form_.Menu, form_.Menu.actionGeometry(form_.Menu.actions().front()).center());
    EXPECT_EQ(form_.TimesChosen, 1);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

// When the program has been busy, fingers come down and up again before it goes on to anything else.
TEST_F(FingersTest, TapsThatComeTogetherCountEach)
{
    pace_.TapSlowly();
    for (int tap = 1; tap <= 2; ++tap) {
        SendTouch(form_.Done, QEventPoint::Pressed);
        SendTouch(form_.Done, QEventPoint::Released);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(form_.TimesDone, 2);
}

// Nobody would hear of the second one's end.
TEST_F(FingersTest, TapsThatComeTogetherLeaveNoButtonDownWhenTheFirstOpensAMessage)
{
    QObject::connect(&form_.Done, &QPushButton::clicked, &form_, [this] { ShowMessage(&form_, "Hola"); });
    ExpectDialog([](QDialog& box) { box.reject(); });
    SendTouch(form_.Done, QEventPoint::Pressed);
    SendTouch(form_.Done, QEventPoint::Released);
    SendTouch(form_.Next, QEventPoint::Pressed);
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(form_.TimesDone, 1);
    EXPECT_FALSE(form_.Next.isDown());
}

TEST_F(FingersTest, TheFirstTapInABoxThatATapHasOpenedCounts)
{
    QObject::connect(&form_.Done, &QPushButton::clicked, &form_, [this] { ShowMessage(&form_, "Hola"); });
    ExpectDialog([](QDialog& box) {
        auto& accept = *box.findChild<QDialogButtonBox*>()->buttons().front();
        Tap(accept);
        EXPECT_FALSE(box.isVisible());
        EXPECT_FALSE(accept.isDown());
        box.reject();
    });
    Tap(form_.Done);
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(form_.TimesDone, 1);
}

// The system makes a mouse of them.
TEST_F(FingersTest, ThoseOnATouchpadDoNotPressAnythingThemselves)
{
    static QPointingDevice* const touchpad = QTest::createTouchDevice(QInputDevice::DeviceType::TouchPad,
        QInputDevice::Capability::Position | QInputDevice::Capability::MouseEmulation);
    QTest::touchEvent(&form_.Done, touchpad).press(0, QPoint(5, 5));
    EXPECT_FALSE(form_.Done.isDown());
    QTest::touchEvent(&form_.Done, touchpad).release(0, QPoint(5, 5));
    EXPECT_EQ(form_.TimesDone, 0);
}

// --- Several fingers -------------------------------------------------------------------------------------------------

TEST_F(FingersTest, AButtonIsPressedWhileAnotherFingerHoldsOneWhicheverIsLiftedFirst)
{
    pace_.TapSlowly();
    form_.Next.setFocusPolicy(Qt::NoFocus); // as a key of the keypad: a button that loses the focus comes up
    for (const int lifted : { 0, 1 }) {
        FingerDown(form_.Done, 0);
        FingerDown(form_.Next, 1);
        EXPECT_TRUE(form_.Done.isDown() && form_.Next.isDown());
        LiftFinger(lifted);
        EXPECT_EQ(form_.Done.isDown(), lifted == 1);
        EXPECT_EQ(form_.Next.isDown(), lifted == 0);
        LiftFinger(1 - lifted);
        EXPECT_EQ(form_.TimesDone, lifted + 1);
        EXPECT_EQ(form_.TimesNext, lifted + 1);
    }
}

// The finger comes first, then the hand beside it, on which it rests from then on.
TEST_F(FingersTest, AFingerPressesAgainAndAgainWhileTheHandRestsOnTheWindow)
{
    pace_.TapSlowly();
    FingerDown(form_.Done, 0);
    FingerDown(form_, onGround(), 1);
    EXPECT_TRUE(form_.Done.isDown());
    LiftFinger(0);
    EXPECT_EQ(form_.TimesDone, 1);
    for (int times = 2; times <= 3; ++times) {
        FingerDown(form_.Done, 0);
        EXPECT_TRUE(form_.Done.isDown());
        LiftFinger(0);
        EXPECT_EQ(form_.TimesDone, times);
    }
    LiftFinger(1);
    EXPECT_EQ(form_.TimesDone, 3);
}

TEST_F(FingersTest, NoFingerThatComesLaterOnAControlCountsAsLongAsAnyIsDownThere)
{
    pace_.TapSlowly();
    FingerDown(form_.Done, 0);
    FingerDown(form_.Done, 1);
    LiftFinger(0);
    EXPECT_EQ(form_.TimesDone, 1);
    FingerDown(form_.Done, 0);
    EXPECT_FALSE(form_.Done.isDown());
    LiftFinger(0);
    LiftFinger(1);
    EXPECT_EQ(form_.TimesDone, 1);
}

// As can happen to one that comes down on a key of the keypad which has moved away under another one.
TEST_F(FingersTest, AButtonComesUpWhenQtTellsOnlyOfOtherFingersAnyMore)
{
    SendTouch(form_.Done, QEventPoint::Pressed);
    EXPECT_TRUE(form_.Done.isDown());
    QTouchEvent other(QEvent::TouchUpdate, nullptr, Qt::NoModifier, { QEventPoint(1, QEventPoint::Updated, {}, {}) });
    QCoreApplication::sendEvent(&form_.Done, &other);
    EXPECT_FALSE(form_.Done.isDown());
    EXPECT_EQ(form_.TimesDone, 0);
}

// --- Double taps -----------------------------------------------------------------------------------------------------

TEST_F(FingersTest, TapsInARowOnSeveralControlsPressEachButtonAndADoubleTapPressesItOnce)
{
    pace_.TapQuickly();
    QTest::mouseClick(&form_.Done, Qt::LeftButton);
    Tap(form_.Box);
    Tap(form_.Done);
    EXPECT_EQ(form_.TimesDone, 2);
    Tap(form_.Next);
    EXPECT_EQ(form_.TimesNext, 1);
    Tap(form_.Next);
    EXPECT_EQ(form_.TimesNext, 1);
    EXPECT_FALSE(form_.Next.isDown());
}

// As a hand's on a large button may be.
TEST_F(FingersTest, ADoubleTapAtTwoPlacesOfAButtonPressesItOnce)
{
    pace_.TapQuickly();
    Tap(form_.Done, { 5, 5 });
    Tap(form_.Done, { form_.Done.width() - 5, 5 });
    EXPECT_EQ(form_.TimesDone, 1);
}

TEST_F(FingersTest, FastTapsOnNeighboursCountEachAlsoAtTheirEdges)
{
    pace_.TapQuickly();
    CommandButton& beside
        = *AddButton(form_.Area(), QStringLiteral("Beside"), QStringLiteral("Otro"), { 1800, 300, 1500, 495 }, {});
    beside.show();
    QCoreApplication::processEvents();
    QObject::connect(&beside, &QPushButton::clicked, &form_, [this] { ++timesBrought_; });
    Tap(form_.Done);
    Tap(beside, { 0, beside.height() / 2 });
    EXPECT_EQ(timesBrought_, 1);
    Tap(form_.Done);
    Tap(form_.Next, { form_.Next.width() / 2, 0 });
    EXPECT_EQ(form_.TimesNext, 1);
}

TEST_F(FingersTest, FastTapsOnTwoBoxesOrAtTwoPlacesMoveTheCaretAndOnlyADoubleTapHighlights)
{
    pace_.TapQuickly();
    TextBox& box = form_.Box;
    Tap(form_.Other, { box.width() - 5, box.height() / 2 });
    Tap(box, { box.width() - 5, box.height() / 2 });
    EXPECT_EQ(box.CaretPosition(), 6);
    Tap(box, { 5, box.height() / 2 });
    EXPECT_EQ(box.CaretPosition(), 0);
    EXPECT_FALSE(box.hasSelectedText());
    Tap(box, { 5, box.height() / 2 });
    EXPECT_EQ(box.selectedText().toStdString(), "123456");
}

// Although Qt sends what a double click sends.
TEST_F(FingersTest, ATapThatComesLateHighlightsNothing)
{
    const QPoint place(5, form_.Box.height() / 2);
    SendPen(QEvent::MouseButtonPress, form_.Box, place);
    SendPen(QEvent::MouseButtonRelease, form_.Box, place);
    SendPen(QEvent::MouseButtonDblClick, form_.Box, place, Qt::LeftButton,
        static_cast<quint64>(QApplication::doubleClickInterval()));
    EXPECT_FALSE(form_.Box.hasSelectedText());
}

TEST_F(FingersTest, ADoubleTapOfAFingerOrAPenPressesNothingThatItsFirstTapBringsThere)
{
    const std::pair<const char*, std::function<void(QWidget&)>> taps[] = {
        { "a finger", [](QWidget& control) { Tap(control); } },
        { "a pen", [](QWidget& control) { TapByPen(control, control.rect().center()); } },
    };
    int times = 0;
    for (const auto& [hand, tap] : taps) {
        SCOPED_TRACE(hand);
        pace_.TapQuickly();
        form_.Done.show();
        QPushButton brought(QStringLiteral("Aceptar"), form_.Done.parentWidget());
        QObject::connect(&brought, &QPushButton::clicked, &form_, [this] { ++timesBrought_; });
        brought.setGeometry(form_.Done.geometry());
        QObject::connect(&form_.Done, &QPushButton::clicked, &brought, [this, &brought] {
            form_.Done.hide();
            brought.show();
        });
        tap(form_.Done);
        EXPECT_EQ(form_.TimesDone, ++times);
        ASSERT_TRUE(brought.isVisible());
        tap(brought);
        EXPECT_EQ(timesBrought_, times - 1);
        EXPECT_FALSE(brought.isDown());
        tap(brought);
        EXPECT_EQ(timesBrought_, times);
    }
}

// As a button of the menu does, and one that a message answers.
TEST_F(FingersTest, ADoubleTapPressesNothingInAWindowThatItsFirstTapOpens)
{
    pace_.TapQuickly();
    QWidget opened;
    QPushButton there(QStringLiteral("Aceptar"), &opened);
    QObject::connect(&there, &QPushButton::clicked, &opened, [this] { ++timesBrought_; });
    QObject::connect(&form_.Done, &QPushButton::clicked, &opened, &QWidget::show);
    const QPointF place = form_.Done.mapToGlobal(QPointF(5, 5));
    tapAt(form_.Done, place);
    ASSERT_TRUE(opened.isVisible());
    tapAt(there, place);
    EXPECT_EQ(timesBrought_, 0);
    EXPECT_FALSE(there.isDown());
    tapAt(there, place);
    EXPECT_EQ(timesBrought_, 1);
}

TEST_F(FingersTest, ADoubleTapOnAMenuPressesNothingThatWasUnderIt)
{
    pace_.TapQuickly();
    QMenu menu;
    menu.addAction(QStringLiteral("Uno"));
    menu.popup(form_.Done.mapToGlobal(QPoint(5, 5)));
    const QPoint item = menu.actionGeometry(menu.actions().front()).center();
    const QPoint under = form_.Done.mapFromGlobal(menu.mapToGlobal(item));
    ASSERT_TRUE(form_.Done.rect().contains(under));
    TapByPen(menu, item); // of which Qt makes the mouse of a finger on a menu, too
    ASSERT_EQ(QApplication::activePopupWidget(), nullptr);
    tapAt(form_.Done, form_.Done.mapToGlobal(QPointF(under)));
    EXPECT_EQ(form_.TimesDone, 0);
    tapAt(form_.Done, form_.Done.mapToGlobal(QPointF(under)));
    EXPECT_EQ(form_.TimesDone, 1);
}

TEST_F(FingersTest, ATapAfterOneWithAPensOtherButtonIsNoDoubleTap)
{
    pace_.TapQuickly();
    TapByPen(form_.Done, { 5, 5 }, Qt::RightButton);
    EXPECT_EQ(form_.TimesDone, 0);
    TapByPen(form_.Done, { 5, 5 });
    EXPECT_EQ(form_.TimesDone, 1);
}

} // namespace

} // namespace numbrela
