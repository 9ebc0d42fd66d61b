#include "activities/addsub/core/ColumnExercise.h"
#include "activities/addsub/screen/ColumnForm.h"

#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMenuBar>

#include <array>

namespace numbrela {

namespace {

using namespace testing;

constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec headingFont { "Arial", 14.25 };
constexpr FontSpec smallFont { "Arial", 9.75 };

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
    const char* Name;
    const char* Title;
    int AreaHeight; // twips
    const char* Heading;
    bool HeadingReadOnly;
    const char* Sign;
    double OperandPoints;
    std::array<const char*, 3> NumberNames; // of the operands and the result
    std::array<const char*, 3> LastItems; // of the menu
};

void expectTable(ColumnForm& form, const OperandTexts& operands, const Differences& own)
{
    ShowAndActivate(form);
    QCoreApplication::sendPostedEvents(); // nothing is left to lay out
    EXPECT_EQ(form.objectName().toStdString(), own.Name);
    EXPECT_EQ(form.windowTitle().toStdString(), own.Title);
    // The area below the menu bar at the design size.
    constexpr int twipsPerPixel = 15;
    EXPECT_EQ(form.width(), 4875 / twipsPerPixel);
    EXPECT_EQ(form.height() - form.findChild<QMenuBar*>()->height(), own.AreaHeight / twipsPerPixel);

    const FontSpec operandFont { "Courier", own.OperandPoints };
    const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    const auto& [operand1, operand2, result] = own.NumberNames;
    const auto button = [](const char* name, const char* caption, int top, QColor colour) {
        return ControlRow {
            .Name = name, .Text = caption, .Place = { 1750, top, 1500, 495 }, .Font = smallFont, .BackColour = colour
        };
    };
    ExpectControls(form,
        {
            { "Text1", own.Heading, { 500, 500, 4000, 495 }, headingFont, Qt::AlignCenter, own.HeadingReadOnly, true,
                {}, "Instrucción" },
            { "Text2(0)", operands.Upper.c_str(), { 1500, 1500, 2000, 495 }, operandFont, right, true, false, {},
                operand1 },
            { "Label1", own.Sign, { 1000, 2000, 500, 495 }, formFont, {}, false, false },
            { "Text2(1)", operands.Lower.c_str(), { 1500, 2000, 2000, 495 }, operandFont, right, true, false, {},
                operand2 },
            { "Text3", "", { 1500, 2500, 2000, 495 }, formFont, right, false, true, {}, result },
            button("Command1", "&Hecho", 3500, { 255, 255, 0 }),
            { "Text4", "", { 1500, 4000, 2000, 495 }, smallFont, Qt::AlignCenter, true, true, {}, "Veredicto" },
            button("Command2(0)", "&Continuar", 4500, { 0, 255, 255 }),
            button("Command2(1)", "&Borrar", 5000, { 0, 255, 0 }),
            button("Command2(2)", "&Ver solución", 5500, { 255, 0, 0 }),
            { "tbResultados", "Ejercicios:  0; Errores:  0", { 1000, 6500, 3000, 495 }, formFont, Qt::AlignCenter, true,
                true, {}, "Marcador" },
        });
    ExpectMenus(form,
        {
            "MnuOpc &Opciones",
            "  MnuOpcCif &Cifras: &1 &2 &3* &4 &5 &6 &7",
            "  MnuOpcDec &Decimales: &0 &1 &2* &3 &4 &5 &6",
            own.LastItems[0],
            own.LastItems[1],
            own.LastItems[2],
        });
}

TEST(ColumnFormTable, Form2HasTheControlsAndMenusOfAnAddition)
{
    const FixedClock clock;
    Form2 form(clock);
    expectTable(form, firstOperands(Operation::Addition, clock),
        { "Form2", "SUMAS", 7695, "Realiza la siguiente suma", false, "+", 15,
            { "Primer sumando", "Segundo sumando", "Suma" },
            { "  MnuOpcIn1 &Introducir primer sumando [F2]", "  MnuOpcIn2 I&ntroducir segundo sumando [F3]",
                "  MnuOpcSal &Salir (Alt - F4)" } });
}

TEST(ColumnFormTable, Form3HasTheControlsAndMenusOfASubtraction)
{
    const FixedClock clock;
    Form3 form(clock);
    expectTable(form, firstOperands(Operation::Subtraction, clock),
        { "Form3", "RESTAS", 7500, "Realiza la siguiente resta", true, "-", 12,
            { "Minuendo", "Sustraendo", "Diferencia" },
            { "  MnuOpcIn1 &Introducir minuendo [F2]", "  MnuOpcIn2 I&ntroducir sustraendo [F3]",
                "  MnuOpcSal &Salir (Alt-F4)" } });
}

} // namespace

} // namespace numbrela
