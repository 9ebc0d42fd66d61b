#include "activities/multiply/screen/Dialog.h"
#include "activities/multiply/screen/Form4.h"

#include "common/screen/CommandButton.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"
#include "common/screen/TwipsLayout.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QTest>

#include <algorithm>
#include <functional>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

class DialogTest : public ::testing::Test {
protected:
    DialogTest() { ShowAndActivate(form_); }

    // Opens the dialog from the menu, does something with it, which closes it, and waits until the menu has answered.
    void use(const std::function<void(Dialog&)>& action)
    {
        ExpectDialog([&](QDialog& box) { action(dynamic_cast<Dialog&>(box)); });
        Choose(form_, QStringLiteral("MnuOpcSelLis(1)"));
    }

    void accept(const std::vector<int>& tables)
    {
        use([&](Dialog& dialog) {
            for (int index = 0; index < 9; ++index) {
                const bool wanted = std::find(tables.begin(), tables.end(), index + 1) != tables.end();
                if (wanted != dialog.Check1[static_cast<std::size_t>(index)]->isChecked()) {
                    Click(dialog, QStringLiteral("Check1(%1)").arg(index));
                }
            }
            Click(dialog, QStringLiteral("OKButton"));
        });
    }

    void expectChoice(bool any, const char* caption) const
    {
        EXPECT_EQ(form_.MnuOpcSel->Items()[0]->isChecked(), any);
        EXPECT_EQ(form_.MnuOpcSel->Items()[1]->isChecked(), !any);
        EXPECT_EQ(form_.MnuOpcSel->Items()[0]->text().toStdString(), "&Cualquiera");
        EXPECT_EQ(form_.MnuOpcSel->Items()[1]->text().toStdString(), caption);
    }

    FixedClock clock_;
    std::unique_ptr<Dialog> tables_;
    Form4 form_ { clock_, tables_ };
};

TEST_F(DialogTest, HasNineTablesInThreeRowsOfThree)
{
    use([](Dialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Tablas a usar"));
        EXPECT_TRUE(dialog.isModal());
        const auto& area = dynamic_cast<const TwipsLayout&>(*dialog.layout());
        constexpr int lefts[] = { 120, 820, 1520 };
        constexpr int tops[] = { 120, 595, 1070 };
        for (int index = 0; index < 9; ++index) {
            const auto& box = Find<QCheckBox>(dialog, QStringLiteral("Check1(%1)").arg(index));
            EXPECT_EQ(box.text(), QString::number(index + 1));
            EXPECT_EQ(box.accessibleName(), QStringLiteral("Tabla del %1").arg(index + 1));
            EXPECT_FALSE(box.isChecked());
            EXPECT_EQ(area.RectOf(&box), (TwipsRect { lefts[index % 3], tops[index / 3], 600, 375 }));
        }
        EXPECT_EQ(dialog.OKButton->text(), QStringLiteral("&Aceptar"));
        EXPECT_EQ(dialog.CancelButton->text(), QStringLiteral("Cancelar"));
        EXPECT_GT(area.RectOf(dialog.OKButton).Top, 1070 + 375);
        EXPECT_EQ(area.RectOf(dialog.OKButton).Top, area.RectOf(dialog.CancelButton).Top);
        Click(dialog, QStringLiteral("CancelButton"));
    });
}

