#include "activities/shopping/core/ShoppingTask.h"
#include "activities/shopping/tests/TestTables.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

using namespace testing;

constexpr const char* notEnoughMoney
    = "No tienes suficiente dinero para pagar todo lo que has cogido,  deja algo que no necesites o pulsa el botón de "
      "volver a casa si no te queda dinero para comprar las cosas que necesitas.";
constexpr const char* addedTooLittle
    = "Parece que te has equivocado al sumar, el dependiente, pensando que le querías engañar,  te manda fuera de la "
      "tienda sin los productos que habías cogido.\n";
constexpr const char* addedTooMuch = "Parece que te has equivocado al sumar, si sigues pagando de más quizá no puedas "
                                     "comprar todo lo que necesitas\n";
constexpr const char* askedTooMuch
    = "Parece que te has equivocado al restar, el dependiente, pensando que le querías engañar,  te manda fuera de la "
      "tienda sin los productos que habías cogido.\n";
constexpr const char* askedTooLittle = "Parece que te has equivocado al restar, si sigues pagando de más quizá no "
                                       "puedas comprar todo lo que necesitas\n";

class PayingTest : public ::testing::Test {
protected:
    PayingTest()
    {
        task_.Catalogue = TableOf(
            { { "Una barra de pan", 0.85F }, { "Pan de molde", 1.2F }, { "Una tarta", 24 }, { "Oro", 1000 } });
        task_.MoneyLeft = 25;
        task_.TimeLeft = 1000;
        task_.EnterShop("Panadería");
    }

    // Two loaves at 0,85 and one at 1,20.
    void takeTwoAndOne()
    {
        task_.TakeProduct(0);
        task_.TakeProduct(1);
        task_.TakeProduct(0);
    }

    PayOutcome addUp(const char* typed)
    {
        takeTwoAndOne();
        task_.Continue("");
        return task_.Continue(typed);
    }

    ShoppingTask task_;
};

TEST_F(PayingTest, WithAnEmptyBasketThePupilWalksOut)
{
    const PayOutcome outcome = task_.Continue("5");
    EXPECT_EQ(outcome.Scene, ShopScene::Centre);
    EXPECT_EQ(outcome.Message, "");
    EXPECT_EQ(task_.MoneyLeft, 25);

    task_.TakeProduct(0);
    task_.PutBack(0);
    EXPECT_EQ(task_.Continue("").Scene, ShopScene::Centre);
}

TEST_F(PayingTest, ThePricesOfAllUnitsAreWrittenUnderEachOther)
{
    takeTwoAndOne();
    const PayOutcome outcome = task_.Continue("");
    EXPECT_EQ(outcome.Scene, ShopScene::Sum);
    EXPECT_EQ(outcome.Message, "");
    EXPECT_EQ(task_.ColumnAboveResult().Text, "  0,85\n+  0,85\n+  1,20");
    EXPECT_EQ(task_.ColumnAboveResult().Rows, 3);
    EXPECT_EQ(outcome.Instructions, "Sume los precios y escriba el resultado debajo, después pulse continuar.");
    EXPECT_EQ(task_.PayStep, 2);
    EXPECT_EQ(task_.BasketTotal, 0.85F + 0.85F + 1.2F);
}

TEST_F(PayingTest, OneProductIsAColumnOfOneRow)
{
    task_.TakeProduct(2);
    task_.Continue("");
    EXPECT_EQ(task_.ColumnAboveResult().Text, " 24,00");
    EXPECT_EQ(task_.ColumnAboveResult().Rows, 1);
}

TEST_F(PayingTest, TheTotalIsAddedUpUnitByUnitInSinglePrecision)
{
    task_.Catalogue = TableOf({ { "Caramelo", 0.1F } });
    float total = 0;
    for (int unit = 0; unit < 10; ++unit) {
        task_.TakeProduct(0);
        total += 0.1F;
    }
    ASSERT_NE(total, 10 * 0.1F);
    task_.Continue("");
    EXPECT_EQ(task_.BasketTotal, total);
}

