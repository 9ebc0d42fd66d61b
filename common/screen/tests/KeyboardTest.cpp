#include "common/screen/Keyboard.h"

#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTest>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

using Heard = std::vector<std::string>;

// A window with a box that has the focus, another box and a button.
class KeyboardTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QObject::connect(&button_, &QPushButton::clicked, &form_, [this] { ++clicks_; });
        ShowAndActivate(form_);
        box_.setFocus();
    }

    // Logs what the handlers of a box hear, as in "down 53", "press 5", "up 53", and gives these answers.
    void listen(QWidget& control, std::function<KeyAnswer(const Key&)> toKey = {},
        std::function<KeyAnswer(QChar)> toCharacter = {})
    {
        HandleKeys(control,
            {
                .KeyDown =
                    [this, toKey](const Key& key) {
                        heard_.push_back((key.Repeated ? "again " : "down ") + std::to_string(key.Code));
                        return toKey ? toKey(key) : KeyAnswer::GoesOn();
                    },
                .KeyPress =
                    [this, toCharacter](QChar character) {
                        heard_.push_back("press "
                            + (character.isPrint() ? QString(character).toStdString()
                                                   : std::to_string(character.unicode())));
                        return toCharacter ? toCharacter(character) : KeyAnswer::GoesOn();
                    },
                .KeyUp = [this](int keyCode) { heard_.push_back("up " + std::to_string(keyCode)); },
            });
    }

    void listen() { listen(box_); }

    // What an input method or an on-screen keyboard sends to write a text into the box.
    static void commit(QWidget& receiver, const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(&receiver, &event);
    }

    FormWindow form_ { QStringLiteral("Form"), QStringLiteral("Form"), { 6000, 3000 }, {} };
    TextBox& box_ = *AddTextBox(form_.Area(), QStringLiteral("Box"), { 300, 300, 1500, 495 }, {});
    TextBox& other_ = *AddTextBox(form_.Area(), QStringLiteral("Other"), { 3000, 300, 1500, 495 }, {});
    CommandButton& button_
        = *AddButton(form_.Area(), QStringLiteral("Button"), QStringLiteral("&Hecho"), { 300, 1800, 1500, 495 }, {});
    Heard heard_;
    int clicks_ = 0;
};

// --- What a form says to keys ----------------------------------------------------------------------------------------

TEST_F(KeyboardTest, AFormHearsOfAKeyBeforeItTypesAndAfterItIsLetGo)
{
    HandleKeys(box_, {}); // handlers may be left out
    listen();
    QObject::connect(&box_, &TextBox::textChanged, &form_, [this] { heard_.push_back("text " + box_.Text()); });
    Press(Qt::Key_5);
    Press(Qt::Key_6, Qt::KeypadModifier);
    QTest::sendKeyEvent(QTest::Click, &box_, Qt::Key_Ntilde, QStringLiteral("ñ"), Qt::NoModifier);
    EXPECT_EQ(heard_,
        (Heard { "down 53", "press 5", "text 5", "up 53", "down 102", "press 6", "text 56", "up 102", "down 192",
            "press ñ", "text 56ñ", "up 192" }));
}

TEST_F(KeyboardTest, EnterBackspaceAndEscapeAreCharactersAndKeysThatTypeNothingAreKeysAlone)
{
    const std::tuple<Qt::Key, const char*, int, Heard> keys[] = {
        { Qt::Key_Return, "1234", 4, { "down 13", "press 13", "up 13" } },
        { Qt::Key_Enter, "1234", 4, { "down 13", "press 13", "up 13" } },
        { Qt::Key_Escape, "1234", 4, { "down 27", "press 27", "up 27" } },
        { Qt::Key_Backspace, "123", 3, { "down 8", "press 8", "up 8" } },
        { Qt::Key_Left, "123", 2, { "down 37", "up 37" } },
        { Qt::Key_Delete, "12", 2, { "down 46", "up 46" } },
        { Qt::Key_Home, "12", 0, { "down 36", "up 36" } },
        { Qt::Key_F5, "12", 0, { "down 116", "up 116" } },
    };
    listen();
    box_.SetText("1234");
    for (const auto& [key, text, caret, heard] : keys) {
        heard_.clear();
        Press(key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        EXPECT_EQ(heard_, heard);
        EXPECT_EQ(box_.Text(), text);
        EXPECT_EQ(box_.CaretPosition(), caret);
    }
}

TEST_F(KeyboardTest, EveryPrintableCharacterIsTyped)
{
    const QString typed = QStringLiteral(" !,.-+:=()azAZ09");
    QString heard;
    HandleKeys(box_, { .KeyPress = [&heard](QChar character) {
        heard += character;
        return KeyAnswer::GoesOn();
    } });
    Type(typed);
    EXPECT_EQ(heard.toStdString(), typed.toStdString());
    EXPECT_EQ(box_.Text(), typed.toStdString());
}

TEST_F(KeyboardTest, AControlNeverSeesAKeyThatItsFormConsumes)
{
    box_.SetText("12");
    listen(box_,
        [](const Key& key) { return key.Code == KeyCode::Digit0 + 7 ? KeyAnswer::GoesOn() : KeyAnswer::Consumed(); });
    Type(QStringLiteral("5"));
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Left);
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), "12");
    EXPECT_EQ(box_.CaretPosition(), 2);
    EXPECT_FALSE(box_.hasSelectedText());
    EXPECT_EQ(heard_,
        (Heard { "down 53", "up 53", "down 8", "up 8", "down 37", "up 37", "down 17", "down 65", "up 65", "up 17" }));
    Type(QStringLiteral("7"));
    EXPECT_EQ(box_.Text(), "127");
}

