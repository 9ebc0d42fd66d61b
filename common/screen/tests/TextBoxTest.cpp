#include "common/screen/TextBox.h"

#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr TwipsRect boxPlace { 300, 300, 1500, 495 }; // 100 by 33 pixels
constexpr FontSpec boxFont { "Courier", 12 }; // 16 pixels

// A window with a button, the box that has the focus at first, and another box, in the order of the Tab key.
class TextBoxTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ShowAndActivate(form_);
        box_.setFocus();
    }

    // Moves the caret to the end, and there types.
    void typeAtEnd(const QString& text)
    {
        Press(Qt::Key_End);
        Type(text);
    }

    FormWindow form_ { QStringLiteral("Form"), QStringLiteral("Form"), { 6000, 3000 }, {} };
    CommandButton& button_
        = *AddButton(form_.Area(), QStringLiteral("Button"), QStringLiteral("Button"), { 300, 1800, 1500, 495 }, {});
    TextBox& box_ = *AddTextBox(form_.Area(), QStringLiteral("Box"), boxPlace, boxFont, Qt::AlignLeft);
    TextBox& other_ = *AddTextBox(form_.Area(), QStringLiteral("Other"), { 300, 1000, 1500, 495 }, boxFont);
};

TEST_F(TextBoxTest, HoldsUtf8TextWithItsBlanksAndLosesTheSelectionWhenAProgramWrites)
{
    for (const char* text : { "1,5 € ñ 12·3", "  12  3 ", "  12  3 ", "" }) {
        box_.SelectWholeText();
        box_.SetText(text);
        EXPECT_EQ(box_.Text(), text);
        EXPECT_FALSE(box_.hasSelectedText()) << "even the same text";
        box_.SelectWholeText();
        EXPECT_EQ(box_.selectedText().toStdString(), text);
    }
}

TEST_F(TextBoxTest, PlacesItsCaretWithinItsTextAndTakesTheSelectionAway)
{
    box_.SetText("12345");
    for (const auto& [wanted, placed] : { std::pair { 2, 2 }, { 99, 5 }, { -1, 0 }, { 2, 2 } }) {
        box_.SelectWholeText();
        box_.SetCaretPosition(wanted);
        EXPECT_EQ(box_.CaretPosition(), placed);
        EXPECT_FALSE(box_.hasSelectedText());
    }
    Type(QStringLiteral("9"));
    EXPECT_EQ(box_.Text(), "129345");
    box_.SelectWholeText();
    Type(QStringLiteral("7"));
    EXPECT_EQ(box_.Text(), "7");
    EXPECT_EQ(box_.CaretPosition(), 1);
}

TEST_F(TextBoxTest, HasItsCaretAtTheStartOfTheSelection)
{
    box_.SetText("12345");
    box_.setSelection(1, 3);
    EXPECT_EQ(box_.CaretPosition(), 1);
    box_.setSelection(4, -3);
    EXPECT_EQ(box_.CaretPosition(), 1);
    box_.SelectWholeText();
    EXPECT_EQ(box_.CaretPosition(), 0);
    box_.SetCaretPosition(1);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(box_.selectedText().toStdString(), "23");
    EXPECT_EQ(box_.CaretPosition(), 1);
}

// While a text is dragged, the release of a key is not heard.
TEST_F(TextBoxTest, AMouseDragsNoHighlightAwayButBeginsANewOneThere)
{
    for (const bool isReadOnly : { false, true }) {
        box_.setReadOnly(isReadOnly);
        box_.SetText("123456");
        box_.SelectWholeText();
        DoSoon(form_, [] { Press(Qt::Key_Escape); }); // in the loop of a drag, which it would end
        DragByMouse(box_, { 5, box_.height() / 2 }, { 40, box_.height() / 2 });
        EXPECT_LT(box_.selectedText().size(), 6);
        EXPECT_EQ(box_.selectionStart(), 0);
    }
}

TEST_F(TextBoxTest, StepsLeftFromItsCaretOrTheStartOfTheSelectionAndStaysAtTheFirstPosition)
{
    box_.SetText("12345");
    box_.setSelection(3, 2);
    for (const int caret : { 2, 1, 0, 0 }) {
        box_.StepCaretLeft();
        EXPECT_EQ(box_.CaretPosition(), caret);
        EXPECT_FALSE(box_.hasSelectedText());
    }
    box_.SelectWholeText();
    box_.StepCaretLeft();
    EXPECT_EQ(box_.selectedText().toStdString(), "12345") << "there is no step left";
}

