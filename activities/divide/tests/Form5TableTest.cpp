#include "activities/divide/screen/Form5.h"

#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace numbrela {

namespace {

using namespace testing;

constexpr FontSpec digitFont { "Courier New", 14.25 };
constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec smallFont { "Arial", 9.75 };
constexpr Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment centre = Qt::AlignCenter;

TEST(Form5Table, ControlsStandWhereTheBracketWantsThemAndMenusOfferTheOptionsWithTheirDefaultsChecked)
{
    const FixedClock clock;
    bool commaShift = false;
    Form5 form(clock, commaShift);
    ShowAndActivate(form);
    QCoreApplication::processEvents(); // let the layout settle
    EXPECT_EQ(form.windowTitle(), QStringLiteral("DIVISIONES"));
    EXPECT_EQ(form.objectName(), QStringLiteral("Form5"));
    const auto button = [](const char* name, const char* caption, int top, QColor colour) {
        return ControlRow { name, caption, { 3000, top, 2000, 495 }, smallFont, {}, false, true, colour };
    };
    ExpectControls(form,
        {
            { "Text1", "", { 1275, 500, 1320, 7000 }, digitFont, {}, false, true, {}, "Dividendo y operaciones" },
            { "Text2", "2", { 2600, 500, 2100, 435 }, digitFont, left, true, true, {}, "Divisor" },
            { "Text3", "", { 2600, 935, 2100, 435 }, digitFont, left, false, true, {}, "Cociente" },
            button("Command1", "&Hecho", 2000, { 255, 255, 0 }),
            { "Text4", "86,18 ÷ 2", { 3000, 2500, 2000, 495 }, smallFont, {}, true, true, {}, "Enunciado y veredicto" },
            button("Command2(0)", "&Continuar", 3000, { 0, 255, 255 }),
            button("Command2(1)", "&Borrar", 3500, { 0, 255, 0 }),
            button("Command2(2)", "&Ver solucióm", 4000, { 255, 0, 0 }),
            { "tbResultados", "Ejercicios:  0; Errores:  0", { 2700, 7500, 2800, 495 }, formFont, centre, true, true,
                {}, "Marcador" },
            { "Line1", "", { 2585, 485, 30, 465 }, formFont, {}, false, false },
            { "Line2", "", { 2585, 920, 2130, 30 }, formFont, {}, false, false },
        });
    ExpectMenus(form,
        {
            "MnuOpc &Opciones",
            "  MnuOpcDiv &Cifras del dividendo: &1 &2* &3 &4 &5 &6 &7 &8 &9",
            "  MnuOpcDeD &Decimales del dividendo: &0 &1 &2* &3 &4 &5",
            "  MnuOpcDis C&ifras del divisor: &1* &2 &3 &4 &5 &6 &7 &8 &9",
            "  MnuOpcDeC &Decimales del cociente: &0* &1 &2 &3 &4 &5",
            "  MnuOpcRes &Restas intermedias (No)",
            "  MnuOpcInt I&ntroducir dividendo [F2]",
            "  MnuOpcInd In&troducir divisor [F3]",
            "  MnuOpcSal &Salir (Alt - F4)",
        });
}

} // namespace

} // namespace numbrela