TEST_F(PayingTest, TheColumnHolds114Rows)
{
    task_.TakeProduct(0);
    task_.Basket[0].Units = 114;
    task_.Continue("");
    EXPECT_EQ(task_.ColumnAboveResult().Rows, 114);

    task_.EnterShop("Panadería");
    task_.TakeProduct(0);
    task_.Basket[0].Units = 115;
    task_.Continue("");
    EXPECT_EQ(KindThrownBy([this] { task_.ColumnAboveResult(); }), RunTimeError::Kind::Overflow);
}

TEST_F(PayingTest, APriceOfAThousandEndsTheProgram)
{
    task_.TakeProduct(3);
    task_.Continue("");
    EXPECT_EQ(KindThrownBy([this] { task_.ColumnAboveResult(); }), RunTimeError::Kind::InvalidArgument);
}

TEST_F(PayingTest, ARightSumLeadsToTheChange)
{
    const PayOutcome outcome = addUp("2,90");
    EXPECT_EQ(outcome.Scene, ShopScene::Change);
    EXPECT_EQ(outcome.Message, "");
    EXPECT_EQ(task_.ColumnAboveResult().Text, "  5,00\n-  2,90");
    EXPECT_EQ(task_.ColumnAboveResult().Rows, 2);
    EXPECT_EQ(outcome.Instructions,
        "Has entregado 5 euros en billetes para pagar tu compra, ¿Cuánto dinero te tienen que devolver?");
    EXPECT_EQ(task_.PayStep, 3);
    EXPECT_EQ(task_.AmountPaid, 2.9F);
    EXPECT_EQ(task_.NotesGiven, 5);
    EXPECT_EQ(task_.MoneyLeft, 25);
}

TEST_F(PayingTest, ASumIsReadAsANumberOfTheCountry)
{
    struct Case {
        const char* Typed;
        bool Right;
    };
    for (const Case& c : { Case { "2,9", true }, { " 2,90 ", true }, { "2,900", true }, { "+2,9", true },
             { "2,90009", true }, { "2,89991", true }, { "2,8998", false }, { "29e-1", true }, { "", false },
             { "dos", false }, { "2,9 €", false }, { "2,,9", false } }) {
        task_.EnterShop("Panadería");
        EXPECT_EQ(addUp(c.Typed).Scene, c.Right ? ShopScene::Change : ShopScene::Centre) << c.Typed;
    }
    EXPECT_EQ(addUp("2.90").Message, notEnoughMoney) << "290: the point stands between thousands";
}

TEST_F(PayingTest, TooLittleSendsThePupilOut)
{
    const PayOutcome outcome = addUp("2,89");
    EXPECT_EQ(outcome.Scene, ShopScene::Centre);
    EXPECT_EQ(outcome.Message, addedTooLittle + std::string("(tu precio: 2,89 / precio real 2,9)"));
    EXPECT_EQ(task_.MoneyLeft, 25);
    EXPECT_EQ(task_.TimeLeft, 1000) << "charged when the pupil has left";
}

TEST_F(PayingTest, WhatIsNoNumberCountsAsNothing)
{
    EXPECT_EQ(addUp("pan").Message, addedTooLittle + std::string("(tu precio: 0 / precio real 2,9)"));
    EXPECT_EQ(addUp("-3").Message, addedTooLittle + std::string("(tu precio: -3 / precio real 2,9)"));
    EXPECT_EQ(addUp(("1" + std::string(400, '0')).c_str()).Scene, ShopScene::Centre);
}

TEST_F(PayingTest, NothingIsRightForABasketThatCostsNothing)
{
    task_.Catalogue = TableOf({ { "Migas", 0.00005F } });
    task_.TakeProduct(0);
    task_.Continue("");
    const PayOutcome outcome = task_.Continue("");
    EXPECT_EQ(outcome.Scene, ShopScene::Change);
    EXPECT_EQ(task_.ColumnAboveResult().Text, "  5,00\n-  0,00");
}

TEST_F(PayingTest, TooMuchIsPaidWithAWarning)
{
    const PayOutcome outcome = addUp("3");
    EXPECT_EQ(outcome.Scene, ShopScene::Change);
    EXPECT_EQ(outcome.Message, addedTooMuch + std::string("(3 / 2,9)"));
    EXPECT_EQ(task_.ColumnAboveResult().Text, "  5,00\n-  3,00");
    EXPECT_EQ(task_.AmountPaid, 3);
    const PayOutcome receipt = task_.Continue("2");
    EXPECT_EQ(receipt.Message, "") << "the change due is that of the sum paid";
    EXPECT_NE(receipt.Instructions.find("\nSu precio es de 2,9€ y has pagado 3€ por ellos.\n"), std::string::npos)
        << receipt.Instructions;
}

