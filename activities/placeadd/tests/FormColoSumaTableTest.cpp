#include "activities/placeadd/screen/FormColoSuma.h"

#include "common/screen/Line.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>

#include <string>
#include <tuple>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr FontSpec headingFont { "Arial", 12 };
constexpr FontSpec columnFont { "Courier New", 14.25 };
constexpr FontSpec frameFont { "Arial", 9.75 };
constexpr Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;

ControlRow columnBox(const char* name, const char* blanks, int top, const char* spokenName)
{
    return { .Name = name,
        .Text = blanks,
        .Place = { 1500, top, 5000, 600 },
        .Font = columnFont,
        .Alignment = left,
        .AccessibleName = spokenName };
}

ControlRow sign(const char* name, const char* caption, int top)
{
    return { .Name = name, .Text = caption, .Place = { 900, top, 600, 600 }, .Font = columnFont, .TabStop = false };
}

ControlRow button(const char* name, const char* caption, int top, QColor colour)
{
    return { .Name = name, .Text = caption, .Place = { 500, top, 2000, 400 }, .Font = frameFont, .BackColour = colour };
}

TEST(FormColoSumaTable, EverythingStandsInItsPlace)
{
    const FixedClock clock;
    SeededRandom random(clock.Now().SecondsSinceMidnight);
    PlaceAndAdd first(random);
    first.NewPlaceAndAdd();
    const std::string dataLine = first.DataLine();
    const char* eightBlanks = "        ";
    const char* sevenBlanks = "       ";

    FormColoSuma form(clock);
    ShowAndActivate(form);
    QCoreApplication::sendPostedEvents(); // the frame is laid out,
    QCoreApplication::sendPostedEvents(); // and then what is around it
    EXPECT_EQ(form.objectName(), QStringLiteral("FormColoSuma"));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("COLOCA Y SUMA"));
    ExpectControls(form,
        {
            { .Name = "TBInstruc",
                .Text = "Coloca los números en vertical y súmalos",
                .Place = { 0, 0, 12000, 495 },
                .Font = headingFont,
                .ReadOnly = true,
                .AccessibleName = "Instrucción" },
            { .Name = "TBDatos",
                .Text = dataLine.c_str(),
                .Place = { 0, 500, 12000, 495 },
                .Font = headingFont,
                .ReadOnly = true,
                .AccessibleName = "Sumandos" },
            columnBox("TbSumando(0)", eightBlanks, 1800, "Sumando 1"),
            columnBox("TbSumando(1)", eightBlanks, 3000, "Sumando 2"),
            columnBox("TbSumando(2)", eightBlanks, 4200, "Sumando 3"),
            columnBox("TbSumando(3)", eightBlanks, 5400, "Sumando 4"),
            sign("LBSigno(0)", "+", 3000),
            sign("LBSigno(1)", "+", 4200),
            sign("LBSigno(2)", "+", 5400),
            sign("LBSigno(3)", "=", 6800),
            { .Name = "Line1",
                .Text = "",
                .Place = { 35, 6385, 7930, 30 },
                .Font = { "Courier New", 12 },
                .TabStop = false },
            columnBox("TbResultado", sevenBlanks, 6800, "Suma"),
            { .Name = "Frame1", .Text = "", .Place = { 8500, 3840, 3000, 3100 }, .Font = frameFont, .TabStop = false },
            button("Command1", "&Hecho", 100, QColor(255, 255, 0)),
            { .Name = "Text1",
                .Text = "",
                .Place = { 50, 700, 2900, 500 },
                .Font = frameFont,
                .ReadOnly = true,
                .AccessibleName = "Veredicto" },
            button("Command2(0)", "&Continuar", 1400, QColor(0, 255, 255)),
            button("Command2(1)", "&Borrar", 2000, QColor(0, 255, 0)),
            button("Command2(2)", "&Ver solución", 2600, QColor(255, 0, 0)),
        });
    for (const TextBox* box : form.TbSumando) {
        EXPECT_EQ(box->maxLength(), 8);
    }
    EXPECT_EQ(form.TbResultado->maxLength(), 7);
    ExpectMenus(form,
        {
            "MnuOpc &Opciones",
            "  MnuOpcSum Número de sumandos: &2 &3 &4* &5 &6",
            "  MnuOpcCif Máximo de cifras: &2 &3* &4 &5",
            "  MnuOpcSal &Salir Alt+F4",
        });
}

TEST(FormColoSumaTable, RowsShareTheHeightAndEveryOneButTheFirstHasASign)
{
    const std::tuple<int, std::vector<int>, int, int> rowsCases[] = {
        // Worked out by hand: rows of 6000 / (addends + 1) twips each, from 1500 on.
        { 2, { 2200, 4200 }, 5600, 6400 },
        { 3, { 1950, 3450, 4950 }, 6100, 6650 },
        { 4, { 1800, 3000, 4200, 5400 }, 6400, 6800 },
        { 5, { 1700, 2700, 3700, 4700, 5700 }, 6600, 6900 },
        { 6, { 1629, 2486, 3343, 4200, 5057, 5914 }, 6743, 6971 },
    };
    for (const auto& [addendCount, tops, line, sum] : rowsCases) {
        SCOPED_TRACE(addendCount);
        const FixedClock clock;
        FormColoSuma form(clock);
        ShowAndActivate(form);
        Choose(form, QStringLiteral("MnuOpcSumLis(%1)").arg(addendCount - 2));
        const auto count = static_cast<std::size_t>(addendCount);
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_EQ(form.Area().RectOf(form.TbSumando[i]), (TwipsRect { 1500, tops[i], 5000, 600 }));
            EXPECT_TRUE(form.TbSumando[i]->isVisible() && form.TbSumando[i]->isEnabled());
            const QLabel& label = *form.LBSigno[i];
            const bool ofSum = i == count - 1;
            EXPECT_EQ(form.Area().RectOf(&label), (TwipsRect { 900, ofSum ? sum : tops[i + 1], 600, 600 }));
            EXPECT_EQ(label.text(), ofSum ? QStringLiteral("=") : QStringLiteral("+"));
            EXPECT_TRUE(label.isVisible() && label.isEnabled());
        }
        EXPECT_EQ(form.Line1->From(), (TwipsPoint { 50, line }));
        EXPECT_EQ(form.Line1->To(), (TwipsPoint { 7950, line }));
        EXPECT_EQ(form.Area().RectOf(form.TbResultado), (TwipsRect { 1500, sum, 5000, 600 }));
        EXPECT_EQ(form.Area().Extent(), (TwipsRect { 0, 0, 12000, 8100 })) << "everything is inside the window";
    }
}

} // namespace

} // namespace numbrela
