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

TEST(TextAreaTest, ShowsATextAndTakesNoTyping)
{
    TextArea area;
    area.SetText("(1) Un  bollo   \nPulsa");
    EXPECT_EQ(area.Text(), "(1) Un  bollo   \nPulsa");
    ShowAndActivate(area);
    Type(QStringLiteral("x"));
    Press(Qt::Key_Delete);
    EXPECT_EQ(area.Text(), "(1) Un  bollo   \nPulsa");
}

TEST(TextAreaTest, AHighlightStaysWhateverHasTheFocus)
{
    QWidget window;
    auto* area = new TextArea(&window);
    auto* box = new TextBox(&window);
    area->SetText("Sume los precios");
    area->SelectWholeText();
    ShowAndActivate(window);
    area->setFocus();
    box->setFocus();
    EXPECT_EQ(area->textCursor().selectedText(), QStringLiteral("Sume los precios"));
    area->SetText("otro");
    EXPECT_FALSE(area->textCursor().hasSelection());
}

TEST(TextAreaTest, OfALongHighlightTheBeginningIsInView)
{
    TextArea area;
    area.resize(200, 60);
    ShowAndActivate(area);
    area.SetText(longText());
    area.SelectWholeText();
    EXPECT_EQ(area.verticalScrollBar()->value(), 0);
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
}

TEST(TextAreaTest, TheWheelScrollsIt)
{
    TextArea area;
    area.resize(200, 60);
    ShowAndActivate(area);
    area.SetText(longText());
    turnWheel(area, -120, Qt::NoModifier);
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
}

TEST(TextAreaTest, NoTurnOfTheWheelChangesItsFont)
{
    TextArea area;
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(13);
    area.setFont(font);
    area.SetText("Sume los precios");
    ShowAndActivate(area);
    turnWheel(area, 4 * 120, Qt::ControlModifier);
    EXPECT_EQ(area.font(), font);
}

TEST(TextAreaTest, ItsTextIsSelectedByKeys)
{
    TextArea area;
    area.SetText("Sume los precios");
    ShowAndActivate(area);
    Press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(area.textCursor().selectedText(), QStringLiteral("Sume los precios"));
}

TEST(TextAreaTest, TabLeavesIt)
{
    QWidget window;
    auto* area = new TextArea(&window);
    auto* box = new TextBox(&window);
    ShowAndActivate(window);
    area->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_TRUE(box->hasFocus());
}

} // namespace

} // namespace numbrela