TEST_F(PayingTest, MoreThanThePurseHoldsLeadsBackToTheShelves)
{
    task_.MoneyLeft = 5;
    const PayOutcome outcome = addUp("6");
    EXPECT_EQ(outcome.Scene, ShopScene::Shelves);
    EXPECT_EQ(outcome.Message, notEnoughMoney);
    EXPECT_EQ(task_.PayStep, 1);
    EXPECT_EQ(task_.BasketLines().size(), 2U) << "the basket stays";
    EXPECT_EQ(task_.TimeLeft, 1000);
    EXPECT_EQ(task_.MoneyLeft, 5);
    EXPECT_EQ(task_.Continue("").Scene, ShopScene::Sum);
}

TEST_F(PayingTest, ThePurseMayBeEmptiedToTheLastCent)
{
    task_.MoneyLeft = 2.9F;
    EXPECT_EQ(addUp("2,90005").Scene, ShopScene::Change) << "within the tolerance";
}

TEST_F(PayingTest, ATrueSumAboveThePurseLeadsBackToo)
{
    task_.MoneyLeft = 2;
    EXPECT_EQ(addUp("2,9").Message, notEnoughMoney);
}

TEST_F(PayingTest, ASumTooSmallForThePurseIsStillTooLittle)
{
    task_.MoneyLeft = 2;
    EXPECT_EQ(addUp("1,9").Message, addedTooLittle + std::string("(tu precio: 1,9 / precio real 2,9)"));
}

TEST_F(PayingTest, NotesThatHaveNoRoomInTheSubtractionEndTheProgram)
{
    task_.Catalogue = TableOf({ { "Un anillo", 999 } });
    task_.MoneyLeft = 1005;
    task_.TakeProduct(0);
    task_.Continue("");
    EXPECT_EQ(task_.Continue("1000").Message, addedTooMuch + std::string("(1000 / 999)")) << "told before";
    EXPECT_EQ(task_.NotesGiven, 1005);
    EXPECT_EQ(KindThrownBy([this] { task_.ColumnAboveResult(); }), RunTimeError::Kind::InvalidArgument);
}

TEST_F(PayingTest, TheRightChangeLeadsToTheReceipt)
{
    addUp("2,90");
    const PayOutcome outcome = task_.Continue("2,10");
    EXPECT_EQ(outcome.Scene, ShopScene::Receipt);
    EXPECT_EQ(outcome.Message, "");
    EXPECT_EQ(outcome.Instructions,
        "Has comprado los siguientes productos:\n"
        "(2) Una barra de pan"
            + std::string(84, ' ') + "\n(1) Pan de molde" + std::string(88, ' ')
            + "\nSu precio es de 2,9€ y has pagado 2,9€ por ellos.\nPulsa el botón salir.");
    EXPECT_EQ(task_.PayStep, 4);
    EXPECT_EQ(task_.MoneyLeft, 25) << "paid when leaving";
}

TEST_F(PayingTest, AskingForTooMuchChangeSendsThePupilOut)
{
    addUp("2,90");
    const PayOutcome outcome = task_.Continue("2,11");
    EXPECT_EQ(outcome.Scene, ShopScene::Centre);
    EXPECT_EQ(outcome.Message, askedTooMuch + std::string("(2,11 / 2,1)"));
    EXPECT_EQ(task_.MoneyLeft, 25);
}

TEST_F(PayingTest, TooLittleChangeIsAWarningAlone)
{
    addUp("2,90");
    PayOutcome outcome = task_.Continue("2");
    EXPECT_EQ(outcome.Scene, ShopScene::Receipt);
    EXPECT_EQ(outcome.Message, askedTooLittle + std::string("(2 / 2,1)"));
    task_.Continue("");
    EXPECT_EQ(task_.MoneyLeft, 25 - 2.9F) << "only what was added up leaves the purse";

    task_.EnterShop("Panadería");
    addUp("2,90");
    outcome = task_.Continue("nada");
    EXPECT_EQ(outcome.Message, askedTooLittle + std::string("(0 / 2,1)"));
}

