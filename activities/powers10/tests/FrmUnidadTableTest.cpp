#include "activities/powers10/screen/FrmUnidad.h"

#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace numbrela {

namespace {

using namespace testing;

constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec arithmeticFont { "Arial", 20 };

ControlRow datum(const char* name, const std::string& text, TwipsRect place, const char* spokenName)
{
    return { .Name = name,
        .Text = text.c_str(),
        .Place = place,
        .Font = arithmeticFont,
        .ReadOnly = true,
        .AccessibleName = spokenName };
}

ControlRow button(const char* name, const char* caption, int top, QColor colour)
{
    return { .Name = name, .Text = caption, .Place = { 2750, top, 2000, 500 }, .Font = formFont, .BackColour = colour };
}

TEST(FrmUnidadTable, EverythingStandsInItsPlace)
{
    const FixedClock clock;
    SeededRandom random(clock.Now().SecondsSinceMidnight);
    PowersOfTen first(random);
    first.NewPowerOfTenExercise();
    const std::string factor1 = first.Factor1Text();
    const std::string factor2 = first.Factor2Text();

    FrmUnidad form(clock);
    ShowAndActivate(form);
    QCoreApplication::sendPostedEvents(); // nothing is left to lay out
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmUnidad"));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("multiplicar y dividir por 10, 100, 1000"));
    ExpectControls(form,
        {
            { .Name = "TbInstruc",
                .Text = "Resuelve la operación",
                .Place = { 1500, 500, 4500, 500 },
                .Font = { "Arial", 14.25 },
                .ReadOnly = true,
                .AccessibleName = "Instrucción" },
            datum("TBDatos(0)", factor1, { 350, 1500, 1600, 700 }, "Número"),
            datum("TBDatos(1)", first.Sign(), { 2050, 1500, 700, 700 }, "Signo"),
            datum("TBDatos(2)", factor2, { 2850, 1500, 1300, 700 }, "Potencia de diez"),
            datum("TBDatos(3)", "=", { 4250, 1500, 500, 700 }, "Es igual a"),
            { .Name = "TBRespuesta",
                .Text = "",
                .Place = { 4850, 1500, 2300, 700 },
                .Font = arithmeticFont,
                .AccessibleName = "Resultado" },
            button("Command1", "&Hecho", 2700, QColor(255, 255, 0)),
            { .Name = "TBResultado",
                .Text = "",
                .Place = { 2250, 3350, 3000, 500 },
                .Font = formFont,
                .ReadOnly = true,
                .AccessibleName = "Veredicto" },
            button("Command2(0)", "&Continuar", 4000, QColor(0, 255, 255)),
            button("Command2(1)", "&Borrar", 4650, QColor(0, 255, 0)),
            button("Command2(2)", "&Ver solución", 5300, QColor(255, 0, 0)),
        });
}

} // namespace

} // namespace numbrela
