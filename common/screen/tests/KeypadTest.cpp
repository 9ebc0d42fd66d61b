#include "common/screen/Keypad.h"

#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/Keyboard.h"
#include "common/screen/KeypadSwitch.h"
#include "common/screen/TextBox.h"
#include "common/screen/TwipsLayout.h"
#include "common/screen/WindowKeypad.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace numbrela {

namespace {

using namespace testing;

constexpr TwipsSize portrait { 4875, 7695 }; // 325 by 513 pixels

Keypad* padIn(const QWidget& window)
{
    return window.findChild<Keypad*>(QString(), Qt::FindDirectChildrenOnly);
}

// An answer that is written from its last digit to its first, a box that only shows, and a button below them.
class Exercise : public FormWindow {
public:
    explicit Exercise(TwipsSize area = portrait, KeypadKeys keys = KeypadKeys::WithBlank)
        : FormWindow(QStringLiteral("Form9"), QStringLiteral("PRUEBAS"), area, {})
    {
        Answer = AddTextBox(Area(), QStringLiteral("Answer"), { 500, 2000, 3500, 495 }, {}, Qt::AlignRight);
        Answer->setAccessibleName(QStringLiteral("Resultado"));
        HandleKeys(*Answer,
            {
                .KeyDown =
                    [this](const Key& key) {
                        Pressed.push_back(key.Code);
                        Repeats += key.Repeated ? 1 : 0;
                        return KeyAnswer::GoesOn();
                    },
                .KeyUp =
                    [this](int code) {
                        Released.push_back(code);
                        if (WritesDigitOrComma(code)) {
                            Answer->StepCaretLeft();
                        }
                    },
            });
        Operand = AddReadOnlyBox(
            Area(), QStringLiteral("Operand"), QStringLiteral("Sumando"), { 500, 1000, 3500, 495 }, {});
        Done = AddButton(Area(), QStringLiteral("Done"), QStringLiteral("&Hecho"), { 500, 3000, 1500, 495 }, {});
        QObject::connect(Done, &QPushButton::clicked, this, [this] { ++Clicks; });
        AddMenuItem(AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones")), QStringLiteral("MnuOpcUno"),
            QStringLiteral("&Uno"), [this] { ++Clicks; });
        OfferKeypad(keys);
    }

    using FormWindow::MenuBar;

    KeypadSwitch& Switch() const { return *findChild<KeypadSwitch*>(QString(), Qt::FindDirectChildrenOnly); }
    QWidget* Pad() const { return padIn(*this); }
    bool ShowsPad() const { return Pad() != nullptr && Pad()->isVisible(); }
    QAbstractButton& KeyNamed(const QString& name) const
    {
        return Find<QAbstractButton>(*this, QStringLiteral("Tecla(%1)").arg(name));
    }
    void PressKeys(const QStringList& names) const
    {
        for (const QString& name : names) {
            ClickOnScreen(KeyNamed(name));
        }
    }

    TextBox* Answer = nullptr;
    TextBox* Operand = nullptr;
    CommandButton* Done = nullptr;
    std::vector<int> Pressed;
    std::vector<int> Released;
    int Repeats = 0;
    int Clicks = 0;
};

// With the mouse, whose button stays down.
void pressAndHold(const QWidget& control)
{
    QTest::mousePress(
        control.window()->windowHandle(), Qt::LeftButton, {}, control.mapTo(control.window(), control.rect().center()));
}

QRect onScreen(const QWidget& control)
{
    return { control.mapToGlobal(QPoint()), control.size() };
}

// Whether something touches the keypad, or is nearer to it than it may be.
bool isNear(const QWidget& pad, const QWidget& control)
{
    constexpr QMargins around(AroundKeypad, AroundKeypad, AroundKeypad, AroundKeypad);
    return onScreen(pad).marginsAdded(around).intersects(onScreen(control));
}

class KeypadTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ShowAndActivate(form_);
        form_.Answer->setFocus();
    }

    void showPad() const { ClickOnScreen(form_.Switch()); }

    Exercise form_;
};

// --- The button ------------------------------------------------------------------------------------------------------

TEST_F(KeypadTest, AButtonAtTheRightEndOfTheMenuBarShowsItAndHidesItAndLeavesTheFocusWhereItIs)
{
    const QAbstractButton& button = form_.Switch();
    EXPECT_EQ(button.height(), form_.MenuBar()->height());
    EXPECT_GE(button.width(), 2 * button.height());
    EXPECT_EQ(button.geometry().bottomRight(), form_.MenuBar()->geometry().bottomRight());
    EXPECT_EQ(button.toolTip().toStdString(), "Teclado en pantalla");
    EXPECT_EQ(form_.Pad(), nullptr);
    ClickOnScreen(button);
    EXPECT_TRUE(form_.ShowsPad());
    EXPECT_TRUE(form_.Answer->hasFocus());
    ClickOnScreen(button);
    EXPECT_FALSE(form_.ShowsPad());
    EXPECT_TRUE(form_.Answer->hasFocus());
}

TEST_F(KeypadTest, TheButtonIsSpokenWithItsStateAndIsPressedByAssistiveToolsToo)
{
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&form_.Switch());
    EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), "Teclado en pantalla");
    EXPECT_GE(QAccessible::queryAccessibleInterface(&form_)->indexOfChild(spoken), 0);
    EXPECT_TRUE(spoken->state().checkable);
    EXPECT_FALSE(spoken->state().checked);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(spoken->state().checked);
    EXPECT_TRUE(form_.ShowsPad());
    QAccessibleInterface* keypad = QAccessible::queryAccessibleInterface(form_.Pad());
    EXPECT_EQ(keypad->role(), QAccessible::Grouping);
    EXPECT_EQ(keypad->text(QAccessible::Name).toStdString(), "Teclado en pantalla");
}

TEST(KeypadSwitchTest, TheMenuBarIsNoHigherThanWithoutIt)
{
    for (const int width : { 325, 800, 1920 }) {
        Exercise form;
        form.resize(width, width);
        ShowAndActivate(form);
        const int with = form.MenuBar()->height();
        form.MenuBar()->setCornerWidget(nullptr);
        EXPECT_EQ(with, form.MenuBar()->heightForWidth(width)) << width;
    }
}

// How much of the drawing on the button is light, from 0 to 1.
double lightShareOf(QWidget& button)
{
    const QImage picture = button.grab().toImage();
    const QRect middle(picture.width() / 4, picture.height() / 4, picture.width() / 2, picture.height() / 2);
    int light = 0;
    for (int y = middle.top(); y <= middle.bottom(); ++y) {
        for (int x = middle.left(); x <= middle.right(); ++x) {
            light += picture.pixelColor(x, y).lightness() >= 128 ? 1 : 0;
        }
    }
    return static_cast<double>(light) / (middle.width() * middle.height());
}

