#include "activities/compare/screen/Form6.h"

#include "common/screen/CommandButton.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMenuBar>

namespace numbrela {

namespace {

using namespace testing;

constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec numberFont { "Courier", 15, true };

ControlRow number(const char* name, const std::string& caption, int left, int top)
{
    return { .Name = name, .Text = caption.c_str(), .Place = { left, top, 1800, 500 }, .Font = numberFont };
}

ControlRow shown(const char* name, const char* text, TwipsRect place, const char* spoken)
{
    return { name, text, place, formFont, Qt::AlignCenter, true, true, {}, spoken };
}

TEST(Form6Table, EverythingStandsInItsPlace)
{
    const FixedClock clock;
    SeededRandom random(clock.Now().SeedProduct());
    Comparison first(random);
    first.NewComparison();

    Form6 form(clock);
    ShowAndActivate(form);
    QCoreApplication::sendPostedEvents(); // nothing is left to lay out
    EXPECT_EQ(form.objectName(), QStringLiteral("Form6"));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("MAYOR Y MENOR"));
    ExpectControls(form,
        {
            shown("Text1", first.Instruction.c_str(), { 1000, 100, 4000, 500 }, "Instrucción"),
            number("CbNúmero(0)", first.Captions[0], 100, 1000),
            number("CbNúmero(2)", first.Captions[2], 2100, 1000),
            number("CbNúmero(4)", first.Captions[4], 4100, 1000),
            number("CbNúmero(1)", first.Captions[1], 100, 2000),
            number("CbNúmero(3)", first.Captions[3], 2100, 2000),
            number("CbNúmero(5)", first.Captions[5], 4100, 2000),
            shown("Text3", "", { 2000, 3000, 2000, 500 }, "Veredicto"),
            shown("Text2", "Aciertos: 0;  Errores: 0.", { 0, 4500, 6000, 500 }, "Marcador"),
        });
    EXPECT_EQ(form.size(), QSize(6150, 5300) / 15) << "twips; there is room on all sides of the score line";
    ExpectMenus(form, {});
    EXPECT_FALSE(form.findChild<QMenuBar*>()->isVisible());
}

} // namespace

} // namespace numbrela
