#include "activities/shopping/core/ShoppingTask.h"
#include "activities/shopping/tests/TestTables.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <tuple>

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

    PayOutcome addUp(const std::string& typed)
    {
        task_.EnterShop("Panadería");
        takeTwoAndOne();
        task_.Continue("");
        return task_.Continue(typed);
    }

    static ShoppingItem wanted(const ShoppingTask& task, int product, int units)
    {
        const Product& entry = task.Catalogue[static_cast<std::size_t>(product)];
        return { product, units, entry.Nombre, entry.Precio, entry.Tienda };
    }

    ShoppingTask task_;
};

TEST_F(PayingTest, WithAnEmptyBasketThePupilWalksOut)
{
    for (int time = 0; time < 2; ++time) {
        const PayOutcome outcome = task_.Continue("5");
        EXPECT_EQ(outcome.Scene, ShopScene::Centre);
        EXPECT_EQ(outcome.Message, "");
        EXPECT_EQ(task_.MoneyLeft, 25);
        task_.TakeProduct(0);
        task_.PutBack(0);
    }
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

    task_.EnterShop("Panadería");
    task_.TakeProduct(2);
    task_.Continue("");
    EXPECT_EQ(task_.ColumnAboveResult().Text, " 24,00");
    EXPECT_EQ(task_.ColumnAboveResult().Rows, 1);
}

TEST_F(PayingTest, TheTotalIsAddedUpUnitByUnitInSinglePrecision)
{
    task_.Catalogue = TableOf({ { "Caramelo", 0.1F } });
    task_.TakeProduct(0);
    task_.Basket[0].Units = 10;
    task_.Continue("");
    float total = 0;
    for (int unit = 0; unit < 10; ++unit) {
        total += 0.1F;
    }
    ASSERT_NE(total, 10 * 0.1F);
    EXPECT_EQ(task_.BasketTotal, total);
}

TEST_F(PayingTest, TheColumnHolds114RowsAndNoPriceOrNotesOfAThousand)
{
    task_.TakeProduct(0);
    task_.Basket[0].Units = 114;
    task_.Continue("");
    EXPECT_EQ(task_.ColumnAboveResult().Rows, 114);
    task_.Basket[0].Units = 115;
    EXPECT_EQ(KindThrownBy([this] { task_.ColumnAboveResult(); }), RunTimeError::Kind::Overflow);

    task_.EnterShop("Panadería");
    task_.TakeProduct(3);
    task_.Continue("");
    EXPECT_EQ(KindThrownBy([this] { task_.ColumnAboveResult(); }), RunTimeError::Kind::InvalidArgument);

    task_.Catalogue = TableOf({ { "Un anillo", 999 } });
    task_.MoneyLeft = 1005;
    task_.EnterShop("Panadería");
    task_.TakeProduct(0);
    task_.Continue("");
    EXPECT_EQ(task_.Continue("1000").Message, addedTooMuch + std::string("(1000 / 999)")) << "told before";
    EXPECT_EQ(task_.NotesGiven, 1005);
    EXPECT_EQ(KindThrownBy([this] { task_.ColumnAboveResult(); }), RunTimeError::Kind::InvalidArgument);
}

TEST_F(PayingTest, ASumIsReadAsANumberOfTheCountryAndComparedWithPurseAndTotal)
{
    struct Case {
        std::string Typed;
        ShopScene Scene;
        std::string Message = {};
        float Money = 25;
    };
    const auto tooLittle
        = [](const char* sum) { return addedTooLittle + ("(tu precio: " + std::string(sum)) + " / precio real 2,9)"; };
    for (const Case& c : std::vector<Case> {
             { "2,90", ShopScene::Change }, { " 2,9 ", ShopScene::Change }, { "2,900", ShopScene::Change },
             { "+2,9", ShopScene::Change }, { "29e-1", ShopScene::Change }, { "2,90009", ShopScene::Change },
             { "2,89991", ShopScene::Change },
             { "2,90005", ShopScene::Change, "", 2.9F }, // the purse may be emptied, within the tolerance
             { "2,8998", ShopScene::Centre, tooLittle("2,8998") }, { "2,89", ShopScene::Centre, tooLittle("2,89") },
             { "1,9", ShopScene::Centre, tooLittle("1,9"), 2 }, { "-3", ShopScene::Centre, tooLittle("-3") },
             { "", ShopScene::Centre, tooLittle("0") }, { "dos", ShopScene::Centre, tooLittle("0") },
             { "2,9 €", ShopScene::Centre, tooLittle("0") }, { "2,,9", ShopScene::Centre, tooLittle("0") },
             { "1" + std::string(400, '0'), ShopScene::Centre, tooLittle("0") },
             { "1e39", ShopScene::Centre, tooLittle("0") }, // beyond a single
             { "3", ShopScene::Change, addedTooMuch + std::string("(3 / 2,9)") },
             { "6", ShopScene::Shelves, notEnoughMoney, 5 },
             { "2,9", ShopScene::Shelves, notEnoughMoney, 2 }, // right, but more than there is
             { "2.90", ShopScene::Shelves, notEnoughMoney }, // 290: the point stands between thousands
         }) {
        SCOPED_TRACE(c.Typed);
        task_.MoneyLeft = c.Money;
        const PayOutcome outcome = addUp(c.Typed);
        EXPECT_EQ(outcome.Scene, c.Scene);
        EXPECT_EQ(outcome.Message, c.Message);
        EXPECT_EQ(task_.MoneyLeft, c.Money);
        EXPECT_EQ(task_.TimeLeft, 1000) << "charged when the pupil has left";
        EXPECT_EQ(task_.BasketLines().size(), 2U);
        if (c.Scene == ShopScene::Shelves) {
            EXPECT_EQ(task_.PayStep, 1);
            EXPECT_EQ(task_.Continue("").Scene, ShopScene::Sum);
        }
    }
}