TEST_F(KeypadTest, TheKeysOnTheButtonTakeTheSameShareOfItHoweverLargeItIs)
{
    for (const QSize size : { form_.size(), QSize(800, 480), QSize(1280, 800), QSize(1920, 1080), QSize(3840, 2160) }) {
        form_.resize(size);
        const double unlit = lightShareOf(form_.Switch());
        EXPECT_GT(unlit, 0.4) << size.width();
        EXPECT_LT(unlit, 0.8) << size.width();
        showPad();
        const double lit = lightShareOf(form_.Switch());
        EXPECT_LT(lit, 0.6) << size.width();
        EXPECT_GT(lit, 0.2) << size.width();
        showPad();
    }
}

TEST_F(KeypadTest, WhatWasChosenLastHoldsForTheWindowsThatAreOpenedFromThisOneAndForThisOneAgain)
{
    for (const bool isShown : { true, false }) { // this one has never had a keypad before
        Exercise next;
        next.OpenLike(form_);
        ShowAndActivate(next);
        QCoreApplication::processEvents(); // this window has been laid out, too
        EXPECT_EQ(next.ShowsPad(), !isShown);
        EXPECT_EQ(next.Switch().isChecked(), !isShown);
        ClickOnScreen(next.Switch());
        next.close();
        form_.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return form_.ShowsPad() == isShown; }));
        EXPECT_EQ(form_.Switch().isChecked(), isShown);
    }
    showPad();
    Exercise stranger;
    ShowAndActivate(stranger);
    EXPECT_FALSE(stranger.ShowsPad());
}

TEST_F(KeypadTest, WhereNothingTakesTypingThereIsNoneAndItComesWithTheBox)
{
    showPad();
    form_.Answer->hide();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form_.ShowsPad(); }));
    EXPECT_FALSE(form_.Switch().isChecked());
    form_.Answer->show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form_.ShowsPad(); }));
    EXPECT_TRUE(form_.Switch().isChecked());
}

// It may be wanted for an input box that the window is going to open.
TEST_F(KeypadTest, TheButtonShowsItEvenWhereNothingTakesTypingUntilABoxHasComeAndGone)
{
    form_.Answer->hide();
    showPad();
    EXPECT_TRUE(form_.ShowsPad());
    form_.Answer->show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(form_.ShowsPad());
    form_.Answer->hide();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form_.ShowsPad(); }));
    showPad();
    showPad();
    EXPECT_FALSE(form_.ShowsPad());
}

// --- Fingers and pens ------------------------------------------------------------------------------------------------

TEST_F(KeypadTest, AFingerOnABoxThatTakesTypingShowsIt)
{
    Tap(*form_.Answer);
    EXPECT_TRUE(form_.ShowsPad());
    EXPECT_TRUE(form_.Switch().isChecked());
    EXPECT_TRUE(form_.Answer->hasFocus());
}

TEST_F(KeypadTest, AFingerOnABoxShowsItWhateverOthersDoMeanwhile)
{
    FingerDown(*form_.Answer, 0);
    FingerDown(*form_.Done, 1);
    LiftFinger(1);
    EXPECT_FALSE(form_.ShowsPad());
    LiftFinger(0);
    EXPECT_TRUE(form_.ShowsPad());
}

TEST_F(KeypadTest, TheSecondTapOfADoubleTapOnABoxShowsItToo)
{
    Tap(*form_.Answer);
    ClickOnScreen(form_.Switch());
    ASSERT_FALSE(form_.ShowsPad());
    Tap(*form_.Answer);
    EXPECT_TRUE(form_.ShowsPad());
}

TEST_F(KeypadTest, AFingerThatSlidesOffABoxOrIsTakenBackByThePanelDoesNotShowIt)
{
    FingerDown(*form_.Answer);
    MoveFinger(*form_.Answer, { 5, -40 });
    LiftFinger();
    EXPECT_FALSE(form_.ShowsPad());
    FingerDown(*form_.Answer);
    TakeFingerBack(*form_.Answer);
    LiftFinger();
    EXPECT_FALSE(form_.ShowsPad());
}

TEST_F(KeypadTest, APenOnABoxThatTakesTypingShowsIt)
{
    TapByPen(*form_.Answer, form_.Answer->rect().center());
    EXPECT_TRUE(form_.ShowsPad());
}

// The calculation moves aside for it, but not from under the finger.
TEST_F(KeypadTest, TheTapThatShowsItReachesTheBoxThatItWasMeantFor)
{
    form_.resize(700, 800);
    TextBox* other = AddTextBox(form_.Area(), QStringLiteral("Other"), { 500, 5000, 3500, 495 }, {}, Qt::AlignRight);
    other->SetText("12345");
    other->show();
    QCoreApplication::processEvents();
    const int before = other->x();
    Tap(*other, QPoint(other->width() - 5, other->height() / 2));
    EXPECT_TRUE(form_.ShowsPad());
    EXPECT_LT(other->x(), before - 5);
    EXPECT_TRUE(other->hasFocus());
    EXPECT_EQ(other->CaretPosition(), 5);
    EXPECT_EQ(other->selectedText(), QString());
    EXPECT_EQ(form_.Pressed, std::vector<int>());
}

TEST_F(KeypadTest, AFingerOnABoxOfAnotherWindowShowsItThereAlone)
{
    Exercise other;
    ShowAndActivate(other);
    Tap(*other.Answer);
    EXPECT_TRUE(other.ShowsPad());
    EXPECT_FALSE(form_.ShowsPad());
}

TEST_F(KeypadTest, NothingElseShowsIt)
{
    Tap(*form_.Operand);
    Tap(*form_.Done);
    Tap(form_, QPoint(5, form_.height() - 5));
    ClickOnScreen(*form_.Answer);
    form_.Answer->setContextMenuPolicy(Qt::NoContextMenu);
    TapByPen(*form_.Answer, form_.Answer->rect().center(), Qt::RightButton);
    Press(Qt::Key_1);
    Press(Qt::Key_Tab);
    EXPECT_EQ(form_.Clicks, 1);
    EXPECT_FALSE(form_.ShowsPad());
    EXPECT_FALSE(form_.Switch().isChecked());
}

TEST_F(KeypadTest, AFingerOnABoxBesideAnOpenMenuOnlyClosesTheMenu)
{
    QMenuBar& bar = *form_.MenuBar();
    Tap(bar, bar.actionGeometry(bar.actions().front()).center());
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    Tap(*form_.Answer);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_FALSE(form_.ShowsPad());
}

TEST_F(KeypadTest, TwoFingersPressTwoKeysAtATime)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("4")), 1);
    FingerDown(form_.KeyNamed(QStringLiteral("2")), 2);
    EXPECT_EQ(form_.Released, std::vector<int>());
    FingerUp(form_.KeyNamed(QStringLiteral("4")), 1);
    FingerUp(form_.KeyNamed(QStringLiteral("2")), 2);
    EXPECT_EQ(form_.Pressed, std::vector<int>({ '4', '2' }));
    EXPECT_EQ(form_.Released, std::vector<int>({ '4', '2' }));
    EXPECT_TRUE(form_.Answer->hasFocus());
}

