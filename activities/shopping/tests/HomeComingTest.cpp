#include "activities/shopping/core/ShoppingTask.h"

#include <gtest/gtest.h>

#include <cmath>

namespace numbrela {

namespace {

using namespace testing;

constexpr const char* allBought = "Has conseguido comprar todos los productos pedidos";
constexpr const char* notAllBought = "No has conseguido comprar todos los productos pedidos, gastando el dinero en "
                                     "otros no necesarios o pagando más de lo debido por ellos.";
constexpr const char* inTime = "\nHas realizado la compra dentro del tiempo disponible.";
constexpr const char* tooLate = "\nHas tardado demasiado en realizar la compra.";

class HomeComingTest : public ::testing::Test {
protected:
    HomeComingTest()
    {
        task_.MoneyGiven = 25;
        task_.ListCost = 23.4F;
        task_.MoneyLeft = 25 - 23.4F;
        task_.TimeLeft = 1;
        task_.ShoppingList = { item(0, 0, 0.85F), item(1, 0, 12) };
    }

    static ShoppingItem item(int product, int units, float price)
    {
        return { product, units, std::string_view("Algo"), price, std::string_view("Kiosko") };
    }

    ShoppingTask task_;
};

// The money is compared exactly, without a tolerance.
TEST_F(HomeComingTest, WhoBoughtAllHearsOfMoneyAndTimeAlsoWhereThereWasNothingToBuy)
{
    const float exact = 25 - 23.4F;
    const char* justEnough = "\nHas gastado justo el dinero necesario.";
    for (const auto& [left, verdict] : { std::pair(exact, justEnough), { std::nextafter(exact, 9.0F), "" },
             { std::nextafter(exact, 0.0F), "\npero has gastado más dinero del necesario" } }) {
        for (const int time : { 1, 0, -1, -500 }) {
            task_.MoneyLeft = left;
            task_.TimeLeft = time;
            const HomeComing home = task_.GoHome();
            EXPECT_TRUE(home.Ended);
            EXPECT_EQ(home.Title, "Vuelves a casa con tu compra");
            EXPECT_EQ(home.Message, allBought + std::string(verdict) + (time > 0 ? inTime : tooLate));
        }
    }
    task_.ShoppingList.clear();
    task_.ListCost = 0;
    task_.MoneyGiven = task_.MoneyLeft = 5;
    EXPECT_EQ(task_.GoHome().Message, allBought + std::string(justEnough) + tooLate);
}

TEST_F(HomeComingTest, WhoCanStillBuySomethingDoesNotGoHomeYet)
{
    task_.MoneyLeft = 1.5F;
    for (const int units : { 1, 3 }) { // the price of one unit counts
        task_.ShoppingList[0] = item(0, units, 1.5F);
        const HomeComing home = task_.GoHome();
        EXPECT_FALSE(home.Ended);
        EXPECT_EQ(home.Message, "Aún puedes comprar algún producto más");
        EXPECT_EQ(home.Title, "Todavía no has terminado tu tarea");
    }
    task_.MoneyLeft = std::nextafter(1.5F, 0.0F);
    EXPECT_TRUE(task_.GoHome().Ended);
}

TEST_F(HomeComingTest, WhoCannotPayForTheRestHasNotDoneIt)
{
    task_.ShoppingList[1].Units = 2;
    EXPECT_EQ(task_.GoHome().Message, notAllBought + std::string(inTime));
    task_.TimeLeft = 0;
    EXPECT_EQ(task_.GoHome().Message, notAllBought + std::string(tooLate));
}

} // namespace

} // namespace numbrela