TEST_F(PayingTest, ARightSumLeadsToTheChangeAndTheRightChangeToTheReceipt)
{
    PayOutcome outcome = addUp("2,90");
    EXPECT_EQ(task_.ColumnAboveResult().Text, "  5,00\n-  2,90");
    EXPECT_EQ(task_.ColumnAboveResult().Rows, 2);
    EXPECT_EQ(outcome.Instructions,
        "Has entregado 5 euros en billetes para pagar tu compra, ¿Cuánto dinero te tienen que devolver?");
    EXPECT_EQ(task_.PayStep, 3);
    EXPECT_EQ(task_.AmountPaid, 2.9F);
    EXPECT_EQ(task_.NotesGiven, 5);

    outcome = task_.Continue("2,10");
    EXPECT_EQ(outcome.Instructions,
        "Has comprado los siguientes productos:\n"
        "(2) Una barra de pan"
            + std::string(84, ' ') + "\n(1) Pan de molde" + std::string(88, ' ')
            + "\nSu precio es de 2,9€ y has pagado 2,9€ por ellos.\nPulsa el botón salir.");
    EXPECT_EQ(task_.PayStep, 4);
    EXPECT_EQ(task_.MoneyLeft, 25) << "paid when leaving";
}

TEST_F(PayingTest, WhoAddsUpTooMuchPaysItAndGetsTheChangeOfIt)
{
    addUp("3");
    EXPECT_EQ(task_.ColumnAboveResult().Text, "  5,00\n-  3,00");
    EXPECT_EQ(task_.AmountPaid, 3);
    const PayOutcome receipt = task_.Continue("2");
    EXPECT_EQ(receipt.Message, "");
    EXPECT_NE(receipt.Instructions.find("\nSu precio es de 2,9€ y has pagado 3€ por ellos.\n"), std::string::npos)
        << receipt.Instructions;
}

TEST_F(PayingTest, NothingIsRightForABasketThatCostsNothing)
{
    task_.Catalogue = TableOf({ { "Migas", 0.00005F } });
    task_.TakeProduct(0);
    task_.Continue("");
    EXPECT_EQ(task_.Continue("").Scene, ShopScene::Change);
    EXPECT_EQ(task_.ColumnAboveResult().Text, "  5,00\n-  0,00");
}

TEST_F(PayingTest, ChangeIsComparedWithWhatIsDueAndCostsNothingButTheWarning)
{
    const std::tuple<const char*, ShopScene, std::string> cases[] = {
        { "2,1", ShopScene::Receipt, "" },
        { "2,10005", ShopScene::Receipt, "" },
        { "2,09995", ShopScene::Receipt, "" },
        { "2,11", ShopScene::Centre, askedTooMuch + std::string("(2,11 / 2,1)") },
        { "2", ShopScene::Receipt, askedTooLittle + std::string("(2 / 2,1)") },
        { "nada", ShopScene::Receipt, askedTooLittle + std::string("(0 / 2,1)") },
    };
    for (const auto& [typed, scene, message] : cases) {
        SCOPED_TRACE(typed);
        task_.MoneyLeft = 25;
        addUp("2,90");
        const PayOutcome outcome = task_.Continue(typed);
        EXPECT_EQ(outcome.Scene, scene);
        EXPECT_EQ(outcome.Message, message);
        EXPECT_EQ(task_.MoneyLeft, 25);
        if (scene == ShopScene::Receipt) {
            task_.Continue("");
            EXPECT_EQ(task_.MoneyLeft, 25 - 2.9F) << "only what was added up leaves the purse";
        }
    }
}

TEST_F(PayingTest, LeavingPaysAndCrossesOffTheListUntilNoUnitIsLeft)
{
    task_.ShoppingList = { wanted(task_, 0, 3), wanted(task_, 1, 1), wanted(task_, 2, 1) };
    task_.TakeProduct(3);
    task_.PutBack(0);
    takeTwoAndOne();
    task_.TakeProduct(1);
    task_.Continue("");
    task_.Continue("4,1");
    task_.Continue("0,9");
    EXPECT_EQ(task_.ListLines()[0], "(3) Una barra de pan");
    EXPECT_TRUE(task_.IsListOpen());
    EXPECT_EQ(task_.Continue("").Scene, ShopScene::CentreWithPurchase);
    EXPECT_EQ(
        task_.ListLines(), (std::vector<std::string> { "(1) Una barra de pan", "(X) Pan de molde", "(1) Una tarta" }));
    EXPECT_EQ(task_.ShoppingList[1].Units, 0) << "two bought where one was wanted";
    EXPECT_EQ(task_.MoneyLeft, 25 - 4.1F);
    EXPECT_TRUE(task_.IsListOpen());

    task_.ShoppingList = { wanted(task_, 0, 2) };
    addUp("2,9");
    task_.Continue("2,1");
    EXPECT_TRUE(task_.IsListOpen());
    task_.Continue("");
    EXPECT_FALSE(task_.IsListOpen()) << "no unit is left, whatever else was bought";
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