TEST_F(KeypadTest, AKeyComesUpWhenThePanelTakesTheFingerBack)
{
    showPad();
    QAbstractButton& five = form_.KeyNamed(QStringLiteral("5"));
    FingerDown(five);
    TakeFingerBack(five);
    EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
    EXPECT_FALSE(five.isDown());
    FingerUp(five);
    EXPECT_EQ(form_.Released.size(), 1U);
}

// --- The keys --------------------------------------------------------------------------------------------------------

TEST_F(KeypadTest, HasTheKeysThatItsWindowHasAUseForAndNoneToHaveTheAnswerChecked)
{
    const auto names = [](KeypadKeys keys) {
        const Keypad pad(keys, nullptr);
        QStringList all;
        for (const QAbstractButton* key : pad.findChildren<QAbstractButton*>()) {
            all << key->accessibleName();
        }
        return all.join(u' ').toStdString();
    };
    const std::string numbers = "7 8 9 4 5 6 1 2 3 Coma 0 Borrar cifra";
    EXPECT_EQ(names(KeypadKeys::Numbers), numbers);
    EXPECT_EQ(names(KeypadKeys::WithBlank), numbers + " Espacio");
    EXPECT_EQ(names(KeypadKeys::WithBlankAndArrows),
        numbers + " Espacio Flecha arriba Flecha izquierda Flecha abajo Flecha derecha");
}

// In pixels, what is darker than the paper.
QRect inkOf(QWidget& key)
{
    const QImage picture = key.grab().toImage();
    QRect ink;
    for (int y = picture.height() / 8; y < picture.height() * 7 / 8; ++y) {
        for (int x = picture.width() / 8; x < picture.width() * 7 / 8; ++x) {
            if (picture.pixelColor(x, y).lightness() < 128) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return { ink.topLeft() / picture.devicePixelRatio(), ink.size() / picture.devicePixelRatio() };
}

TEST_F(KeypadTest, TheCommaIsInTheMiddleOfItsKeyAndHalfAsHighAsADigit)
{
    showPad();
    QWidget& key = form_.KeyNamed(QStringLiteral("Coma"));
    const QRect comma = inkOf(key);
    EXPECT_GE(2 * comma.height(), inkOf(form_.KeyNamed(QStringLiteral("8"))).height());
    EXPECT_NEAR(comma.center().y(), key.rect().center().y(), 2);
}

TEST_F(KeypadTest, ItsKeysHaveTheCodesOfAKeyboards)
{
    Exercise form(portrait, KeypadKeys::WithBlankAndArrows);
    ShowAndActivate(form);
    form.resize(1280, 800);
    form.Answer->setFocus();
    ClickOnScreen(form.Switch());
    form.PressKeys({ QStringLiteral("0"), QStringLiteral("9"), QStringLiteral("Coma"), QStringLiteral("Espacio"),
        QStringLiteral("Flecha arriba"), QStringLiteral("Flecha izquierda"), QStringLiteral("Flecha abajo"),
        QStringLiteral("Flecha derecha") });
    const std::vector<int> codes { '0', '9', KeyCode::Comma, KeyCode::Space, KeyCode::Up, KeyCode::Left, KeyCode::Down,
        KeyCode::Right };
    EXPECT_EQ(form.Pressed, codes);
    EXPECT_EQ(form.Released, codes);
    EXPECT_TRUE(form.Answer->hasFocus());
}

TEST_F(KeypadTest, TheCaretStepsWhenTheKeyIsReleased)
{
    showPad();
    const QAbstractButton& five = form_.KeyNamed(QStringLiteral("5"));
    QTest::mousePress(form_.windowHandle(), Qt::LeftButton, {}, five.mapTo(&form_, five.rect().center()));
    EXPECT_EQ(form_.Answer->Text(), "5");
    EXPECT_EQ(form_.Answer->CaretPosition(), 1);
    QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton, {}, five.mapTo(&form_, five.rect().center()));
    EXPECT_EQ(form_.Answer->CaretPosition(), 0);
    form_.PressKeys({ QStringLiteral("7"), QStringLiteral("Coma"), QStringLiteral("1"), QStringLiteral("1") });
    EXPECT_EQ(form_.Answer->Text(), "11,75");
}

TEST_F(KeypadTest, AHeldKeyRepeatsItselfAndIsReleasedOnce)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return form_.Repeats >= 2; }));
    EXPECT_EQ(form_.Released.size(), 0U);
    FingerUp(form_.KeyNamed(QStringLiteral("5")));
    EXPECT_EQ(form_.Released.size(), 1U);
    EXPECT_EQ(form_.Answer->Text(), std::string(form_.Pressed.size(), '5'));
}

TEST_F(KeypadTest, AKeyThatIsHeldWhenTheKeypadGoesIsReleased)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")));
    form_.Answer->hide();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form_.ShowsPad(); }));
    EXPECT_FALSE(form_.KeyNamed(QStringLiteral("5")).isDown());
    FingerUp(form_);
    form_.Answer->show();
    form_.Answer->setFocus();
    form_.Repeats = 0;
    Press(Qt::Key_5); // of the keyboard, which is no repetition
    EXPECT_EQ(form_.Repeats, 0);
}

// A box or another program may come while a finger still lies on the key.
TEST_F(KeypadTest, AKeyThatIsHeldWhenAnInputBoxOpensIsReleasedThen)
{
    showPad();
    pressAndHold(form_.KeyNamed(QStringLiteral("5")));
    ExpectDialog([this](QDialog& box) {
        EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
        EXPECT_EQ(form_.Answer->CaretPosition(), 0);
        QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton);
        box.reject();
    });
    AskText(&form_, "Introduzca el nuevo valor:", "Sumas");
    EXPECT_FALSE(form_.KeyNamed(QStringLiteral("5")).isDown());
    EXPECT_EQ(form_.Released.size(), 1U);
    form_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
    form_.PressKeys({ QStringLiteral("5") });
    EXPECT_EQ(form_.Repeats, 0);
    EXPECT_EQ(form_.Answer->Text(), "55");
}

// Two hands write faster than one.
TEST_F(KeypadTest, AButtonHearsAFingerWhileAnotherOneHoldsAKey)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")), 0);
    FingerDown(*form_.Done, 1);
    EXPECT_TRUE(form_.Done->isDown());
    FingerUp(*form_.Done, 1);
    EXPECT_EQ(form_.Clicks, 1);
    FingerUp(form_.KeyNamed(QStringLiteral("5")), 0);
    EXPECT_EQ(form_.Answer->Text(), "5");
}

TEST_F(KeypadTest, ABoxHearsAFingerWhileAnotherOneHoldsAKey)
{
    TextBox* other = AddTextBox(form_.Area(), QStringLiteral("Other"), { 500, 200, 3500, 495 }, {});
    other->SetText("123456");
    other->show();
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")), 0);
    FingerDown(*other, { 5, other->height() / 2 }, 1);
    LiftFinger(1);
    EXPECT_TRUE(other->hasFocus());
    EXPECT_EQ(other->CaretPosition(), 0);
    LiftFinger(0);
    form_.PressKeys({ QStringLiteral("7") });
    EXPECT_EQ(form_.Answer->Text(), "5");
    EXPECT_EQ(other->Text(), "7123456");
}

