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

#include <QApplication>
#include <QCheckBox>
#include <QScreen>
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
        Choose(form_, "MnuOpcSelLis(1)");
    }

    static void cancel(Dialog& dialog) { Click(dialog, "CancelButton"); }

    void accept(const std::vector<int>& tables)
    {
        use([&](Dialog& dialog) {
            for (int index = 0; index < 9; ++index) {
                const bool wanted = std::find(tables.begin(), tables.end(), index + 1) != tables.end();
                if (wanted != dialog.Check1[static_cast<std::size_t>(index)]->isChecked()) {
                    Click(dialog, QStringLiteral("Check1(%1)").arg(index));
                }
            }
            Click(dialog, "OKButton");
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
        Click(dialog, "CancelButton");
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
    Choose(form_, "MnuOpcCi2Lis(9)");
    accept({ 7, 2, 3 });
    EXPECT_EQ(tables_->TablasSeleccionadas, "237");
    EXPECT_FALSE(tables_->isVisible());
    expectChoice(false, "&Seleccionar (237) ...");
    for (int i = 0; i < 20; ++i) {
        Choose(form_, "MnuOpcCi2Lis(9)");
        const std::string factor2 = form_.TbFactor[1]->Text();
        EXPECT_EQ(factor2.find_first_not_of("0237,"), std::string::npos) << factor2;
    }
}

TEST_F(DialogTest, EveryChoiceIsInTheCaption)
{
    expectChoice(true, "&Seleccionar ()...");
    use([](Dialog& dialog) {
        Click(dialog, "Check1(4)");
        Click(dialog, "CancelButton");
    });
    EXPECT_EQ(tables_->TablasSeleccionadas, "");
    expectChoice(true, "&Seleccionar () ...");
    accept({ 1, 2, 3, 4, 5, 6, 7, 8, 9 });
    expectChoice(false, "&Seleccionar (123456789) ...");
    accept({ 5 });
    expectChoice(false, "&Seleccionar (5) ...");
    for (int times = 0; times < 2; ++times) {
        Choose(form_, "MnuOpcSelLis(0)");
        expectChoice(true, "&Seleccionar (5) ...");
    }
    accept({});
    expectChoice(true, "&Seleccionar () ...");
}

TEST_F(DialogTest, EachUseDrawsANewExerciseButNoneIsScoredAgain)
{
    Click(form_, "Command2(2)");
    form_.TbParcial[0]->SetText("12");
    form_.Text1->SetText("resultado incorrecto");
    use(cancel);
    EXPECT_EQ(form_.TbParcial[0]->Text(), "");
    EXPECT_EQ(form_.Text1->Text(), "");
    Click(form_, "Command1");
    EXPECT_EQ(form_.tbResultados->Text(), "Ejercicios:  0; Errores:  0");
}

TEST_F(DialogTest, CancellingAppliesTheLastAcceptedChoiceAgainAndKeepsTheTicksAlsoForTheNextWindow)
{
    accept({ 2, 3 });
    const std::function<void(Dialog&)> waysToCancel[] = { cancel,
        [](Dialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, [](Dialog& dialog) { dialog.close(); } };
    for (const auto& leave : waysToCancel) {
        Choose(form_, "MnuOpcSelLis(0)");
        expectChoice(true, "&Seleccionar (23) ...");
        use([&](Dialog& dialog) {
            Click(dialog, "Check1(8)");
            leave(dialog);
        });
        EXPECT_EQ(tables_->TablasSeleccionadas, "23");
        expectChoice(false, "&Seleccionar (23) ...");
    }
    form_.close();
    Form4 again(clock_, tables_);
    ShowAndActivate(again);
    EXPECT_EQ(again.MnuOpcSel->Items()[1]->text(), QStringLiteral("&Seleccionar ()..."));
    ExpectDialog([this](QDialog& box) {
        EXPECT_EQ(&box, tables_.get());
        EXPECT_TRUE(tables_->Check1[8]->isChecked());
        Click(box, "OKButton");
    });
    Choose(again, "MnuOpcSelLis(1)");
    EXPECT_EQ(again.MnuOpcSel->Items()[1]->text(), QStringLiteral("&Seleccionar (239) ..."));
    EXPECT_TRUE(again.MnuOpcSel->Items()[1]->isChecked());
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

TEST_F(DialogTest, FillsTheScreenWithAllThatIsInItAndOpensSmallAgainWhenItWasLeftSo)
{
    QSize small;
    use([&](Dialog& dialog) {
        small = dialog.size();
        const int buttonWidth = dialog.OKButton->width();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
        Press(Qt::Key_F11);
        EXPECT_EQ(dialog.size(), dialog.screen()->size());
        EXPECT_NEAR(dialog.OKButton->width(), buttonWidth * dialog.height() / small.height(), 4);
        dialog.reject();
    });
    use([&](Dialog& dialog) {
        EXPECT_FALSE(dialog.isFullScreen());
        EXPECT_EQ(dialog.size(), small);
        dialog.reject();
    });
}

} // namespace

} // namespace numbrela
