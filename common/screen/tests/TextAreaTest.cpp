#include "common/screen/TextArea.h"

#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace numbrela {

namespace {

using namespace testing;

std::string longText()
{
    std::string text;
    for (int line = 0; line < 50; ++line) {
        text += "una línea\n";
    }
    return text;
}

void turnWheel(const TextArea& area, int eighthsOfADegree, Qt::KeyboardModifiers with)
{
    QWheelEvent turn(QPointF(5, 5), area.mapToGlobal(QPointF(5, 5)), {}, { 0, eighthsOfADegree }, Qt::NoButton, with,
        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(area.viewport(), &turn);
}

// An area of two lines that has the focus, and a box.
class TextAreaTest : public ::testing::Test {
protected:
    TextAreaTest()
    {
        area_.resize(200, 60);
        box_.move(0, 100);
        ShowAndActivate(window_);
        area_.setFocus();
    }

    QWidget window_;
    TextArea& area_ = *new TextArea(&window_);
    TextBox& box_ = *new TextBox(&window_);
};

TEST_F(TextAreaTest, ShowsATextTakesNoTypingAndIsLeftByTab)
{
    area_.SetText("(1) Un  bollo   \nPulsa");
    EXPECT_EQ(area_.Text(), "(1) Un  bollo   \nPulsa");
    Type(QStringLiteral("x"));
    Press(Qt::Key_Delete);
    EXPECT_EQ(area_.Text(), "(1) Un  bollo   \nPulsa");
    Press(Qt::Key_Tab);
    EXPECT_TRUE(box_.hasFocus());
}

TEST_F(TextAreaTest, AHighlightIsMadeByKeysTooAndStaysWhateverHasTheFocus)
{
    area_.SetText("Sume los precios");
    for (const bool byKeys : { false, true }) {
        area_.setFocus();
        byKeys ? Press(Qt::Key_End, Qt::ShiftModifier) : area_.SelectWholeText();
        box_.setFocus();
        EXPECT_EQ(area_.textCursor().selectedText(), QStringLiteral("Sume los precios"));
        area_.SetText("Sume los precios");
        EXPECT_FALSE(area_.textCursor().hasSelection());
    }
}

TEST_F(TextAreaTest, AFingerScrollsItAndHighlightsNothingAndAMouseHighlights)
{
    area_.SetText(longText());
    box_.setFocus();
    const int lineHeight = area_.fontMetrics().lineSpacing();
    DragByFinger(*area_.viewport(), { 20, 50 }, { 20, 50 - lineHeight });
    EXPECT_EQ(area_.verticalScrollBar()->value(), lineHeight);
    EXPECT_FALSE(area_.textCursor().hasSelection());
    EXPECT_TRUE(area_.hasFocus());
    DragByFinger(*area_.viewport(), { 20, 10 }, { 20, 55 });
    EXPECT_EQ(area_.verticalScrollBar()->value(), 0);
    DragByMouse(*area_.viewport(), { 5, 10 }, { 100, 10 });
    EXPECT_TRUE(area_.textCursor().hasSelection());
    EXPECT_EQ(area_.verticalScrollBar()->value(), 0);
}

// While a text is dragged, the release of a key is not heard.
TEST_F(TextAreaTest, AMouseDragsNoHighlightAwayButBeginsANewOneThere)
{
    area_.SetText(longText());
    area_.SelectWholeText();
    area_.verticalScrollBar()->setValue(area_.fontMetrics().lineSpacing() / 2);
    const int before = area_.verticalScrollBar()->value();
    DoSoon(window_, [] { Press(Qt::Key_Escape); }); // in the loop of a drag, which it would end
    const QPoint inLastLine(5, area_.viewport()->height() - 2); // which is not seen whole
    const int from = area_.cursorForPosition(inLastLine).position();
    DragByMouse(*area_.viewport(), inLastLine, inLastLine + QPoint(40, 0));
    EXPECT_EQ(area_.textCursor().anchor(), from);
    EXPECT_EQ(area_.textCursor().position(), area_.cursorForPosition(inLastLine + QPoint(40, 0)).position());
    EXPECT_EQ(area_.verticalScrollBar()->value(), before);
}

TEST_F(TextAreaTest, AMouseHighlightsMoreByShiftAWordByTwoClicksAndALineByThreeToBeCopied)
{
    area_.SetText("Sume los precios");
    area_.moveCursor(QTextCursor::NextWord, QTextCursor::KeepAnchor);
    QTest::mouseClick(area_.viewport(), Qt::LeftButton, Qt::ShiftModifier, { 190, 10 });
    EXPECT_EQ(area_.textCursor().selectedText(), QStringLiteral("Sume los precios"));
    const QPoint place(5, 10);
    QTest::mouseDClick(area_.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(area_.textCursor().selectedText(), QStringLiteral("Sume"));
    QTest::mouseClick(area_.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(area_.textCursor().selectedText(), QStringLiteral("Sume los precios"));
    QTest::mouseClick(area_.viewport(), Qt::RightButton, {}, place);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Sume los precios"));
}

TEST_F(TextAreaTest, APenThatIsNearItButDoesNotTouchItScrollsNothing)
{
    area_.SetText(longText());
    Tap(*area_.viewport(), { 20, 50 });
    const int before = area_.verticalScrollBar()->value();
    SendPen(QEvent::MouseMove, *area_.viewport(), { 20, 10 }, Qt::NoButton);
    EXPECT_EQ(area_.verticalScrollBar()->value(), before);
}

TEST_F(TextAreaTest, ATapGivesItTheFocusAndTakesAHighlightAway)
{
    area_.SetText("Sume los precios");
    area_.SelectWholeText();
    box_.setFocus();
    Tap(*area_.viewport());
    EXPECT_TRUE(area_.hasFocus());
    EXPECT_FALSE(area_.textCursor().hasSelection());
    EXPECT_TRUE(area_.textCursor().atEnd());
}

TEST_F(TextAreaTest, OfALongHighlightTheBeginningIsInViewAndTheWheelScrollsIt)
{
    area_.SetText(longText());
    area_.SelectWholeText();
    EXPECT_EQ(area_.verticalScrollBar()->value(), 0);
    turnWheel(area_, -120, Qt::NoModifier);
    EXPECT_GT(area_.verticalScrollBar()->value(), 0);
}

TEST_F(TextAreaTest, NoTurnOfTheWheelChangesItsFont)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(13);
    area_.setFont(font);
    area_.SetText("Sume los precios");
    turnWheel(area_, 4 * 120, Qt::ControlModifier);
    EXPECT_EQ(area_.font(), font);
}

} // namespace

} // namespace numbrela