class HighlightTest : public TextBoxTest {
protected:
    void SetUp() override
    {
        TextBoxTest::SetUp();
        box_.SetText("12345");
        box_.SelectWholeText();
    }

    void expectHighlight()
    {
        settle();
        EXPECT_EQ(box_.selectedText().toStdString(), "12345");
        EXPECT_EQ(box_.CaretPosition(), 0);
        EXPECT_TRUE(showsHighlight());
    }

    // What a line edit does when its window becomes active, it does a turn of the event loop later.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    bool showsHighlight()
    {
        const QImage image = box_.grab().toImage();
        const QColor highlight = box_.palette().color(QPalette::Active, QPalette::Highlight);
        int columns = 0;
        for (int x = 0; x < image.width(); ++x) {
            columns += image.pixelColor(x, image.height() / 2) == highlight ? 1 : 0;
        }
        return columns > 10;
    }
};

TEST_F(HighlightTest, StaysWhenTabLeavesAndComesBack)
{
    const std::pair<Qt::KeyboardModifier, const char*> steps[] = { { Qt::NoModifier, "Other" },
        { Qt::ShiftModifier, "Box" }, { Qt::ShiftModifier, "Button" }, { Qt::NoModifier, "Box" } };
    for (const auto& [modifier, name] : steps) {
        Press(Qt::Key_Tab, modifier);
        EXPECT_EQ(FocusName(), name);
        expectHighlight();
    }
    box_.setSelection(1, 2);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(box_.selectedText().toStdString(), "23") << "a part stays too";
    EXPECT_EQ(box_.CaretPosition(), 1);
    box_.SetCaretPosition(0);
    EXPECT_FALSE(showsHighlight());
}

TEST_F(HighlightTest, StaysWhateverIsDoneElsewhereAndInABoxForReadingAlone)
{
    const std::function<void()> deeds[] = {
        [this] { Click(form_, QStringLiteral("Other")); },
        [] { Type(QStringLiteral("67")); },
        [] { Press(Qt::Key_A, Qt::ControlModifier); },
        [this] { Click(form_, QStringLiteral("Button")); },
        [this] { QTest::mouseClick(&form_, Qt::LeftButton, {}, form_.rect().bottomRight() - QPoint(4, 4)); },
        [this] { box_.setFocus(Qt::ShortcutFocusReason); },
        [this] { box_.clearFocus(); },
        [this] { form_.resize(2 * form_.size()); },
        [this] { box_.setReadOnly(true); },
        [this] { other_.setFocus(); },
        [this] { box_.setFocus(Qt::TabFocusReason); },
        [this] { box_.setEnabled(false); },
    };
    for (const auto& act : deeds) {
        act();
        box_.setEnabled(true);
        expectHighlight();
    }
    EXPECT_EQ(other_.selectedText().toStdString(), "67");
}

TEST_F(HighlightTest, StaysWhenItsWindowIsLeftAndComesBack)
{
    for (QWidget* focused : { static_cast<QWidget*>(&box_), static_cast<QWidget*>(&other_) }) {
        focused->setFocus();
        QWidget window;
        ShowAndActivate(window);
        expectHighlight();
        form_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
        EXPECT_EQ(QApplication::focusWidget(), focused);
        expectHighlight();
    }
}

TEST_F(TextBoxTest, IsNotSelectedByTheTabKey)
{
    box_.SetText("12345");
    box_.SetCaretPosition(2);
    for (const auto modifier : { Qt::NoModifier, Qt::ShiftModifier, Qt::ShiftModifier, Qt::NoModifier }) {
        Press(Qt::Key_Tab, modifier);
        EXPECT_FALSE(box_.hasSelectedText());
        EXPECT_EQ(box_.CaretPosition(), 2);
    }
    EXPECT_EQ(FocusName(), "Box");
    Type(QStringLiteral("9"));
    EXPECT_EQ(box_.Text(), "129345");
}

