#include "activities/addsub/screen/ColumnForm.h"

#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

using namespace testing;

class ColumnFormTest : public ::testing::Test {
protected:
    FixedClock clock_;
};

TEST_F(ColumnFormTest, WorksAnExerciseByKeysAlone)
{
    Form2 form(clock_);
    ShowAndActivate(form);
    ExpectInput(QStringLiteral("Sumas"), QStringLiteral("Introduzca el nuevo valor:"), QStringLiteral("1,5"));
    Press(Qt::Key_F2);
    ExpectInput(QStringLiteral("Sumas"), QStringLiteral("Introduzca el nuevo valor:"), QStringLiteral("0,25"));
    Press(Qt::Key_F3);
    EXPECT_EQ(form.Text2[0]->Text(), "1,5 ");
    Type(QStringLiteral("57,1"));
    EXPECT_EQ(form.Text3->Text(), "1,75");
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Text4->Text(), "resultado correcto");
    EXPECT_EQ(form.Text4->selectedText(), QStringLiteral("resultado correcto"));
    EXPECT_EQ(FocusName(), "Command2(0)");
    EXPECT_EQ(form.tbResultados->Text(), "Ejercicios:  1; Errores:  0");
}

} // namespace

} // namespace numbrela