TEST_F(PayingTest, ChangeIsRightWithinTheTolerance)
{
    for (const char* typed : { "2,1", "2,10005", "2,09995" }) {
        task_.EnterShop("Panadería");
        addUp("2,90");
        const PayOutcome outcome = task_.Continue(typed);
        EXPECT_EQ(outcome.Message, "") << typed;
        EXPECT_EQ(outcome.Scene, ShopScene::Receipt) << typed;
    }
}

TEST_F(PayingTest, LeavingPaysAndCrossesOffTheList)
{
    task_.ShoppingList = {
        { 0, 3, task_.Catalogue[0].Nombre, 0.85F, task_.Catalogue[0].Tienda },
        { 1, 1, task_.Catalogue[1].Nombre, 1.2F, task_.Catalogue[1].Tienda },
        { 2, 1, task_.Catalogue[2].Nombre, 24, task_.Catalogue[2].Tienda },
    };
    task_.TakeProduct(3);
    task_.PutBack(0);
    takeTwoAndOne();
    task_.TakeProduct(1);
    task_.Continue("");
    task_.Continue("4,1");
    task_.Continue("0,9");
    EXPECT_EQ(task_.ListLines()[0], "(3) Una barra de pan");
    const PayOutcome outcome = task_.Continue("");
    EXPECT_EQ(outcome.Scene, ShopScene::CentreWithPurchase);
    EXPECT_EQ(
        task_.ListLines(), (std::vector<std::string> { "(1) Una barra de pan", "(X) Pan de molde", "(1) Una tarta" }));
    EXPECT_EQ(task_.ShoppingList[1].Units, 0) << "two bought where one was wanted";
    EXPECT_EQ(task_.MoneyLeft, 25 - 4.1F);
    EXPECT_TRUE(task_.IsListOpen());
}

TEST_F(PayingTest, ProductsThatAreNotOnTheListArePaidForAndCountForNothing)
{
    task_.ShoppingList = { { 2, 1, task_.Catalogue[2].Nombre, 24, task_.Catalogue[2].Tienda } };
    addUp("2,9");
    task_.Continue("2,1");
    task_.Continue("");
    EXPECT_EQ(task_.ListLines(), std::vector<std::string> { "(1) Una tarta" });
    EXPECT_EQ(task_.MoneyLeft, 25 - 2.9F);
}

TEST_F(PayingTest, TheListIsDoneWhenNoUnitIsLeft)
{
    task_.ShoppingList = { { 0, 2, task_.Catalogue[0].Nombre, 0.85F, task_.Catalogue[0].Tienda } };
    EXPECT_TRUE(task_.IsListOpen());
    addUp("2,9");
    task_.Continue("2,1");
    EXPECT_TRUE(task_.IsListOpen());
    task_.Continue("");
    EXPECT_FALSE(task_.IsListOpen());
}

// Every basket of up to three units of two prices, paid as a careful pupil would, against arithmetic in whole cents.
TEST_F(PayingTest, WhoeverReckonsRightIsNeverScolded)
{
    for (int first = 1; first < 100; ++first) {
        for (const int second : { 1, 5, 10, 33, 67, 99, 250, 999, 12'345, 33'333 }) {
            task_.Catalogue
                = TableOf({ { "a", static_cast<float>(first / 100.0) }, { "b", static_cast<float>(second / 100.0) } });
            task_.MoneyLeft = 995;
            task_.EnterShop("Panadería");
            for (const int product : { 0, 1, 0, 1, 0 }) {
                task_.TakeProduct(product);
            }
            task_.Continue("");
            const int cents = 3 * first + 2 * second;
            const auto written = [](int amount) {
                const std::string rest = std::to_string(amount % 100);
                return std::to_string(amount / 100) + "," + (rest.size() < 2 ? "0" : "") + rest;
            };
            PayOutcome outcome = task_.Continue(written(cents));
            ASSERT_EQ(outcome.Message, "") << cents;
            ASSERT_EQ(outcome.Scene, ShopScene::Change) << cents;
            outcome = task_.Continue(written(static_cast<int>(task_.NotesGiven) * 100 - cents));
            ASSERT_EQ(outcome.Message, "") << cents;
            ASSERT_EQ(outcome.Scene, ShopScene::Receipt) << cents;
        }
    }
}

} // namespace

} // namespace numbrela