TEST_F(KeyboardTest, AKeyTypesTheCharacterThatItsFormPutsInPlaceOfIt)
{
    listen(
        box_,
        [](const Key& key) {
            return key.Code == KeyCode::KeypadDecimal ? KeyAnswer::Replaced(u',')
                : key.Code == KeyCode::Delete         ? KeyAnswer::Replaced(u' ')
                                                      : KeyAnswer::GoesOn();
        },
        [](QChar character) { return character == u'x' ? KeyAnswer::Replaced(u'y') : KeyAnswer::GoesOn(); });
    box_.SetText("12");
    box_.SelectWholeText();
    Press(Qt::Key_Period, Qt::KeypadModifier);
    EXPECT_EQ(box_.Text(), ",");
    EXPECT_EQ(heard_, (Heard { "down 110", "press ,", "up 110" })) << "it is the new character that is pressed";
    Press(Qt::Key_Delete);
    Type(QStringLiteral("1x5"));
    EXPECT_EQ(box_.Text(), ", 1y5");
}

TEST_F(KeyboardTest, ACharacterThatIsConsumedIsNotTyped)
{
    box_.SetText("123");
    listen(box_, {}, [](QChar character) { return character.isDigit() ? KeyAnswer::GoesOn() : KeyAnswer::Consumed(); });
    Type(QStringLiteral("a,"));
    Press(Qt::Key_Backspace);
    EXPECT_EQ(box_.Text(), "123");
    box_.SelectWholeText();
    Type(QStringLiteral("x"));
    EXPECT_EQ(box_.selectedText().toStdString(), "123");
    commit(box_, QStringLiteral("x"));
    EXPECT_EQ(box_.selectedText().toStdString(), "123") << "nor by an input method";
    Type(QStringLiteral("4"));
    EXPECT_EQ(box_.Text(), "4");
}

TEST_F(KeyboardTest, ACharacterIsTypedWhereItWasPressedOrLostWhenTheFocusMoves)
{
    listen(box_, {}, [this](QChar character) {
        other_.setFocus();
        return character == u'5' ? KeyAnswer::GoesOn() : KeyAnswer::Consumed();
    });
    int released = 0;
    HandleKeys(other_, { .KeyUp = [&released](int /*keyCode*/) { ++released; } });
    for (const auto key : { Qt::Key_5, Qt::Key_6 }) {
        box_.setFocus();
        HoldDown(key);
        EXPECT_EQ(FocusName(), "Other");
        EXPECT_EQ(box_.Text(), "5");
        EXPECT_EQ(other_.Text(), "");
        LetGo(key);
    }
    EXPECT_EQ(released, 2) << "a key is let go where the focus is";
}

TEST_F(KeyboardTest, CommandsTypeNothing)
{
    box_.SetText("1");
    listen();
    for (const auto modifier : { Qt::ControlModifier, Qt::AltModifier }) {
        for (const auto key : { Qt::Key_5, Qt::Key_Comma, Qt::Key_J }) {
            Press(key, modifier);
            Press(key, modifier | Qt::ShiftModifier);
        }
    }
    EXPECT_EQ(box_.Text(), "1");
    EXPECT_TRUE(std::none_of(
        heard_.begin(), heard_.end(), [](const std::string& heard) { return heard.starts_with("press"); }));
    EXPECT_TRUE(std::count(heard_.begin(), heard_.end(), "down 53") == 4) << "they are keys all the same";
}

