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
    std::string text;
    for (int line = 0; line < 50; ++line) {
        text += "una línea\n";
    }
    ShowAndActivate(area);
    area.SetText(text);
    area.SelectWholeText();
    EXPECT_EQ(area.verticalScrollBar()->value(), 0);
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
}

TEST(TextAreaTest, NoTurnOfTheWheelChangesItsFont)
{
    TextArea area;
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(13);
    area.setFont(font);
    area.SetText("Sume los precios");
    ShowAndActivate(area);
    QWheelEvent turn(QPointF(5, 5), area.mapToGlobal(QPointF(5, 5)), {}, { 0, 4 * 120 }, Qt::NoButton,
        Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(area.viewport(), &turn);
    EXPECT_EQ(area.font(), font);
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
