#include "common/screen/TextArea.h"

#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QScrollBar>
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