TEST_F(KeypadTest, AFingerThatRestsOnTheBoxDisturbsNoOtherThatWritesThere)
{
    showPad();
    FingerDown(*form_.Answer, 0);
    for (const char* key : { "5", "7" }) {
        FingerDown(form_.KeyNamed(QString::fromLatin1(key)), 1);
        MoveFinger(*form_.Answer, form_.Answer->rect().center() + QPoint(1, 0), 0);
        LiftFinger(1);
    }
    LiftFinger(0);
    EXPECT_EQ(form_.Answer->Text(), "75");
    EXPECT_TRUE(form_.ShowsPad());
}

TEST_F(KeypadTest, AKeyThatIsHeldWhenAnotherWindowTakesTheFocusIsReleasedThen)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")));
    Exercise other;
    ShowAndActivate(other);
    EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
    EXPECT_EQ(form_.Answer->CaretPosition(), 0);
    FingerUp(form_.KeyNamed(QStringLiteral("5")));
    EXPECT_EQ(form_.Released.size(), 1U);
}

// Not every window manager gives a window the focus before the press.
TEST_F(KeypadTest, AKeyThatIsHeldWhenItsOwnWindowGetsTheFocusIsReleasedThen)
{
    showPad();
    Exercise other;
    ShowAndActivate(other);
    other.close();
    ASSERT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    pressAndHold(form_.KeyNamed(QStringLiteral("5")));
    form_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
    EXPECT_EQ(form_.Answer->Text(), "5");
    EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
    EXPECT_EQ(form_.Answer->CaretPosition(), 0);
    QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton);
    EXPECT_EQ(form_.Released.size(), 1U);
}

// It becomes active before its window gets the focus.
TEST_F(KeypadTest, AKeyThatIsHeldWhenTheProgramBecomesActiveOrInactiveIsReleasedThen)
{
    showPad();
    for (const auto state : { Qt::ApplicationInactive, Qt::ApplicationActive }) {
        form_.Released.clear();
        FingerDown(form_.KeyNamed(QStringLiteral("5")));
        QApplicationStateChangeEvent change(state);
        QCoreApplication::sendEvent(qApp, &change);
        EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
        FingerUp(form_.KeyNamed(QStringLiteral("5")));
        EXPECT_EQ(form_.Released.size(), 1U);
    }
}

// What Qt then keeps from the key would leave it down, repeating itself for ever.
TEST_F(KeypadTest, AKeyThatIsHeldByTheMouseComesUpWhenAFingerHasTappedElsewhere)
{
    showPad();
    pressAndHold(form_.KeyNamed(QStringLiteral("5")));
    Tap(form_, QPoint(5, form_.height() - 5));
    QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton);
    EXPECT_FALSE(form_.KeyNamed(QStringLiteral("5")).isDown());
    EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
}

TEST_F(KeypadTest, AKeyThatIsHeldByAFingerComesUpWhenAMenuOpens)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")));
    QMenu menu;
    menu.popup({ 0, 0 });
    EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
    FingerUp(form_.KeyNamed(QStringLiteral("5")));
    menu.close();
    EXPECT_FALSE(form_.KeyNamed(QStringLiteral("5")).isDown());
    EXPECT_EQ(form_.Released.size(), 1U);
}

TEST_F(KeypadTest, AToolTipLeavesAHeldKeyDown)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")));
    QWidget toolTip(nullptr, Qt::ToolTip);
    toolTip.show();
    EXPECT_TRUE(form_.Released.empty());
    LiftFinger();
    EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
}

TEST_F(KeypadTest, AMouseOrAFingerThatSlidesOffAKeyLetsItComeUpForGood)
{
    showPad();
    const QAbstractButton& five = form_.KeyNamed(QStringLiteral("5"));
    const QPoint off(-200, five.height() / 2);
    pressAndHold(five);
    for (const QPoint to : { off, five.rect().center() }) {
        const QPointF at = five.mapTo(&form_, to);
        QMouseEvent move(QEvent::MouseMove, at, at, form_.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(form_.windowHandle(), &move);
        EXPECT_FALSE(five.isDown());
    }
    QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton, {}, five.mapTo(&form_, five.rect().center()));
    EXPECT_EQ(form_.Pressed.size(), 1U);

    FingerDown(five);
    MoveFinger(five, off);
    EXPECT_FALSE(five.isDown());
    EXPECT_EQ(form_.Released, std::vector<int>({ '5', '5' }));
    FingerUp(five);
    EXPECT_EQ(form_.Released.size(), 2U);
}

// What was typed last is behind the caret in an answer that is written from the right, and before it in any other.
TEST_F(KeypadTest, TheEraserTakesAwayWhatWasTypedLast)
{
    showPad();
    form_.Answer->SetText("34");
    form_.Answer->SetCaretPosition(0); // in front of what was not written from the right
    form_.PressKeys({ QStringLiteral("Borrar cifra") });
    EXPECT_EQ(form_.Answer->Text(), "34");
    form_.Answer->SetText("");
    form_.PressKeys({ QStringLiteral("5"), QStringLiteral("7"), QStringLiteral("Borrar cifra") });
    EXPECT_EQ(form_.Answer->Text(), "5");
    form_.PressKeys({ QStringLiteral("Borrar cifra"), QStringLiteral("Borrar cifra") });
    EXPECT_EQ(form_.Answer->Text(), "");
    form_.Answer->SetText("123");
    form_.Answer->SetCaretPosition(3);
    form_.PressKeys({ QStringLiteral("Borrar cifra") });
    EXPECT_EQ(form_.Answer->Text(), "12");
    EXPECT_EQ(form_.Pressed.back(), KeyCode::Backspace);
}

