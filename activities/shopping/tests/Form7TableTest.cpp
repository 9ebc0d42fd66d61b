#include "activities/shopping/core/Money.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>

namespace numbrela {

namespace {

using namespace testing;

constexpr FontSpec arial12 { "Arial", 12 };
constexpr FontSpec arial18 { "Arial", 18 };
constexpr FontSpec heading { "Arial", 18, true };
constexpr FontSpec arial9 { "Arial", 9.75 };
constexpr FontSpec verdana12 { "Verdana", 12 };
constexpr FontSpec courier12 { "Courier New", 12 };

ControlRow still(const char* name, const char* text, TwipsRect place, FontSpec font = arial12)
{
    return { .Name = name, .Text = text, .Place = place, .Font = font, .TabStop = false };
}

ControlRow shop(const char* name, const char* caption, int left, int top, QColor colour, FontSpec font = arial12)
{
    return { .Name = name, .Text = caption, .Place = { left, top, 1500, 1500 }, .Font = font, .BackColour = colour };
}

ControlRow box(const char* name, TwipsRect place, FontSpec font, const char* spokenName)
{
    return { .Name = name, .Text = "", .Place = place, .Font = font, .AccessibleName = spokenName };
}

ControlRow shown(const char* name, const char* text, TwipsRect place)
{
    return { .Name = name, .Text = text, .Place = place, .Font = arial18, .ReadOnly = true };
}

ControlRow button(const char* name, const char* caption, TwipsRect place, QColor colour)
{
    return { .Name = name, .Text = caption, .Place = place, .Font = arial12, .BackColour = colour };
}

TEST(Form7TableTest, EveryControlStandsInItsPlace)
{
    const TemporaryFolder folder;
    Shop mall { folder / "productos.dat" };
    SaveCatalogue(mall.Catalogue, TableOf({ { "Pan", 1 }, { "Leche", 1 }, { "Sal", 1 }, { "Ajo", 1 } }));
    const FixedClock clock;
    const StillClocks stillClocks;
    Form7 form(clock, mall);
    ShowAndActivate(form);
    ExpectMenus(form,
        {
            "MnuOpc &Opciones",
            "  MnuOpcNum &Número de productos",
            "  MnuOpcUni Nú&mero de unidades",
            "  MnuOpcPro &Productos... [F3]",
            "  MnuOpcAdd &Añadir producto [F2]",
            "  MnuOpcSal &Salir (Alt - f4)",
        });
    const std::pair<const QLabel*, const char*> captions[]
        = { { form.Label1[0], "List1" }, { form.Label1[1], "TBTiempo" }, { form.Label1[2], "TBDinero" },
              { form.Label2, "Frame2" }, { form.LBDisponibles, "LIDisponibles" }, { form.LbCesta, "LICesta" } };
    for (const auto& [caption, control] : captions) {
        ASSERT_NE(caption->buddy(), nullptr) << control;
        EXPECT_EQ(caption->buddy()->objectName().toStdString(), control) << "what its access key leads to";
    }
    EXPECT_EQ(form.Frame2->focusProxy(), form.CBTienda[0]);

    Click(form, QStringLiteral("CBTienda(5)"));
    QCoreApplication::processEvents(); // lays out what is in the shop
    const std::string purse = PurseText(form.Task().MoneyGiven);
    ExpectControls(form,
        {
            still("Frame1", "", { 300, 300, 4500, 8400 }),
            still("Label1(0)", "&Lista de la compra", { 240, 180, 4020, 360 }),
            box("List1", { 240, 600, 4020, 4350 }, arial12, "Lista de la compra"),
            still("Label1(1)", "&Tiempo disponible", { 240, 5160, 4020, 360 }),
            shown("TBTiempo", "15 : 00", { 240, 5580, 4020, 600 }),
            still("Label1(2)", "&Dinero disponible", { 240, 6360, 4020, 360 }),
            shown("TBDinero", purse.c_str(), { 240, 6780, 4020, 600 }),
            button("CBVolver", "&Volver a casa", { 240, 7620, 4020, 540 }, Qt::green),

            still("Frame2", "", { 6150, 1000, 7500, 7000 }),
            still("Label2", "&El centro comercial", { 1500, 2000, 4500, 3000 }, heading),
            shop("CBTienda(0)", "Carnicería", 1500, 500, QColor(255, 255, 216)),
            shop("CBTienda(1)", "Charcutería", 3000, 500, QColor(255, 255, 196)),
            shop("CBTienda(2)", "Frutería", 4500, 500, QColor(255, 255, 176)),
            shop("CBTienda(3)", "Kiosko", 6000, 2000, QColor(255, 216, 255)),
            shop("CBTienda(4)", "Librería", 6000, 3500, QColor(255, 196, 255)),
            shop("CBTienda(5)", "Panadería", 4500, 5000, QColor(236, 255, 255)),
            shop("CBTienda(6)", "Papelería", 3000, 5000, QColor(216, 255, 255)),
            shop("CBTienda(7)", "Pastelería", 1500, 5000, QColor(196, 255, 255)),
            shop("CBTienda(8)", "Pescadería", 0, 3500, QColor(255, 236, 236)),
            shop("CBTienda(9)", "Supermercado", 0, 2000, QColor(255, 216, 216), arial9),

            still("Frame3", "", { 5100, 300, 9600, 8400 }),
            still("Label3", "Panadería", { 240, 180, 9120, 540 }, heading),
            still("LBDisponibles", "&Productos disponibles", { 240, 900, 4440, 360 }),
            box("LIDisponibles", { 240, 1320, 4440, 3270 }, arial12, "Productos disponibles"),
            still("LbCesta", "C&esta de la compra", { 4920, 900, 4440, 360 }),
            box("LICesta", { 4920, 1320, 4440, 6840 }, arial12, "Cesta de la compra"),
            { .Name = "TbInstrucciones",
                .Text = "Coloque en la cesta los productos que necesite de esta tienda y pulse el botón de continuar",
                .Place = { 240, 4830, 4440, 2610 },
                .Font = verdana12,
                .AccessibleName = "Instrucciones" },
            box("TBCantidades", { 6240, 7540, 1800, 0 }, courier12, "Cantidades"),
            still("Line1", "", { 6225, 7540, 1830, 30 }),
            { .Name = "TbResultado",
                .Text = "",
                .Place = { 6240, 7620, 1800, 540 },
                .Font = courier12,
                .Alignment = Qt::AlignRight | Qt::AlignVCenter,
                .AccessibleName = "Resultado" },
            button("CbContinuar", "&Continuar", { 240, 7620, 4440, 540 }, Qt::cyan),
        });
}

} // namespace

} // namespace numbrela