TEST_F(TextBoxTest, TellsWheneverTheFocusComes)
{
    const QSignalSpy gotFocus(&box_, &TextBox::GotFocus);
    Press(Qt::Key_Tab);
    EXPECT_EQ(gotFocus.count(), 0);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(gotFocus.count(), 1) << "by Tab";
    button_.setFocus();
    box_.setFocus();
    EXPECT_EQ(gotFocus.count(), 2) << "by the program";
    box_.setFocus();
    EXPECT_EQ(gotFocus.count(), 2) << "it has it";
    Click(form_, QStringLiteral("Other"));
    Click(form_, QStringLiteral("Box"));
    EXPECT_EQ(gotFocus.count(), 3) << "by a click";
    for (const auto reason : { Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason }) {
        button_.setFocus();
        box_.setFocus(reason);
        EXPECT_EQ(FocusName(), "Box");
        EXPECT_EQ(gotFocus.count(), 3) << "given back by a window, a menu or a message: " << reason;
    }
    QObject::connect(&box_, &TextBox::GotFocus, &form_, [this] { other_.setFocus(); });
    button_.setFocus();
    box_.setFocus();
    EXPECT_EQ(FocusName(), "Other") << "it can be passed on as soon as it comes";
}

TEST_F(TextBoxTest, TakesNoMoreTypingOrPastingThanItsLimit)
{
    box_.SetMaximumTypedLength(3);
    Type(QStringLiteral("12345"));
    EXPECT_EQ(box_.Text(), "123");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    QApplication::clipboard()->setText(QStringLiteral("6789"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), "167");
    box_.SetMaximumTypedLength(4);
    Type(QStringLiteral("456"));
    EXPECT_EQ(box_.Text(), "1674") << "the limit is raised";
    box_.SetText("1234567");
    box_.SetMaximumTypedLength(3);
    EXPECT_EQ(box_.Text(), "1234567") << "what the program writes has none";
    box_.SelectWholeText();
    Type(QStringLiteral("6789"));
    EXPECT_EQ(box_.Text(), "678");
}

TEST_F(TextBoxTest, TakesNoTypingIntoATextThatTheProgramWroteLongerThanTheLimitUntilItIsShorter)
{
    box_.SetMaximumTypedLength(3);
    box_.SetText("12345");
    typeAtEnd(QStringLiteral("6"));
    EXPECT_EQ(box_.Text(), "12345");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(box_.Text(), "1234");
    Type(QStringLiteral("6"));
    EXPECT_EQ(box_.Text(), "1234") << "what was taken away makes no room";
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    Type(QStringLiteral("678"));
    EXPECT_EQ(box_.Text(), "126");
    for (const auto& [written, after] : { std::pair { "123", "123" }, { "1", "167" } }) {
        box_.SetText("12345");
        box_.SetText(written);
        typeAtEnd(QStringLiteral("678"));
        EXPECT_EQ(box_.Text(), after) << "after a shorter text from the program";
    }
}

TEST_F(TextBoxTest, MakesNoRoomByCuttingAwayByMouseEither)
{
    box_.SetMaximumTypedLength(3);
    QApplication::clipboard()->setText(QStringLiteral("6789"));
    for (const bool pasted : { true, false }) { // as the context menu does
        box_.SetText("12345");
        box_.setSelection(0, 3);
        pasted ? box_.del() : box_.cut();
        EXPECT_EQ(box_.Text(), "45");
        pasted ? box_.paste() : Type(QStringLiteral("6789"));
        EXPECT_EQ(box_.Text(), "645");
    }
}

TEST_F(TextBoxTest, TellsOnceOfATextFromTheProgramWhateverTheLimit)
{
    box_.SetMaximumTypedLength(3);
    const std::vector<std::string> texts { "1234567", "12", "123456789", "" };
    std::vector<std::string> told;
    QObject::connect(&box_, &TextBox::textChanged, &form_, [&] { told.push_back(box_.Text()); });
    for (const std::string& text : texts) {
        box_.SetText(text);
    }
    EXPECT_EQ(told, texts);
}