// Whichever key it stands for goes down and comes up again, or the next one of the keyboard would be a repetition.
TEST_F(KeypadTest, TheEraserRepeatsItselfAndLetsGoOfTheKeyThatItStandsFor)
{
    showPad();
    for (const bool isFromTheRight : { true, false }) {
        form_.Answer->SetText("");
        form_.PressKeys({ QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4") });
        form_.Answer->SetCaretPosition(isFromTheRight ? 0 : 4);
        form_.Pressed.clear();
        form_.Released.clear();
        FingerDown(form_.KeyNamed(QStringLiteral("Borrar cifra")));
        ASSERT_TRUE(QTest::qWaitFor([this] { return form_.Answer->Text().empty(); }));
        FingerUp(form_.KeyNamed(QStringLiteral("Borrar cifra")));
        const std::vector<int> keys = isFromTheRight ? std::vector<int>({ KeyCode::Backspace, KeyCode::Delete })
                                                     : std::vector<int>({ KeyCode::Backspace });
        EXPECT_EQ(form_.Released, keys);
        EXPECT_EQ(form_.Pressed.back(), keys.back());
        form_.Repeats = 0;
        Press(Qt::Key_Delete);
        Press(Qt::Key_Backspace);
        EXPECT_EQ(form_.Repeats, 0);
    }
}

TEST_F(KeypadTest, TheEraserTakesOneDigitAlsoTheFirstOfAnAnswerWrittenFromTheRight)
{
    showPad();
    form_.PressKeys({ QStringLiteral("1"), QStringLiteral("2") });
    ASSERT_EQ(form_.Answer->Text(), "21");
    form_.Answer->SetCaretPosition(1);
    form_.PressKeys({ QStringLiteral("Borrar cifra") });
    EXPECT_EQ(form_.Answer->Text(), "1");
}

TEST_F(KeypadTest, ADisabledKeyHearsNoFinger)
{
    showPad();
    form_.Pad()->setEnabled(false);
    Tap(form_.KeyNamed(QStringLiteral("5")));
    EXPECT_TRUE(form_.Pressed.empty());
    EXPECT_TRUE(form_.Released.empty());
}

TEST_F(KeypadTest, AnAssistiveToolPressesItsKeysWithoutTakingTheFocus)
{
    showPad();
    QAccessibleInterface* key = QAccessible::queryAccessibleInterface(&form_.KeyNamed(QStringLiteral("8")));
    EXPECT_EQ(key->text(QAccessible::Name).toStdString(), "8");
    key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form_.Released.empty(); }));
    EXPECT_EQ(form_.Answer->Text(), "8");
    EXPECT_TRUE(form_.Answer->hasFocus());
}

// --- Its place -------------------------------------------------------------------------------------------------------

// Measured through the middle, where a key is no corner but its whole width and height.
QSize paintedSizeOf(QWidget& key)
{
    const QImage picture = key.grab().toImage();
    const QRgb around = picture.pixel(0, 0);
    QSize size(0, 0);
    for (int x = 0; x < picture.width(); ++x) {
        size.rwidth() += picture.pixel(x, picture.height() / 2) != around ? 1 : 0;
    }
    for (int y = 0; y < picture.height(); ++y) {
        size.rheight() += picture.pixel(picture.width() / 2, y) != around ? 1 : 0;
    }
    return size / picture.devicePixelRatio();
}

TEST_F(KeypadTest, ItsKeysAreAFifteenthOfTheHeightOfTheWindowAndNeverBelow48Pixels)
{
    showPad();
    const std::vector<std::pair<int, int>> sizes { { 600, 48 }, { 720, 48 }, { 721, 49 }, { 800, 54 }, { 1080, 72 },
        { 2160, 144 } };
    for (const auto& [height, size] : sizes) {
        form_.resize(height, height);
        EXPECT_EQ(paintedSizeOf(form_.KeyNamed(QStringLiteral("5"))), QSize(size, size)) << height;
    }
}

TEST_F(KeypadTest, StandsBesideTheCalculationWhereTheWindowHasRoom)
{
    const int before = form_.Answer->x();
    form_.resize(1280, 800);
    showPad();
    const QRect pad = form_.Pad()->geometry();
    EXPECT_GT(pad.left(), form_.Area().Drawing().right());
    EXPECT_LT(pad.right(), form_.width());
    EXPECT_NEAR(pad.center().y(), form_.rect().center().y(), 20);
    EXPECT_GT(form_.Answer->x(), before);
}

// There is room for it, but not in the middle of what is left free on both sides.
TEST_F(KeypadTest, TheCalculationMovesAsideAsFarAsItHasToAndBackAgain)
{
    form_.resize(700, 800);
    const QRect alone = form_.Area().Drawing();
    showPad();
    const QRect beside = form_.Area().Drawing();
    EXPECT_EQ(beside.size(), alone.size());
    EXPECT_LT(beside.left(), alone.left());
    EXPECT_GE(beside.left(), 0);
    EXPECT_GT(form_.Pad()->x(), beside.right());
    showPad();
    EXPECT_EQ(form_.Area().Drawing(), alone);
}

TEST_F(KeypadTest, StandsBesideTheCalculationWhereItTouchesNeitherThatNorTheEdgeOfTheWindow)
{
    form_.resize(700, 800);
    const int calculation = form_.Area().Drawing().width();
    showPad();
    const int pad = form_.Pad()->width();
    form_.resize(calculation + pad + 2 * AroundKeypad, 800);
    EXPECT_EQ(form_.Area().Drawing().left(), 0);
    EXPECT_EQ(form_.Pad()->x(), calculation + AroundKeypad);
    form_.resize(calculation + pad + 2 * AroundKeypad - 1, 800);
    EXPECT_GT(form_.Area().Drawing().left(), 0);
}

TEST_F(KeypadTest, TheCalculationStaysInTheMiddleOfAWindowThatIsTooLowForIt)
{
    form_.setMinimumSize(100, 100);
    form_.resize(300, 120);
    const QRect alone = form_.Area().Drawing();
    showPad();
    EXPECT_FALSE(form_.ShowsPad());
    EXPECT_EQ(form_.Area().Drawing(), alone);
}

TEST_F(KeypadTest, FloatsWhereThereIsNoRoomBesideAndNeverLiesOverTheBoxThatIsWrittenIn)
{
    showPad();
    EXPECT_TRUE(form_.rect().contains(form_.Pad()->geometry()));
    EXPECT_FALSE(isNear(*form_.Pad(), *form_.Answer));

    TextBox* other = AddTextBox(form_.Area(), QStringLiteral("Other"), { 500, 5000, 3500, 1500 }, {}, Qt::AlignRight);
    other->show();
    QCoreApplication::processEvents();
    const QRect before = onScreen(*form_.Pad());
    ASSERT_TRUE(before.intersects(onScreen(*other)));
    other->setFocus();
    EXPECT_FALSE(isNear(*form_.Pad(), *other));
}

TEST_F(KeypadTest, IsInFrontOfWhatComesLater)
{
    showPad();
    AddReadOnlyBox(form_.Area(), QStringLiteral("Other"), QStringLiteral("Resto"), { 0, 2600, 4875, 5000 }, {})->show();
    QCoreApplication::processEvents();
    const QWidget* there = form_.childAt(form_.Pad()->geometry().center());
    EXPECT_TRUE(form_.Pad()->isAncestorOf(there)) << there->objectName().toStdString();
}

