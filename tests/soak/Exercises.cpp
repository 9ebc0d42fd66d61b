#include "tests/soak/Exercises.h"

#include "activities/shopping/screen/Form7.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "common/screen/TextBox.h"

#include <gtest/gtest.h>

namespace numbrela::testing {

namespace {

// Lets the next exercise be drawn. Of two, one is solved by the window and then checked, the other one is answered with
// a single digit and checked. The verdict differs from what stood in its box before.
void withButtonRow(QWidget& window, int number, const char* answerBox, const char* verdictBox)
{
    const auto& verdict = Find<QWidget>(window, QString::fromLatin1(verdictBox));
    Click(window, QStringLiteral("Command2(0)"));
    if (number % 2 == 0) {
        Click(window, QStringLiteral("Command2(2)"));
    } else {
        Click(window, QString::fromLatin1(answerBox));
        Press(Qt::Key_0 + number % 10);
    }
    const QString before = TextOf(verdict);
    Click(window, QStringLiteral("Command1"));
    EXPECT_NE(TextOf(verdict), before) << "nothing was judged";
}

// Presses the buttons one after the other until the right one has brought the next question: after it all six are
// there again. Each press counts, as a hit or as an error.
void compare(QWidget& window, int /*number*/)
{
    const auto& verdict = Find<TextBox>(window, QStringLiteral("Text3"));
    const auto& score = Find<TextBox>(window, QStringLiteral("Text2"));
    for (int button = 0; button < 6; ++button) {
        const std::string before = score.Text();
        Click(window, QStringLiteral("CbNúmero(%1)").arg(button));
        EXPECT_NE(score.Text(), before) << "nothing was judged";
        if (verdict.Text() == "CORRECTO") {
            return;
        }
    }
    ADD_FAILURE() << "no number is the right one";
}

// A new list, of which one product is bought.
void goShopping(QWidget& window, int number)
{
    const auto& form = dynamic_cast<Form7&>(window);
    const int products = 2 + number % 9;
    ExpectInput(QStringLiteral("¿Cuántos productos incluir en la lista?"),
        QStringLiteral("Número de productos a mostrar (1 - 10):"), QString::number(products),
        QString::number(static_cast<int>(form.Task().ListLength)));
    Choose(form, QStringLiteral("MnuOpcNum"));

    const ShoppingItem wanted = form.Task().ShoppingList.front();
    GoInto(form, QString::fromStdString(wanted.Tienda.Trimmed()));
    TakeFromShelf(form, QString::fromStdString(wanted.Nombre.Trimmed()));
    PressContinue(form);
    TypeResult(Written(form.Task().BasketTotal));
    PressContinue(form);
    TypeResult(Written(form.Task().NotesGiven - form.Task().AmountPaid));
    PressContinue(form);
    PressContinue(form);
    EXPECT_LT(form.Task().MoneyLeft, form.Task().MoneyGiven) << "nothing was bought";
}

} // namespace

const std::array<Practice, 8> practices { {
    { "Form2", [](QWidget& window, int number) { withButtonRow(window, number, "Text3", "Text4"); } },
    { "Form3", [](QWidget& window, int number) { withButtonRow(window, number, "Text3", "Text4"); } },
    { "Form4", [](QWidget& window, int number) { withButtonRow(window, number, "TbResultado", "Text1"); } },
    { "Form5", [](QWidget& window, int number) { withButtonRow(window, number, "Text3", "Text4"); } },
    { "Form6", &compare },
    { "FrmUnidad", [](QWidget& window, int number) { withButtonRow(window, number, "TBRespuesta", "TBResultado"); } },
    { "FormColoSuma", [](QWidget& window, int number) { withButtonRow(window, number, "TbResultado", "Text1"); } },
    { "Form7", &goShopping },
} };

} // namespace numbrela::testing