// What the right Alt key of a Spanish keyboard writes arrives with both modifiers on some systems.
TEST_F(KeyboardTest, WhatCtrlAndAltTogetherWriteIsTyped)
{
    listen();
    Press(Qt::Key_At, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(std::count(heard_.begin(), heard_.end(), "press @") == 1);
    EXPECT_EQ(box_.Text(), "@");
}

TEST_F(KeyboardTest, ABoxForReadingAloneTypesNothingThatIsPressedOrReplaced)
{
    box_.SetText("12");
    box_.setReadOnly(true);
    listen(
        box_, {}, [](QChar character) { return character == u'5' ? KeyAnswer::Replaced(u'x') : KeyAnswer::GoesOn(); });
    Type(QStringLiteral("57"));
    Press(Qt::Key_Backspace);
    EXPECT_EQ(
        heard_, (Heard { "down 53", "press 5", "up 53", "down 55", "press 7", "up 55", "down 8", "press 8", "up 8" }));
    Press(Qt::Key_Delete);
    QApplication::clipboard()->setText(QStringLiteral("7"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), "12");
}

// --- Held keys -------------------------------------------------------------------------------------------------------

// A held key on a system that marks repeated events, and on one that does not.
class HeldKeyTest : public KeyboardTest, public ::testing::WithParamInterface<bool> {
protected:
    static void again(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        for (int times = 0; times < 3; ++times) {
            GetParam() ? RepeatMarked(key, modifiers) : Repeat(key, modifiers);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(
    System, HeldKeyTest, ::testing::Bool(), [](const auto& row) { return row.param ? "Marks" : "MarksNothing"; });

TEST_P(HeldKeyTest, TypesAgainAndIsLetGoOnce)
{
    listen();
    HoldDown(Qt::Key_5);
    again(Qt::Key_5);
    EXPECT_EQ(
        heard_, (Heard { "down 53", "press 5", "again 53", "press 5", "again 53", "press 5", "again 53", "press 5" }));
    LetGo(Qt::Key_5);
    EXPECT_EQ(heard_.size(), 9U);
    EXPECT_EQ(heard_.back(), "up 53");
    EXPECT_EQ(box_.Text(), "5555");
    heard_.clear();
    Press(Qt::Key_5);
    EXPECT_EQ(heard_, (Heard { "down 53", "press 5", "up 53" })) << "it is pressed anew";
}

TEST_P(HeldKeyTest, StaysHeldWhileAnotherKeyIsLetGo)
{
    listen();
    HoldDown(Qt::Key_5);
    HoldDown(Qt::Key_7);
    LetGo(Qt::Key_5);
    again(Qt::Key_7);
    EXPECT_EQ(std::count(heard_.begin(), heard_.end(), "again 55"), 3);
    LetGo(Qt::Key_7);
}

TEST_P(HeldKeyTest, WritesNothingInABoxThatHasGotTheFocusSince)
{
    listen(box_, {}, [this](QChar /*character*/) {
        other_.setFocus();
        return KeyAnswer::Consumed();
    });
    HoldDown(Qt::Key_5);
    again(Qt::Key_5);
    LetGo(Qt::Key_5);
    EXPECT_EQ(other_.Text(), "");
    Press(Qt::Key_5);
    EXPECT_EQ(other_.Text(), "5");
}

TEST_P(HeldKeyTest, MovesTheFocusOnAndOn)
{
    HoldDown(Qt::Key_Tab);
    GetParam() ? RepeatMarked(Qt::Key_Tab) : Repeat(Qt::Key_Tab);
    LetGo(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "Button");
}

// Enter checks an answer, and a wrong one counts.
TEST_P(HeldKeyTest, IsOneEnter)
{
    listen();
    for (const auto& [key, modifiers] : { std::pair<int, Qt::KeyboardModifiers> { Qt::Key_Return, Qt::NoModifier },
             { Qt::Key_Enter, Qt::KeypadModifier } }) {
        heard_.clear();
        HoldDown(key, modifiers);
        again(key, modifiers);
        LetGo(key, modifiers);
        EXPECT_EQ(heard_, (Heard { "down 13", "press 13", "up 13" }));
    }
}

TEST_P(HeldKeyTest, PressesAButtonOnceByItsAccessKey)
{
    HoldDown(Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return clicks_ > 0; })) << "it is seen to go down first";
    again(Qt::Key_H, Qt::AltModifier);
    EXPECT_FALSE(button_.isDown());
    LetGo(Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(clicks_, 1);
    PressAccessKey(form_, Qt::Key_H, QStringLiteral("Button"));
    EXPECT_EQ(clicks_, 2);
}

TEST_P(HeldKeyTest, ChoosesNothingInTheMenuThatItHasOpened)
{
    QMenu& menu = *new QMenu(&form_);
    int chosen = 0;
    QObject::connect(menu.addAction(QStringLiteral("&Ocultar")), &QAction::triggered, &form_, [&] { ++chosen; });
    HoldDown(Qt::Key_O);
    menu.popup({});
    again(Qt::Key_O);
    LetGo(Qt::Key_O);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(chosen, 0);
    Press(Qt::Key_O);
    EXPECT_EQ(chosen, 1);
}

// An X server and Windows number the keys, and Qt names them by what they write with Shift or without.
TEST_F(KeyboardTest, AKeyIsTheSameKeyWhenShiftIsLetGoWhileItIsHeld)
{
    constexpr quint32 scanCodeOf7 = 16; // on X11
    constexpr quint32 virtualKeyOf7 = 55; // on Windows
    const auto send = [this](QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QKeyEvent event(type, key, modifiers, scanCodeOf7, virtualKeyOf7, 0, text);
        QCoreApplication::sendEvent(form_.windowHandle(), &event);
    };
    listen();
    send(QEvent::KeyPress, Qt::Key_Slash, Qt::ShiftModifier, QStringLiteral("/"));
    send(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, QStringLiteral("7"));
    send(QEvent::KeyRelease, Qt::Key_7, Qt::NoModifier, QStringLiteral("7"));
    EXPECT_EQ(heard_, (Heard { "down 55", "press /", "again 55", "press 7", "up 55" }));
}

// An input method may keep the press of a key, send a text, and let the release go on.
TEST_F(KeyboardTest, ARealReleaseAfterATextFromAnInputMethodIsNoSecondOne)
{
    listen();
    commit(box_, QStringLiteral("5"));
    LetGo(Qt::Key_5);
    EXPECT_EQ(heard_, (Heard { "down 53", "press 5", "up 53" }));
}

// No release arrives for a key that is still held when the focus moves to another program.
TEST_F(KeyboardTest, AKeyThatWasLetGoElsewhereIsPressedAnew)
{
    listen();
    HoldDown(Qt::Key_5);
    FormWindow another { QStringLiteral("Another"), QStringLiteral("Another"), { 3000, 3000 }, {} };
    ShowAndActivate(another);
    another.close();
    form_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
    heard_.clear();
    Press(Qt::Key_5);
    EXPECT_EQ(heard_, (Heard { "down 53", "press 5", "up 53" }));
}

// In a page that loses the keys, the window keeps the focus, and Qt says only this.
TEST_F(KeyboardTest, AKeyThatWasLetGoWhileTheProgramWasInactiveIsPressedAnew)
{
    listen();
    HoldDown(Qt::Key_5);
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);
    heard_.clear();
    Press(Qt::Key_5);
    EXPECT_EQ(heard_, (Heard { "down 53", "press 5", "up 53" }));
}

// --- Text without keys -----------------------------------------------------------------------------------------------

TEST_F(KeyboardTest, WhatAnInputMethodWritesIsTypedCharacterByCharacter)
{
    listen();
    commit(box_, QStringLiteral("7,ñ"));
    EXPECT_EQ(heard_,
        (Heard { "down 55", "press 7", "up 55", "down 188", "press ,", "up 188", "down 192", "press ñ", "up 192" }));
    EXPECT_EQ(box_.Text(), "7,ñ");
}

TEST_F(KeyboardTest, WhatIsStillComposedStandsBehindWhatIsWritten)
{
    listen();
    QInputMethodEvent event(QStringLiteral("´"), {});
    event.setCommitString(QStringLiteral("7"));
    QCoreApplication::sendEvent(&box_, &event);
    EXPECT_EQ(box_.Text(), "7");
    EXPECT_EQ(heard_, (Heard { "down 55", "press 7", "up 55" }));
    commit(box_, QStringLiteral("á"));
    EXPECT_EQ(box_.Text(), "7á");
}

TEST_F(KeyboardTest, AnInputMethodMayTakeBackWhatItHasWritten)
{
    commit(box_, QStringLiteral("12"));
    QInputMethodEvent correction;
    correction.setCommitString(QStringLiteral("3"), -1, 1);
    QCoreApplication::sendEvent(&box_, &correction);
    EXPECT_EQ(box_.Text(), "13");
}

} // namespace

} // namespace numbrela