TEST_F(DialogTest, IsWorkedByKeysAlone)
{
    use([](Dialog& dialog) {
        // The platform without a display leaves the focus with the window behind: the keys go straight to the dialog.
        const auto press = [&dialog](Qt::Key key, int times = 1) {
            for (int i = 0; i < times; ++i) {
                QTest::keyClick(dialog.focusWidget(), key);
            }
            return dialog.focusWidget()->objectName().toStdString();
        };
        EXPECT_EQ(dialog.focusWidget()->objectName().toStdString(), "Check1(0)");
        EXPECT_EQ(press(Qt::Key_Tab), "Check1(1)");
        press(Qt::Key_Space);
        EXPECT_EQ(press(Qt::Key_Tab, 5), "Check1(6)");
        press(Qt::Key_Space);
        EXPECT_EQ(press(Qt::Key_Tab, 3), "OKButton");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(tables_->TablasSeleccionadas, "27");
    expectChoice(false, "&Seleccionar (27) ...");
}

TEST_F(DialogTest, AcceptedTablesAreDrawnFrom)
{
    Choose(form_, QStringLiteral("MnuOpcCi2Lis(9)"));
    accept({ 7, 2, 3 });
    EXPECT_EQ(tables_->TablasSeleccionadas, "237");
    EXPECT_FALSE(tables_->isVisible());
    expectChoice(false, "&Seleccionar (237) ...");
    for (int i = 0; i < 20; ++i) {
        Choose(form_, QStringLiteral("MnuOpcCi2Lis(9)"));
        const std::string factor2 = form_.TbFactor[1]->Text();
        EXPECT_EQ(factor2.find_first_not_of("0237,"), std::string::npos) << factor2;
    }
}

TEST_F(DialogTest, EveryChoiceIsInTheCaption)
{
    expectChoice(true, "&Seleccionar ()...");
    use([](Dialog& dialog) {
        Click(dialog, QStringLiteral("Check1(4)"));
        Click(dialog, QStringLiteral("CancelButton"));
    });
    EXPECT_EQ(tables_->TablasSeleccionadas, "");
    expectChoice(true, "&Seleccionar () ...");
    accept({ 1, 2, 3, 4, 5, 6, 7, 8, 9 });
    expectChoice(false, "&Seleccionar (123456789) ...");
    accept({ 5 });
    expectChoice(false, "&Seleccionar (5) ...");
    for (int times = 0; times < 2; ++times) {
        Choose(form_, QStringLiteral("MnuOpcSelLis(0)"));
        expectChoice(true, "&Seleccionar (5) ...");
    }
    accept({});
    expectChoice(true, "&Seleccionar () ...");
}

TEST_F(DialogTest, EachUseDrawsANewExerciseButNoneIsScoredAgain)
{
    Click(form_, QStringLiteral("Command2(2)"));
    for (const bool anyDigits : { false, true }) {
        form_.TbParcial[0]->SetText("12");
        form_.Text1->SetText("resultado incorrecto");
        if (anyDigits) {
            Choose(form_, QStringLiteral("MnuOpcSelLis(0)"));
        } else {
            use([](Dialog& dialog) { Click(dialog, QStringLiteral("CancelButton")); });
        }
        EXPECT_EQ(form_.TbParcial[0]->Text(), "");
        EXPECT_EQ(form_.Text1->Text(), "");
        Click(form_, QStringLiteral("Command1"));
        EXPECT_EQ(form_.tbResultados->Text(), "Ejercicios:  0; Errores:  0");
    }
}

TEST_F(DialogTest, CancellingAppliesTheLastAcceptedChoiceAgainAndKeepsTheTicks)
{
    accept({ 2, 3 });
    Choose(form_, QStringLiteral("MnuOpcSelLis(0)"));
    expectChoice(true, "&Seleccionar (23) ...");
    use([](Dialog& dialog) {
        Click(dialog, QStringLiteral("Check1(8)"));
        Click(dialog, QStringLiteral("CancelButton"));
    });
    EXPECT_EQ(tables_->TablasSeleccionadas, "23");
    expectChoice(false, "&Seleccionar (23) ...");
    use([](Dialog& dialog) {
        EXPECT_TRUE(dialog.Check1[8]->isChecked());
        Click(dialog, QStringLiteral("OKButton"));
    });
    expectChoice(false, "&Seleccionar (239) ...");
}

TEST_F(DialogTest, EscapeAndTheCloseBoxCancel)
{
    accept({ 4 });
    use([](Dialog& dialog) {
        Click(dialog, QStringLiteral("Check1(0)"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    expectChoice(false, "&Seleccionar (4) ...");
    use([](Dialog& dialog) {
        Click(dialog, QStringLiteral("Check1(1)"));
        dialog.close();
    });
    expectChoice(false, "&Seleccionar (4) ...");
    EXPECT_EQ(tables_->TablasSeleccionadas, "4");
}

TEST_F(DialogTest, KeepsItsTicksAndItsChoiceWhenTheWindowIsClosedAndOpenedAgain)
{
    accept({ 6, 8 });
    const Dialog* const before = tables_.get();
    form_.close();

    auto* again = new Form4(clock_, tables_);
    again->setAttribute(Qt::WA_DeleteOnClose);
    ShowAndActivate(*again);
    EXPECT_TRUE(again->MnuOpcSel->Items()[0]->isChecked());
    EXPECT_EQ(again->MnuOpcSel->Items()[1]->text(), QStringLiteral("&Seleccionar ()..."));
    ExpectDialog([&](QDialog& box) {
        auto& dialog = dynamic_cast<Dialog&>(box);
        EXPECT_EQ(&dialog, before);
        EXPECT_TRUE(dialog.Check1[5]->isChecked());
        EXPECT_TRUE(dialog.Check1[7]->isChecked());
        EXPECT_EQ(dialog.TablasSeleccionadas, "68");
        Click(dialog, QStringLiteral("CancelButton"));
    });
    Choose(*again, QStringLiteral("MnuOpcSelLis(1)"));
    EXPECT_EQ(again->MnuOpcSel->Items()[1]->text(), QStringLiteral("&Seleccionar (68) ..."));
    EXPECT_TRUE(again->MnuOpcSel->Items()[1]->isChecked());

    again->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(tables_.get(), before);
    EXPECT_EQ(tables_->TablasSeleccionadas, "68");
}

TEST_F(DialogTest, GrowsWithTheWindowItBelongsTo)
{
    QSize atDesignSize;
    use([&](Dialog& dialog) {
        atDesignSize = dialog.size();
        dialog.reject();
    });
    form_.resize(form_.size() * 2);
    QCoreApplication::processEvents();
    use([&](Dialog& dialog) {
        EXPECT_NEAR(dialog.width(), 2 * atDesignSize.width(), 4);
        EXPECT_NEAR(dialog.height(), 2 * atDesignSize.height(), 4);
        dialog.reject();
    });
}

} // namespace

} // namespace numbrela