// What could not be pressed under it need not be near the box that is written in.
TEST_F(KeypadTest, GetsOutOfTheWayOfWhatComesUnderItAndStaysWhateverElseComes)
{
    Exercise form({ 4875, 10500 });
    ShowAndActivate(form);
    form.Answer->setFocus();
    ClickOnScreen(form.Switch());
    const QRect before = form.Pad()->geometry();
    const auto addButton = [&form](const char* name, TwipsRect place) {
        CommandButton* button = AddButton(form.Area(), QString::fromLatin1(name), QStringLiteral("&Dos"), place, {});
        button->show();
        QCoreApplication::processEvents();
        return button;
    };
    addButton("Above", { 500, 200, 1500, 495 });
    EXPECT_EQ(form.Pad()->geometry(), before);
    const QPoint middle = (before.center() - form.Area().Drawing().topLeft()) * 15; // twips
    const CommandButton* below = addButton("Below", { middle.x(), middle.y(), 1500, 495 });
    EXPECT_NE(form.Pad()->geometry(), before);
    EXPECT_FALSE(form.Pad()->geometry().intersects(below->geometry()));
}

// Without waiting for the window to be painted: nobody sees it over the button.
TEST_F(KeypadTest, GetsOutOfTheWayOfWhatComesUnderItInAFrameThatIsThereAlready)
{
    Exercise form({ 4875, 10500 });
    TwipsLayout& frame = *AddFrame(form.Area(), QStringLiteral("Frame"), { 0, 4000, 4875, 6500 }, {});
    CommandButton* first = AddButton(frame, QStringLiteral("Two"), QStringLiteral("&Dos"), { 100, 100, 900, 495 }, {});
    CommandButton* second = AddButton(frame, QStringLiteral("Tres"), QStringLiteral("&Tres"), { 0, 0, 900, 495 }, {});
    first->hide();
    second->hide();
    ShowAndActivate(form);
    form.Answer->setFocus();
    ClickOnScreen(form.Switch());
    for (CommandButton* button : { first, second }) {
        const QRect before = form.Pad()->geometry();
        const QPoint middle = (before.center() - frame.parentWidget()->pos()) * 15; // twips
        frame.Move(button, { middle.x(), middle.y(), 900, 495 });
        button->show();
        ASSERT_TRUE(onScreen(*button).intersects(onScreen(*form.Pad())));
        QCoreApplication::sendPostedEvents();
        EXPECT_NE(form.Pad()->geometry(), before);
        EXPECT_FALSE(onScreen(*button).intersects(onScreen(*form.Pad())));
    }
}

TEST_F(KeypadTest, DoesNotMindWhatStandsInADialog)
{
    showPad();
    const QSize size = form_.size();
    const auto placeWhenResizedTo = [this](const QSize& changed) {
        form_.resize(changed);
        QCoreApplication::processEvents();
        return form_.Pad()->geometry();
    };
    const QRect place = placeWhenResizedTo(size + QSize(0, 1));
    placeWhenResizedTo(size);
    QWidget dialog(&form_, Qt::Dialog);
    dialog.setGeometry({ QPoint(), size });
    auto& area = *new TwipsLayout(&dialog, { size.width() * 15, size.height() * 15 }, {});
    AddButton(area, QStringLiteral("Two"), QStringLiteral("&Dos"),
        { place.x() * 15, place.y() * 15, place.width() * 15, place.height() * 15 }, {});
    dialog.show();
    EXPECT_EQ(placeWhenResizedTo(size + QSize(0, 1)), place);
}

TEST_F(KeypadTest, IsNotThereWhereItFitsNowhereBesideTheBoxAndComesBackWithTheRoom)
{
    showPad();
    form_.setMinimumSize(100, 100);
    form_.resize(165, 260);
    EXPECT_FALSE(form_.ShowsPad());
    EXPECT_FALSE(form_.Switch().isChecked());
    form_.resize(325, 540);
    EXPECT_TRUE(form_.ShowsPad());
    EXPECT_TRUE(form_.Switch().isChecked());
}

TEST_F(KeypadTest, TheButtonTakesTheChoiceBackWhereThereIsNoRoom)
{
    showPad();
    form_.setMinimumSize(100, 100);
    for (const bool isShown : { false, true }) {
        form_.resize(165, 260);
        showPad();
        EXPECT_FALSE(form_.Switch().isChecked());
        form_.resize(325, 540);
        EXPECT_EQ(form_.ShowsPad(), isShown);
        EXPECT_EQ(form_.Switch().isChecked(), isShown);
    }
}

// The paper of a division takes all keys, and they are too many for one column of digits.
TEST_F(KeypadTest, DigitsAndArrowsStandSideBySideWhereItWouldNotFitOtherwise)
{
    Exercise form(portrait, KeypadKeys::WithBlankAndArrows);
    form.setMinimumSize(100, 100);
    ShowAndActivate(form);
    form.resize(1280, 800);
    form.Answer->setFocus();
    ClickOnScreen(form.Switch());
    const auto isBeside = [&form] {
        return form.KeyNamed(QStringLiteral("Flecha arriba")).x() > form.KeyNamed(QStringLiteral("9")).x();
    };
    EXPECT_TRUE(form.ShowsPad());
    EXPECT_FALSE(isBeside());
    form.resize(800, 280);
    EXPECT_TRUE(form.ShowsPad());
    EXPECT_TRUE(isBeside());
    EXPECT_GT(form.Pad()->x(), form.Area().Drawing().right());
}

TEST_F(KeypadTest, FloatingItTakesTheShapeThatLeavesTheButtonsFree)
{
    form_.resize(form_.width() + 60, form_.height());
    AddButton(form_.Area(), QStringLiteral("Two"), QStringLiteral("&Dos"), { 1500, 4000, 1500, 495 }, {})->show();
    AddButton(form_.Area(), QStringLiteral("Three"), QStringLiteral("&Tres"), { 1500, 4800, 1500, 495 }, {})->show();
    QCoreApplication::processEvents();
    form_.Answer->setFocus();
    showPad();
    for (const char* name : { "Done", "Two", "Three" }) {
        EXPECT_FALSE(onScreen(*form_.Pad()).intersects(onScreen(Find<QWidget>(form_, name)))) << name;
    }
    EXPECT_GT(form_.Pad()->width(), form_.Pad()->height());
}

TEST_F(KeypadTest, StaysUnderTheFingerThatHoldsAKeyAndGetsOutOfTheWayAfterwards)
{
    showPad();
    TextBox* other = AddTextBox(form_.Area(), QStringLiteral("Other"), { 500, 5000, 3500, 1500 }, {}, Qt::AlignRight);
    other->show();
    QCoreApplication::processEvents();
    ASSERT_TRUE(onScreen(*form_.Pad()).intersects(onScreen(*other)));
    const QPoint before = form_.Pad()->pos();
    FingerDown(form_.KeyNamed(QStringLiteral("5")));
    other->setFocus();
    EXPECT_EQ(form_.Pad()->pos(), before);
    FingerUp(form_.KeyNamed(QStringLiteral("5")));
    EXPECT_FALSE(onScreen(*form_.Pad()).intersects(onScreen(*other)));
}

TEST_F(KeypadTest, ANearMissPressesTheNearestKey)
{
    showPad();
    const QRect five = form_.KeyNamed(QStringLiteral("5")).geometry();
    const QRect six = form_.KeyNamed(QStringLiteral("6")).geometry();
    const QPoint between((five.right() + six.left()) / 2, five.center().y());
    QTest::mouseClick(form_.windowHandle(), Qt::LeftButton, {}, form_.Pad()->mapTo(&form_, between));
    EXPECT_EQ(form_.Pressed.size(), 1U);
}

