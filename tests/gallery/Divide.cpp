#include "activities/divide/screen/Form5.h"
#include "activities/divide/screen/WorkingGridBox.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

#include <QDialog>
#include <QLineEdit>

namespace numbrela::testing {

namespace {

void enter(int key, const QString& title, const QString& number)
{
    ExpectDialog([=](QDialog& box) {
        EXPECT_EQ(box.windowTitle().toStdString(), title.toStdString());
        box.findChild<QLineEdit*>()->setText(number);
        box.accept();
    });
    Press(key);
}

// 9876 ÷ 12 = 823, the rest 0
void enterDivision()
{
    enter(Qt::Key_F2, QStringLiteral("Introducir dividendo"), QStringLiteral("9876"));
    enter(Qt::Key_F3, QStringLiteral("Introducir divisor"), QStringLiteral("12"));
}

// Into the grid, which has the focus.
void typeRow(int row, const QString& text)
{
    Press(Qt::Key_PageUp);
    Press(Qt::Key_Home);
    for (int step = 0; step < row; ++step) {
        Press(Qt::Key_Down);
    }
    Type(text);
}

// Without the empty paper below the working, which is to be read in print.
void drawWorking(Gallery& gallery, Form5& form, const QString& name)
{
    gallery.Draw(form, name);
    const auto placeOf
        = [&form](const QWidget* control) { return QRect(control->mapTo(&form, QPoint()), control->size()); };
    QRect working = placeOf(form.Text1) | placeOf(form.Text3) | placeOf(form.Buttons.Command2[0]);
    working.setBottom(placeOf(form.Buttons.Command2[2]).bottom());
    gallery.DrawAround(form, working, name + QStringLiteral("-part"));
}

// 74,14 ÷ 5 = 14,82, the rest 0,04: what this time of day draws. The column of the comma is passed over by itself.
void drawComma(Gallery& gallery)
{
    const FixedClock clock({ 9, 25, 30, 33930 });
    bool commaShift = false;
    Form5 form(clock, commaShift);
    ShowAndActivate(form);
    typeRow(1, QStringLiteral(" 24"));
    typeRow(2, QStringLiteral("  41"));
    typeRow(3, QStringLiteral("   14"));
    typeRow(4, QStringLiteral("    4"));
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    Type("14,82");
    Click(form, "Command1");
    drawWorking(gallery, form, QStringLiteral("division-comma"));
}

void typeQuotient()
{
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    Type("823");
}

void drawWholeNumbers(Gallery& gallery, Form5& form)
{
    ShowAndActivate(form);
    Choose(form, "MnuOpcDeDLis(0)");
    Click(form, "Command2(0)");
    enterDivision();
    typeRow(1, QStringLiteral("  27"));
    typeRow(2, QStringLiteral("   3"));
    gallery.DrawBoth(form, QStringLiteral("division-half"));

    typeRow(2, QStringLiteral("   36"));
    typeRow(3, QStringLiteral("    0"));
    typeQuotient();
    Click(form, "Command1");
    drawWorking(gallery, form, QStringLiteral("division-right"));

    Click(form, "Command2(0)");
    enterDivision();
    typeRow(1, QStringLiteral("  27"));
    typeRow(2, QStringLiteral("   36"));
    typeRow(3, QStringLiteral("    1"));
    typeQuotient();
    Click(form, "Command1");
    gallery.Draw(form, QStringLiteral("division-wrong"));
    form.close();
}

void drawSolutions(Gallery& gallery, Form5& form)
{
    ShowAndActivate(form);
    Choose(form, "MnuOpcDeDLis(0)");
    enterDivision();
    Click(form, "Command2(2)");
    gallery.Draw(form, QStringLiteral("division-solution"));
    Choose(form, "MnuOpcRes");
    enterDivision();
    Click(form, "Command2(2)");
    gallery.Draw(form, QStringLiteral("division-solution-subtractions"));
    gallery.DrawMaximised(form, QStringLiteral("division-solution-maximised"));
}

void drawLongest(Gallery& gallery, Form5& form)
{
    Choose(form, "MnuOpcDivLis(8)");
    Choose(form, "MnuOpcDeDLis(5)");
    Choose(form, "MnuOpcDisLis(8)");
    gallery.DrawBoth(form, QStringLiteral("division-longest"));
    gallery.DrawWithKeypad(form, QStringLiteral("division-longest-keypad"));
    Choose(form, "MnuOpcDeCLis(5)");
    Choose(form, "MnuOpcDisLis(1)");
    Click(form, "Command2(2)");
    gallery.DrawBoth(form, QStringLiteral("division-longest-solution"));
}

} // namespace

void DrawDivide(Gallery& gallery)
{
    drawComma(gallery);
    const FixedClock clock;
    bool commaShift = false;
    Form5 form(clock, commaShift);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("division-fresh"));
    gallery.DrawWithKeypad(form, QStringLiteral("division-keypad"));
    gallery.DrawNextBox(QStringLiteral("division-entry"));
    Press(Qt::Key_F2);
    Click(form, "Command2(2)");
    gallery.Draw(form, QStringLiteral("division-solution-decimals"));
    form.close();

    commaShift = false;
    Form5 worked(clock, commaShift);
    drawWholeNumbers(gallery, worked);
    Form5 solved(clock, commaShift);
    drawSolutions(gallery, solved);
    drawLongest(gallery, solved);
}

} // namespace numbrela::testing
