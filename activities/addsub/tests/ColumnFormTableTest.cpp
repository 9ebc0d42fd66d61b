#include "activities/addsub/core/ColumnExercise.h"
#include "activities/addsub/screen/ColumnForm.h"

#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMenuBar>

#include <string>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr int twipsPerPixel = 15;
constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec headingFont { "Arial", 14.25 };
constexpr FontSpec smallFont { "Arial", 9.75 };

const QColor yellow(255, 255, 0);
const QColor cyan(0, 255, 255);
const QColor green(0, 255, 0);
const QColor red(255, 0, 0);

// The two operands that a window draws first at this time of day.
OperandTexts firstOperands(Operation operation, const Clock& clock)
{
    SeededRandom random(clock.Now().SeedProduct());
    ColumnExercise exercise(operation, random);
    exercise.Generate();
    return exercise.DrawnTexts();
}

// What differs between the two windows.
struct Differences {
    const char* Heading;
    bool HeadingReadOnly;
    const char* Sign;
    double OperandPoints;
    const char* Operand1;
    const char* Operand2;
    const char* Result;
};

void expectControls(const ColumnForm& form, const OperandTexts& operands, const Differences& own)
{
    const FontSpec operandFont { "Courier", own.OperandPoints };
    const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    ExpectControls(form,
        {
            { .Name = "Text1",
                .Text = own.Heading,
                .Place = { 500, 500, 4000, 495 },
                .Font = headingFont,
                .ReadOnly = own.HeadingReadOnly,
                .AccessibleName = "Instrucción" },
            { .Name = "Text2(0)",
                .Text = operands.Upper.c_str(),
                .Place = { 1500, 1500, 2000, 495 },
                .Font = operandFont,
                .Alignment = right,
                .ReadOnly = true,
                .TabStop = false,
                .AccessibleName = own.Operand1 },
            { .Name = "Label1",
                .Text = own.Sign,
                .Place = { 1000, 2000, 500, 495 },
                .Font = formFont,
                .TabStop = false },
            { .Name = "Text2(1)",
                .Text = operands.Lower.c_str(),
                .Place = { 1500, 2000, 2000, 495 },
                .Font = operandFont,
                .Alignment = right,
                .ReadOnly = true,
                .TabStop = false,
                .AccessibleName = own.Operand2 },
            { .Name = "Text3",
                .Text = "",
                .Place = { 1500, 2500, 2000, 495 },
                .Font = formFont,
                .Alignment = right,
                .AccessibleName = own.Result },
            { .Name = "Command1",
                .Text = "&Hecho",
                .Place = { 1750, 3500, 1500, 495 },
                .Font = smallFont,
                .BackColour = yellow },
            { .Name = "Text4",
                .Text = "",
                .Place = { 1500, 4000, 2000, 495 },
                .Font = smallFont,
                .ReadOnly = true,
                .AccessibleName = "Veredicto" },
            { .Name = "Command2(0)",
                .Text = "&Continuar",
                .Place = { 1750, 4500, 1500, 495 },
                .Font = smallFont,
                .BackColour = cyan },
            { .Name = "Command2(1)",
                .Text = "&Borrar",
                .Place = { 1750, 5000, 1500, 495 },
                .Font = smallFont,
                .BackColour = green },
            { .Name = "Command2(2)",
                .Text = "&Ver solución",
                .Place = { 1750, 5500, 1500, 495 },
                .Font = smallFont,
                .BackColour = red },
            { .Name = "tbResultados",
                .Text = "Ejercicios:  0; Errores:  0",
                .Place = { 1000, 6500, 3000, 495 },
                .Font = formFont,
                .ReadOnly = true,
                .AccessibleName = "Marcador" },
        });
}

std::vector<const char*> menusWith(const char* enterOperand1, const char* enterOperand2, const char* exit)
{
    return {
        "MnuOpc &Opciones",
        "  MnuOpcCif &Cifras",
        "    MnuOpcCifLis(0) &1",
        "    MnuOpcCifLis(1) &2",
        "    MnuOpcCifLis(2) &3 *",
        "    MnuOpcCifLis(3) &4",
        "    MnuOpcCifLis(4) &5",
        "    MnuOpcCifLis(5) &6",
        "    MnuOpcCifLis(6) &7",
        "  MnuOpcDec &Decimales",
        "    MnuOpcDecLis(0) &0",
        "    MnuOpcDecLis(1) &1",
        "    MnuOpcDecLis(2) &2 *",
        "    MnuOpcDecLis(3) &3",
        "    MnuOpcDecLis(4) &4",
        "    MnuOpcDecLis(5) &5",
        "    MnuOpcDecLis(6) &6",
        enterOperand1,
        enterOperand2,
        exit,
    };
}

// Shows a window, with nothing left to lay out.
void open(ColumnForm& form)
{
    ShowAndActivate(form);
    QCoreApplication::sendPostedEvents();
}

// The area below the menu bar at the design size.
void expectArea(const ColumnForm& form, int widthInTwips, int heightInTwips)
{
    EXPECT_EQ(form.width(), widthInTwips / twipsPerPixel);
    EXPECT_EQ(form.height() - form.findChild<QMenuBar*>()->height(), heightInTwips / twipsPerPixel);
}

TEST(ColumnFormTable, Form2HasTheControlsOfAnAddition)
{
    const FixedClock clock;
    Form2 form(clock);
    open(form);
    EXPECT_EQ(form.objectName().toStdString(), "Form2");
    EXPECT_EQ(form.windowTitle().toStdString(), "SUMAS");
    expectArea(form, 4875, 7695);
    expectControls(form, firstOperands(Operation::Addition, clock),
        { .Heading = "Realiza la siguiente suma",
            .HeadingReadOnly = false,
            .Sign = "+",
            .OperandPoints = 15,
            .Operand1 = "Primer sumando",
            .Operand2 = "Segundo sumando",
            .Result = "Suma" });
}

TEST(ColumnFormTable, Form3HasTheControlsOfASubtraction)
{
    const FixedClock clock;
    Form3 form(clock);
    open(form);
    EXPECT_EQ(form.objectName().toStdString(), "Form3");
    EXPECT_EQ(form.windowTitle().toStdString(), "RESTAS");
    expectArea(form, 4875, 7500);
    expectControls(form, firstOperands(Operation::Subtraction, clock),
        { .Heading = "Realiza la siguiente resta",
            .HeadingReadOnly = true,
            .Sign = "-",
            .OperandPoints = 12,
            .Operand1 = "Minuendo",
            .Operand2 = "Sustraendo",
            .Result = "Diferencia" });
}

TEST(ColumnFormTable, Form2HasTheMenusOfAnAddition)
{
    const FixedClock clock;
    const Form2 form(clock);
    ExpectMenus(form,
        menusWith("  MnuOpcIn1 &Introducir primer sumando [F2]", "  MnuOpcIn2 I&ntroducir segundo sumando [F3]",
            "  MnuOpcSal &Salir (Alt - F4)"));
}

TEST(ColumnFormTable, Form3HasTheMenusOfASubtraction)
{
    const FixedClock clock;
    const Form3 form(clock);
    ExpectMenus(form,
        menusWith("  MnuOpcIn1 &Introducir minuendo [F2]", "  MnuOpcIn2 I&ntroducir sustraendo [F3]",
            "  MnuOpcSal &Salir (Alt-F4)"));
}

} // namespace

} // namespace numbrela