TEST_F(TextBoxTest, KeepsCaretAndHighlightWhenItsLimitOrATextLongerThanTheLimitIsChanged)
{
    box_.SetText("123456");
    box_.SetCaretPosition(3);
    for (const int limit : { 8, 2 }) {
        box_.SetMaximumTypedLength(limit);
        EXPECT_EQ(box_.CaretPosition(), 3);
    }
    for (const auto& [key, text] : { std::pair(Qt::Key_Backspace, "12456"), { Qt::Key_Delete, "1256" } }) {
        Press(key);
        EXPECT_EQ(box_.Text(), text);
        EXPECT_EQ(box_.CaretPosition(), 2);
    }
    box_.setSelection(0, 2);
    Type(QStringLiteral("9"));
    EXPECT_EQ(box_.Text(), "956");
    EXPECT_EQ(box_.CaretPosition(), 1);
    box_.SelectWholeText();
    box_.SetMaximumTypedLength(7);
    EXPECT_EQ(box_.selectedText().toStdString(), "956");
}

class FittingTest : public TextBoxTest {
protected:
    static constexpr int designPixels = 16;

    // Whether the first and the last character are both inside the box, with its caret at either end.
    bool showsWholeText()
    {
        const int caret = box_.cursorPosition();
        bool whole = true;
        for (const int end : { 0, static_cast<int>(box_.text().size()) }) {
            box_.SetCaretPosition(end);
            box_.grab();
            const int middle = box_.height() / 2;
            whole = whole && box_.cursorPositionAt(QPoint(1, middle)) == 0
                && box_.cursorPositionAt(QPoint(box_.width() - 1, middle)) == box_.text().size();
        }
        box_.SetCaretPosition(caret);
        return whole;
    }

    int pixels() const { return box_.font().pixelSize(); }

    void place(TwipsRect rect)
    {
        form_.Area().Move(&box_, rect);
        QCoreApplication::processEvents();
    }

    // Makes the window so many times as large as it is by design.
    void scale(double factor)
    {
        form_.resize(QSize(400, 200) * factor);
        QCoreApplication::processEvents();
    }
};

TEST_F(FittingTest, WritesATextTooWideSmallerAndLargerAgain)
{
    Type(QStringLiteral("123456789012"));
    EXPECT_LT(pixels(), designPixels);
    EXPECT_TRUE(showsWholeText());
    QFont larger = box_.font();
    larger.setPixelSize(pixels() + 1);
    constexpr int margins = 2 * 5; // a frame and what is free beside the text
    EXPECT_GT(QFontMetrics(larger).horizontalAdvance(box_.text()), box_.width() - margins) << "no smaller than it must";
    for (int i = 0; i < 6; ++i) {
        Press(Qt::Key_Backspace);
    }
    EXPECT_EQ(pixels(), designPixels) << "while it is typed";
    for (const auto alignment : { Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter }) {
        box_.setAlignment(alignment);
        box_.SetText("12345678901");
        const int smaller = pixels();
        EXPECT_LT(smaller, designPixels);
        EXPECT_TRUE(showsWholeText());
        box_.SetText("1234567890123");
        EXPECT_LT(pixels(), smaller);
        EXPECT_TRUE(showsWholeText());
        box_.SetText("12345678901");
        EXPECT_EQ(pixels(), smaller);
        box_.SetText("1234567");
        EXPECT_EQ(pixels(), designPixels);
        EXPECT_TRUE(showsWholeText());
    }
    box_.setTextMargins(20, 0, 20, 0);
    box_.SetText("7654321");
    EXPECT_LT(pixels(), designPixels) << "no room beside its margins";
    EXPECT_TRUE(showsWholeText());
}

TEST_F(FittingTest, StaysReadableAndScrollsALongerTextUnlessItIsACalculationThatCanBeMadeOut)
{
    const std::string tooLong(16, '8');
    const std::string muchTooLong(100, '8');
    box_.SetText(tooLong);
    EXPECT_EQ(pixels(), 11);
    EXPECT_FALSE(showsWholeText());
    box_.SetText(muchTooLong);
    EXPECT_EQ(pixels(), 11);
    EXPECT_EQ(box_.Text(), muchTooLong);
    EXPECT_FALSE(showsWholeText());
    scale(2);
    EXPECT_EQ(pixels(), 22);

    box_.StayWhole();
    EXPECT_EQ(pixels(), 12);
    scale(1);
    EXPECT_EQ(pixels(), 6);
    EXPECT_FALSE(showsWholeText());
    box_.SetText(tooLong);
    EXPECT_LT(pixels(), 11);
    EXPECT_TRUE(showsWholeText());
}