class KeypadDragTest : public KeypadTest {
protected:
    // By its grip, at the upper edge.
    void drag(QPoint by) const { dragFrom({ form_.Pad()->width() / 2, 5 }, by); }

    void dragFrom(QPoint inPad, QPoint by) const
    {
        const QPoint from = form_.Pad()->mapTo(&form_, inPad);
        QTest::mousePress(form_.windowHandle(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, from + by, from + by, form_.mapToGlobal(from + by), Qt::NoButton,
            Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(form_.windowHandle(), &move);
        QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton, {}, from);
    }
};

TEST_F(KeypadDragTest, AHandDragsItWithinTheWindowAndItStaysThereUntilTheButtonHidesIt)
{
    form_.resize(1280, 800);
    showPad();
    const QPoint before = form_.Pad()->pos();
    drag({ -30, 60 });
    EXPECT_EQ(form_.Pad()->pos(), before + QPoint(-30, 60));
    form_.Done->setFocus();
    form_.Answer->setFocus();
    EXPECT_EQ(form_.Pad()->pos(), before + QPoint(-30, 60));
    drag({ 5000, 5000 });
    EXPECT_TRUE(form_.rect().contains(form_.Pad()->geometry()));
    form_.resize(1000, 700);
    EXPECT_TRUE(form_.rect().contains(form_.Pad()->geometry()));
    EXPECT_GT(form_.Pad()->geometry().bottom(), 690);
    EXPECT_TRUE(form_.Answer->hasFocus());
    form_.resize(1280, 800);
    showPad();
    showPad();
    EXPECT_EQ(form_.Pad()->pos(), before);
}

TEST_F(KeypadDragTest, ItGoesBackToWhereAHandBroughtItWhenNobodyWritesThereAnyMore)
{
    TextBox* other = AddTextBox(form_.Area(), QStringLiteral("Other"), { 500, 5000, 3500, 495 }, {}, Qt::AlignRight);
    other->show();
    form_.resize(1280, 800);
    QCoreApplication::processEvents();
    showPad();
    drag(other->geometry().center() - form_.Pad()->geometry().center());
    const QRect dragged = form_.Pad()->geometry();
    ASSERT_TRUE(dragged.intersects(other->geometry()));
    other->setFocus();
    EXPECT_FALSE(form_.Pad()->geometry().intersects(other->geometry()));
    form_.Answer->setFocus();
    EXPECT_EQ(form_.Pad()->geometry(), dragged);
}

// The calculation must not slip under it.
TEST_F(KeypadDragTest, BesideTheCalculationItFollowsTheHandFromTheFirst)
{
    form_.resize(700, 800);
    const QRect alone = form_.Area().Drawing();
    showPad();
    const QRect beside = form_.Area().Drawing();
    const QPoint before = form_.Pad()->pos();
    drag({ -20, -60 });
    EXPECT_EQ(form_.Pad()->pos(), before + QPoint(-20, -60));
    EXPECT_EQ(form_.Area().Drawing(), beside);
    drag({ 0, 300 });
    EXPECT_EQ(form_.Area().Drawing(), alone);
}

TEST_F(KeypadDragTest, AFingerDragsItToo)
{
    form_.resize(1280, 800);
    showPad();
    const QPoint before = form_.Pad()->pos();
    const QPoint grip(form_.Pad()->width() / 2, 5);
    DragByFinger(*form_.Pad(), grip, grip + QPoint(-30, 60));
    EXPECT_EQ(form_.Pad()->pos(), before + QPoint(-30, 60));
    EXPECT_TRUE(form_.Answer->hasFocus());
    EXPECT_EQ(form_.Pressed, std::vector<int>());
}

TEST_F(KeypadDragTest, NoRoomIsKeptBesideTheCalculationWhileItIsDraggedAway)
{
    form_.resize(700, 800);
    const QRect alone = form_.Area().Drawing();
    showPad();
    const QRect beside = form_.Area().Drawing();
    ASSERT_LT(beside.left(), alone.left());
    drag({ -200, 300 });
    EXPECT_EQ(form_.Area().Drawing(), alone);
    showPad();
    showPad();
    EXPECT_EQ(form_.Area().Drawing(), beside);
}

// It keeps its size then, even if the window gets another one.
TEST_F(KeypadDragTest, NobodyDragsItWhileAFingerHoldsAKey)
{
    showPad();
    FingerDown(form_.KeyNamed(QStringLiteral("5")));
    form_.resize(1280, 1000);
    const QRect held = form_.Pad()->geometry();
    drag({ 20, 30 });
    EXPECT_EQ(form_.Pad()->geometry(), held);
    LiftFinger();
    const QRect beside = form_.Pad()->geometry();
    EXPECT_GT(beside.left(), form_.Area().Drawing().right());
    drag({ 20, 30 });
    EXPECT_EQ(form_.Pad()->geometry(), beside.translated(20, 30));
}

TEST_F(KeypadDragTest, NeitherASlightMoveNorAMissedKeyDragsIt)
{
    form_.resize(1280, 800);
    showPad();
    const QPoint before = form_.Pad()->pos();
    drag({ 3, 3 });
    EXPECT_EQ(form_.Pad()->pos(), before);
    dragFrom({ form_.Pad()->width() - 1, form_.Pad()->height() - 1 }, { -30, -60 });
    EXPECT_EQ(form_.Pad()->pos(), before);
}

TEST_F(KeypadDragTest, CannotBeDraggedOverTheBoxThatIsWrittenIn)
{
    form_.resize(1280, 800);
    showPad();
    const QPoint before = form_.Pad()->pos();
    drag(form_.Answer->pos() - before);
    EXPECT_EQ(form_.Pad()->pos(), before);
    form_.Done->setFocus();
    EXPECT_EQ(form_.Pad()->pos(), before);
}

TEST_F(KeypadDragTest, IsNotShownNorMovedByTheHandThatDragsItWhenSomethingHasHiddenIt)
{
    form_.resize(1280, 800);
    showPad();
    const QPoint before = form_.Pad()->pos();
    const QPoint grip(form_.Pad()->width() / 2, 5);
    FingerDown(*form_.Pad(), grip);
    MoveFinger(*form_.Pad(), grip + QPoint(0, 40));
    form_.Switch().click();
    MoveFinger(*form_.Pad(), grip + QPoint(0, 80));
    EXPECT_FALSE(form_.ShowsPad());
    EXPECT_FALSE(form_.Switch().isChecked());
    LiftFinger();
    EXPECT_FALSE(form_.ShowsPad());
    showPad();
    EXPECT_EQ(form_.Pad()->pos(), before);
}

TEST_F(KeypadDragTest, ADragGoesOnWhereThereIsRoomForItAgain)
{
    form_.setMinimumSize(100, 100);
    form_.resize(1920, 1080);
    showPad();
    const QPoint grip(form_.Pad()->width() / 2, 5);
    FingerDown(*form_.Pad(), grip);
    MoveFinger(*form_.Pad(), grip + QPoint(0, 40));
    form_.resize(165, 260);
    ASSERT_FALSE(form_.ShowsPad());
    MoveFinger(form_, QPoint(100, 150)); // with a size that it would have nowhere here
    EXPECT_FALSE(form_.ShowsPad());
    form_.resize(1920, 1080);
    EXPECT_TRUE(form_.ShowsPad());
    LiftFinger();
    EXPECT_TRUE(form_.ShowsPad());
}

TEST_F(KeypadDragTest, AnotherTouchOfItsGripHasToGoAsFarAsTheFirst)
{
    form_.resize(1280, 800);
    showPad();
    drag({ -30, 60 });
    const QPoint before = form_.Pad()->pos();
    drag({ 3, 3 });
    EXPECT_EQ(form_.Pad()->pos(), before);
}

// --- Boxes -----------------------------------------------------------------------------------------------------------

void pressInBox(const QDialog& box, const QString& key)
{
    ClickOnScreen(Find<QAbstractButton>(box, QStringLiteral("Tecla(%1)").arg(key)));
}

TEST_F(KeypadTest, AnInputBoxHasItAboveItsButtonsOnTheScreen)
{
    showPad();
    ExpectDialog([this](QDialog& box) {
        box.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        EXPECT_FALSE(form_.ShowsPad());
        EXPECT_FALSE(form_.Switch().isChecked());
        for (const char* key : { "1", "2", "Coma", "5", "5", "Borrar cifra" }) {
            pressInBox(box, QString::fromLatin1(key));
        }
        const auto& line = *box.findChild<QLineEdit*>();
        const QWidget& pad = *padIn(box);
        EXPECT_EQ(pad.findChild<QWidget*>(QStringLiteral("Tecla(Espacio)")), nullptr);
        EXPECT_EQ(line.text().toStdString(), "12,5");
        EXPECT_TRUE(line.hasFocus());
        EXPECT_GE(pad.y(), line.geometry().bottom());
        EXPECT_TRUE(box.screen()->availableGeometry().contains(onScreen(pad)));
        EXPECT_GE(pad.findChild<QAbstractButton*>()->contentsRect().height(), 48);
        box.accept();
    });
    EXPECT_EQ(AskText(&form_, "Introduzca el nuevo valor:", "Sumas"), "12,5");
    EXPECT_EQ(form_.Answer->Text(), "");
    EXPECT_TRUE(form_.ShowsPad());
}

TEST_F(KeypadTest, AButtonOfAnInputBoxHearsAFingerWhileAnotherOneHoldsAKey)
{
    showPad();
    ExpectDialog([](QDialog& box) {
        box.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        FingerDown(Find<QWidget>(box, QStringLiteral("Tecla(5)")), 0);
        const QWidget& accept = *box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        FingerDown(accept, 1);
        LiftFinger(1);
        LiftFinger(0);
    });
    EXPECT_EQ(AskText(&form_, "Introduzca el nuevo valor:", "Sumas"), "5");
}

TEST_F(KeypadTest, OfAnInputBoxItHasKeysAsLargeAsThePanelAsksFor)
{
    form_.resize(1920, 1080);
    showPad();
    ExpectDialog([](QDialog& box) {
        EXPECT_EQ(padIn(box)->findChild<QAbstractButton*>()->contentsRect().height(), 72);
        box.reject();
    });
    AskText(&form_, "Introduzca el nuevo valor:", "Sumas");
}

TEST_F(KeypadTest, WantedForAnInputBoxAloneItGoesWithTheBox)
{
    form_.Answer->hide();
    showPad();
    ExpectDialog([](QDialog& box) {
        EXPECT_NE(padIn(box), nullptr);
        box.reject();
    });
    AskText(&form_, "Introduzca el nuevo valor:", "Sumas");
    EXPECT_FALSE(form_.ShowsPad());
    EXPECT_FALSE(form_.Switch().isChecked());
}

// Behind an open box, the button of the window cannot be pressed.
TEST_F(KeypadTest, AnInputBoxHasAButtonOfItsOwnThatShowsItAndHidesItAndLeavesTheFocusInTheLine)
{
    ExpectDialog([](QDialog& box) {
        box.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        auto& button = *box.findChild<KeypadSwitch*>();
        const int height = box.height();
        EXPECT_FALSE(button.isChecked());
        ClickOnScreen(button);
        EXPECT_TRUE(button.isChecked());
        EXPECT_TRUE(padIn(box)->isVisible());
        pressInBox(box, QStringLiteral("7"));
        ClickOnScreen(button);
        EXPECT_FALSE(button.isChecked());
        EXPECT_FALSE(padIn(box)->isVisible());
        EXPECT_TRUE(QTest::qWaitFor([&] { return box.height() == height; }));
        ClickOnScreen(button);
        pressInBox(box, QStringLiteral("5"));
        EXPECT_TRUE(box.findChild<QLineEdit*>()->hasFocus());
        box.accept();
    });
    EXPECT_EQ(AskText(&form_, "Introduzca el nuevo valor:", "Sumas"), "75");
    form_.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return form_.ShowsPad(); }));
}

