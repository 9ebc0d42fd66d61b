#include "activities/multiply/screen/Form4.h"

#include "activities/multiply/screen/Dialog.h"
#include "common/screen/Line.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace numbrela {

namespace {

using namespace testing;

constexpr FontSpec digits { "Courier New", 15 };
constexpr FontSpec form { "Arial", 12 };
constexpr FontSpec heading { "Arial", 14.25 };
const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
const Qt::Alignment centre = Qt::AlignCenter;

TEST(Form4Table, HasTheseControlsInThesePlacesAndTheseMenus)
{
    const FixedClock clock;
    std::unique_ptr<Dialog> tables;
    Form4 window(clock, tables);
    ShowAndActivate(window);
    QCoreApplication::processEvents(); // let the layout settle
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Multiplicaciones"));
    const std::string factor1 = window.TbFactor[0]->Text();
    const std::string factor2 = window.TbFactor[1]->Text();
    const auto box = [](const char* name, const char* text, int top, bool readOnly, const char* spoken) {
        return ControlRow { name, text, { 750, top, 3500, 500 }, digits, right, readOnly, true, {}, spoken };
    };
    const auto button = [](const char* name, const char* caption, int top, QColor colour) {
        return ControlRow { name, caption, { 6075, top, 1900, 540 }, form, {}, false, true, colour };
    };
    ExpectControls(window,
        {
            box("TbFactor(0)", factor1.c_str(), 550, true, "Primer factor"),
            box("TbFactor(1)", factor2.c_str(), 1050, true, "Segundo factor"),
            box("TbParcial(0)", "", 1600, false, "Producto parcial 1"),
            box("TbParcial(1)", "", 2100, false, "Producto parcial 2"),
            box("TbResultado", "", 2600, false, "Resultado"),
            button("Command1", "&Hecho", 1600, { 255, 255, 0 }),
            { "Text1", "", { 5425, 2410, 3200, 540 }, heading, left, true, true, {}, "Veredicto" },
            button("Command2(0)", "&Continuar", 3220, { 0, 255, 255 }),
            button("Command2(1)", "&Borrar", 3940, { 0, 255, 0 }),
            button("Command2(2)", "&Ver solución", 4660, { 255, 0, 0 }),
            { "tbResultados", "Ejercicios:  0; Errores:  0", { 5425, 5560, 3200, 540 }, form, centre, true, true, {},
                "Marcador" },
            { "TbTítulo", "Realiza la siguiente operación", { 4900, 550, 4250, 495 }, heading, centre, true, true, {},
                "Instrucción" },
            { "LabX", "×", { 250, 1050, 500, 500 }, digits, {}, false, false },
            { "Line1", "", { 735, 1560, 3530, 30 }, form, {}, false, false },
            { "Line2", "", { 735, 2585, 3530, 30 }, form, {}, false, false },
            { "labIgual", "=", { 250, 2600, 500, 500 }, digits, {}, false, false },
        });
    ExpectMenus(window,
        {
            "MnuOpc &Opciones",
            "  MnuOpcCi1 &Cifras factor 1: &1* &2 &3 &4 &5 &6 &7 &8 &9 &10",
            "  MnuOpcCi2 C&ifras factor 2: &1* &2 &3 &4 &5 &6 &7 &8 &9 &10",
            "  MnuOpcDe1 &Decimales factor 1: &0 &1* &2 &3 &4 &5",
            "  MnuOpcDe2 D&ecimales factor 2: &0 &1* &2 &3 &4 &5",
            "  MnuOpcSel &Selección de cifras factor2",
            "    MnuOpcSelLis(0) &Cualquiera *",
            "    MnuOpcSelLis(1) &Seleccionar ()...",
            "  MnuOpcOcu &Ocultar ceros intermedios (No)",
            "  MnuOpcIn1 &Introducir Primer factor [F2]",
            "  MnuOpcIn2 I&ntroducir segundo factor [F3]",
            "  MnuOpcSal S&alir (Alt-F4)",
        });
}

std::vector<std::string> tabSequenceFrom(QWidget& first)
{
    std::vector<std::string> names;
    QWidget* next = &first;
    do {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->parentWidget() == first.parentWidget()
            && !next->objectName().isEmpty()) {
            names.push_back(next->objectName().toStdString());
        }
        next = next->nextInFocusChain();
    } while (next != &first);
    return names;
}

TEST(Form4Table, RowsGrowDownwardsAndShrinkAgain)
{
    const FixedClock clock;
    std::unique_ptr<Dialog> tables;
    Form4 window(clock, tables);
    ShowAndActivate(window);
    const TwipsLayout& area = window.Area();
    const QSize before = window.size();
    for (const int decimals : { 0, 5, 2, 0, 3 }) {
        Choose(window, QStringLiteral("MnuOpcDe2Lis(%1)").arg(decimals));
        for (const int count : { 1, 10, 2, 9, 5 }) {
            Choose(window, QStringLiteral("MnuOpcCi2Lis(%1)").arg(count - 1));
            const int rows = count + decimals;
            SCOPED_TRACE(rows);
            ASSERT_EQ(static_cast<int>(window.TbParcial.size()), rows);
            std::vector<std::string> sequence;
            for (int index = 0; index < rows; ++index) {
                const TextBox& row = *window.TbParcial[static_cast<std::size_t>(index)];
                sequence.push_back("TbParcial(" + std::to_string(index) + ")");
                EXPECT_EQ(row.objectName().toStdString(), sequence.back());
                EXPECT_EQ(area.RectOf(&row), (TwipsRect { 750, 1600 + 500 * index, 3500, 500 }));
                EXPECT_TRUE(row.isVisible() && row.isEnabled());
            }
            const int top = 1600 + 500 * rows;
            EXPECT_EQ(window.Line2->From(), (TwipsPoint { 750, top }));
            EXPECT_EQ(window.Line2->To(), (TwipsPoint { 4250, top }));
            QCoreApplication::processEvents(); // let the layout settle
            for (QObject* box : { window.TbParcial.back(), window.TbResultado }) {
                EXPECT_GT(window.children().indexOf(window.Line2), window.children().indexOf(box)) << "it is in front";
            }
            EXPECT_EQ(window.width(), before.width());
            EXPECT_EQ(window.height() > before.height(), top + 1000 > 6600);
            for (const QWidget* control : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                EXPECT_TRUE(control->isHidden() || window.rect().contains(control->geometry()))
                    << control->objectName().toStdString();
            }
            EXPECT_EQ(area.RectOf(window.TbResultado), (TwipsRect { 750, top, 3500, 500 }));
            EXPECT_EQ(
                area.RectOf(&Find<QWidget>(window, QStringLiteral("labIgual"))), (TwipsRect { 250, top, 500, 500 }));
            EXPECT_EQ(area.Extent(), (TwipsRect { 0, 0, 9660, std::max(6600, top + 1000) }));
            for (const char* name : { "TbResultado", "Command1", "Text1", "Command2(0)", "Command2(1)", "Command2(2)",
                     "tbResultados", "TbTítulo", "TbFactor(0)", "TbFactor(1)" }) {
                sequence.emplace_back(name);
            }
            EXPECT_EQ(tabSequenceFrom(*window.TbParcial[0]), sequence);
        }
    }
}

} // namespace

} // namespace numbrela