TEST_F(FittingTest, FitsAgainAndKeepsCaretAndHighlightWhenTheBoxIsResizedOrDressedAgain)
{
    box_.SetText("12345678901");
    const int smaller = pixels();
    box_.SelectWholeText();
    place({ 300, 300, 1320, 495 });
    EXPECT_EQ(box_.selectedText().toStdString(), "12345678901");
    EXPECT_LT(pixels(), smaller);
    EXPECT_TRUE(showsWholeText());
    box_.SetCaretPosition(3);
    place({ 300, 300, 3000, 495 });
    EXPECT_EQ(box_.CaretPosition(), 3);
    EXPECT_EQ(pixels(), designPixels);
    EXPECT_TRUE(showsWholeText());

    place(boxPlace);
    form_.Area().Place(&box_, boxPlace, { "Courier", 6 });
    EXPECT_EQ(pixels(), 8);
    form_.Area().Place(&box_, boxPlace, { "Courier", 18 });
    EXPECT_LT(pixels(), designPixels);
    EXPECT_TRUE(showsWholeText());
    box_.SetText("1");
    EXPECT_EQ(pixels(), 24);
}

TEST_F(FittingTest, WritesAShortTextAsSmallAsTheColumnsItStandsInAsk)
{
    box_.SetText("12345678901");
    const int smaller = pixels();
    box_.SetText("1");
    box_.SetLeastColumns(11);
    EXPECT_EQ(pixels(), smaller);
    box_.SetText("123");
    EXPECT_EQ(pixels(), smaller);
    box_.SetText("1234567890123");
    EXPECT_LT(pixels(), smaller) << "a longer text is seen whole all the same";
    EXPECT_TRUE(showsWholeText());
    box_.SetText("");
    EXPECT_EQ(pixels(), smaller);
    box_.SetLeastColumns(0);
    EXPECT_EQ(pixels(), designPixels);
}

TEST_F(FittingTest, GrowsAndShrinksWithItsWindowAlikeWithOtherBoxesThatStandInColumns)
{
    box_.SetText("123456789012");
    const int smaller = pixels();
    other_.SetLeastColumns(12);
    other_.SetText("7");
    for (const double factor : { 1.0, 0.7, 1.6, 2.0, 1.0 }) {
        scale(factor);
        EXPECT_NEAR(pixels(), smaller * factor, 3); // where letters are hinted, they grow by whole pixels
        EXPECT_EQ(other_.font().pixelSize(), pixels()) << factor;
        EXPECT_TRUE(showsWholeText()) << factor;
    }
    EXPECT_EQ(pixels(), smaller);
    scale(2);
    box_.SetText("1");
    EXPECT_EQ(pixels(), 2 * designPixels);
    scale(1);
    EXPECT_EQ(pixels(), designPixels);
}

TEST_F(TextBoxTest, ABlankAtEitherEndOfATextTakesItsPlaceHoweverTheTextIsAligned)
{
    // How far from the left edge of the box this character of a text stands, in pixels.
    const auto placeOf = [this](const char* text, int character) {
        box_.SetText(text);
        box_.SetCaretPosition(character);
        box_.grab(); // a line edit finds its place when it is painted
        return box_.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
    };
    box_.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(placeOf("456 ", 0), placeOf("4567", 0));
    EXPECT_NE(placeOf("456", 0), placeOf("4567", 0));
    EXPECT_NE(placeOf("4567 ", 0), placeOf("4567", 0));
    box_.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    EXPECT_EQ(placeOf(" 5", 1), placeOf("45", 1));
    box_.setAlignment(Qt::AlignCenter);
    const int start = placeOf("456", 0);
    const int advance = QFontMetrics(box_.font()).horizontalAdvance(u'0');
    EXPECT_NEAR(placeOf(" 456 ", 1), start, 1);
    EXPECT_NEAR(placeOf("  456", 2), start + advance, 1);
    EXPECT_NEAR(placeOf("456  ", 0), start - advance, 1);
}

} // namespace

} // namespace numbrela