TEST_F(KeypadTest, AFingerOnTheLineOfAnInputBoxShowsItThereAndFromThenOnEverywhere)
{
    form_.move(0, form_.screen()->availableGeometry().bottom() - form_.height());
    ExpectDialog([](QDialog& box) {
        EXPECT_EQ(padIn(box), nullptr);
        Tap(*box.findChild<QLineEdit*>());
        pressInBox(box, QStringLiteral("7"));
        EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry()));
        box.accept();
    });
    EXPECT_EQ(AskText(&form_, "Introduzca el nuevo valor:", "Sumas"), "7");
    form_.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return form_.ShowsPad(); }));
}

TEST_F(KeypadTest, WhileAMessageIsOpenItWritesNothingAndAfterwardsItGoesOn)
{
    showPad();
    pressAndHold(form_.KeyNamed(QStringLiteral("5")));
    ExpectDialog([this](QDialog& box) {
        EXPECT_EQ(form_.Released, std::vector<int>({ '5' }));
        EXPECT_EQ(form_.Answer->CaretPosition(), 0);
        QAbstractButton& one = form_.KeyNamed(QStringLiteral("1"));
        EXPECT_FALSE(one.isEnabled());
        one.click();
        QAccessible::queryAccessibleInterface(&one)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton);
        box.accept();
    });
    ShowMessage(&form_, "Pulse el botón Volver a casa");
    form_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
    EXPECT_EQ(form_.Pressed, std::vector<int>({ '5' }));
    form_.PressKeys({ QStringLiteral("2") });
    EXPECT_EQ(form_.Answer->Text(), "25");
}

} // namespace

} // namespace numbrela
