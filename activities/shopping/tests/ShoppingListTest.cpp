#include "activities/shopping/core/ShoppingTask.h"
#include "activities/shopping/tests/TestTables.h"

#include "common/core/TimeOfDay.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

constexpr double oneUnit = 0.5; // not above 0.5

// The middle of the draws that give this index.
double drawOf(int index, int count)
{
    return (index + 0.5) / count;
}

std::vector<int> productsOf(const ShoppingTask& task)
{
    std::vector<int> products;
    for (const ShoppingItem& item : task.ShoppingList) {
        products.push_back(item.Product);
    }
    return products;
}

ShoppingTask taskWith(ProductTable table, int listLength)
{
    ShoppingTask task;
    task.Catalogue = std::move(table);
    task.ListLength = listLength;
    return task;
}

// What the rule forbids: the digits of one number as a run inside those of the other.
bool isRunOf(int shorter, int longer)
{
    return std::to_string(longer).find(std::to_string(shorter)) != std::string::npos;
}

TEST(ShoppingListTest, DrawsProductsAndUnits)
{
    ShoppingTask task
        = taskWith(TableOf({ { "Una barra de pan", 0.85F, "Panadería" }, { "Un periódico", 1.5F, "Kiosko" },
                       { "Un besugo", 8.25F, "Pescadería" }, { "Un lápiz", 0.4F, "Papelería" } }),
            4);
    ScriptedRandom random { drawOf(2, 4), 0.5, drawOf(0, 4), 0.51, 0.59, drawOf(3, 4), 0.99, 0.6, drawOf(1, 4), 0.0 };
    EXPECT_EQ(task.NewShoppingTask(random), "");
    EXPECT_TRUE(random.AllDrawn());
    EXPECT_EQ(task.ListLines(),
        (std::vector<std::string> { "(1) Un besugo", "(2) Una barra de pan", "(3) Un lápiz", "(1) Un periódico" }));
    EXPECT_EQ(task.ListCost, 8.25F + 2 * 0.85F + 3 * 0.4F + 1.5F);
    EXPECT_EQ(task.MoneyGiven, 15);
    EXPECT_EQ(task.MoneyLeft, 15);
    EXPECT_EQ(task.TimeLeft, (4 * 5 + 10) * 60);
    EXPECT_EQ(task.ShoppingList[0].Precio, 8.25F);
    EXPECT_EQ(task.ShoppingList[0].Tienda.Trimmed(), "Pescadería");
}

TEST(ShoppingListTest, AnIndexRulesOutItselfAndThoseWrittenInsideItAndNothingLonger)
{
    const std::tuple<int, std::vector<int>, std::vector<int>> cases[] = {
        { 4, { 3, 3, 3, 1, 3, 1, 2, 0 }, { 3, 1, 2, 0 } },
        { 30, { 12, 1, 2, 12, 21, 22, 2, 1, 0 }, { 12, 21, 22, 0 } },
        { 30, { 1, 12, 21, 10 }, { 1, 12, 21, 10 } },
    };
    for (const auto& [products, drawn, list] : cases) {
        ShoppingTask task = taskWith(NumberedTable(products), 4);
        std::vector<double> draws;
        std::size_t listed = 0;
        for (const int index : drawn) {
            draws.push_back(drawOf(index, products));
            if (listed < list.size() && list[listed] == index) {
                draws.push_back(oneUnit);
                ++listed;
            }
        }
        ScriptedRandom random(draws);
        task.NewShoppingTask(random);
        EXPECT_TRUE(random.AllDrawn());
        EXPECT_EQ(productsOf(task), list);
    }
}

TEST(ShoppingListTest, AListThatHasRunIntoADeadEndIsDrawnAgain)
{
    // 0 to 10: once 10 is drawn, 0 and 1 are ruled out, and only nine of the ten can be found.
    ShoppingTask task = taskWith(NumberedTable(11), 10);
    std::vector<double> draws;
    for (const int index : { 10, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9 }) {
        draws.insert(draws.end(), { drawOf(index, 11), oneUnit });
    }
    ScriptedRandom random(draws);
    EXPECT_EQ(task.NewShoppingTask(random), "");
    EXPECT_TRUE(random.AllDrawn());
    EXPECT_EQ(productsOf(task), (std::vector<int> { 0, 1, 2, 3, 4, 5, 6, 7, 8, 9 }));
    EXPECT_EQ(task.ListCost, 10);
}

TEST(ShoppingListTest, DrawingEndsForEveryCatalogueAndEveryLength)
{
    for (const int products : { 1, 2, 3, 4, 9, 10, 11, 12, 13, 20, 21, 99, 100, 101, 111, 112, 1000, 32'767 }) {
        ShoppingTask task = taskWith(NumberedTable(products), 1);
        for (int length = 1; length <= 11; ++length) {
            task.ListLength = length;
            for (int seed = 1; seed <= 20; ++seed) {
                SeededRandom random(seed);
                task.NewShoppingTask(random);
                const std::vector<int> list = productsOf(task);
                ASSERT_EQ(static_cast<int>(list.size()), std::min(products, length));
                for (std::size_t later = 0; later < list.size(); ++later) {
                    ASSERT_GE(list[later], 0);
                    ASSERT_LT(list[later], products);
                    for (std::size_t earlier = 0; earlier < later; ++earlier) {
                        ASSERT_FALSE(isRunOf(list[later], list[earlier])) << list[later] << " in " << list[earlier];
                    }
                }
            }
        }
    }
}

TEST(ShoppingListTest, ACatalogueWithTooFewProductsGivesAListOfAllOfThemAndSaysSo)
{
    ShoppingTask task = taskWith(NumberedTable(3), 4);
    SeededRandom random(7);
    EXPECT_EQ(task.NewShoppingTask(random),
        "El catálogo solo tiene 3 productos, así que la lista de la compra es de 3 productos en lugar de 4.");
    const std::vector<int> list = productsOf(task);
    EXPECT_EQ(std::set<int>(list.begin(), list.end()), (std::set<int> { 0, 1, 2 }));
    EXPECT_EQ(task.ListLength, 4) << "the next list asks for as many as before";

    task = taskWith(NumberedTable(1), 10);
    EXPECT_EQ(task.NewShoppingTask(random),
        "El catálogo solo tiene 1 producto, así que la lista de la compra es de 1 producto en lugar de 10.");
    EXPECT_EQ(productsOf(task), std::vector<int> { 0 });

    task = ShoppingTask();
    EXPECT_EQ(task.NewShoppingTask(random),
        "El catálogo no tiene productos, así que la lista de la compra está vacía.\n"
        "Añade productos desde el menú Opciones y elige después «Número de productos», que hace una lista nueva.");
    EXPECT_TRUE(task.ListLines().empty());
    EXPECT_EQ(task.ListCost, 0);
    EXPECT_FALSE(task.IsListOpen());
}

TEST(ShoppingListTest, EveryProductComesFirstEquallyOftenOnceInHalfOfTheCasesTwiceInThreeTenthsAndElseThreeTimes)
{
    ShoppingTask task = taskWith(NumberedTable(20), 4);
    std::map<int, int> products;
    std::map<int, int> units;
    SeededRandom random(99);
    constexpr int draws = 20'000;
    for (int i = 0; i < draws; ++i) {
        task.NewShoppingTask(random);
        ++products[task.ShoppingList[0].Product];
        ++units[task.ShoppingList[0].Units];
    }
    EXPECT_EQ(products.size(), 20U);
    for (const auto& [product, count] : products) {
        EXPECT_NEAR(count, draws / 20, draws / 20 * 0.2) << product;
    }
    EXPECT_EQ(units.size(), 3U);
    for (const auto& [count, share] : { std::pair(1, 0.5), { 2, 0.3 }, { 3, 0.2 } }) {
        EXPECT_NEAR(units[count], draws * share, draws * 0.02);
    }
}

TEST(ShoppingListTest, TimeIsTenMinutesAndFiveForEachDifferentShop)
{
    const std::tuple<const char*, const char*, const char*, int> cases[] = {
        { "Kiosko", "Kiosko", "Kiosko", 15 }, { "Kiosko", "Librería", "Kiosko", 20 },
        { "Kiosko", "Librería", "Frutería", 25 }, { "Kiosko", "kiosko", "KIOSKO", 25 }, // the field as it stands
        { "Ninguna", "Ninguna", "Frutería", 20 },
        // The fields of the shops seen are written one behind the other, blanks included.
        { "x", " y", "", 20 }, // 49 blanks behind the x and one before the y: an empty field
        { "x", "y", "", 25 }, // nowhere more than 49 blanks
    };
    for (const auto& [first, second, third, minutes] : cases) {
        ShoppingTask task = taskWith(TableOf({ { "a", 1, first }, { "b", 1, second }, { "c", 1, third } }), 3);
        ScriptedRandom random { drawOf(0, 3), oneUnit, drawOf(1, 3), oneUnit, drawOf(2, 3), oneUnit };
        task.NewShoppingTask(random);
        EXPECT_EQ(task.TimeLeft, minutes * 60) << first << second << third;
    }
}

TEST(ShoppingListTest, MoneyIsTheNextMultipleOfFiveAboveTheCost)
{
    for (const auto& [price, money] : { std::pair(25.0F, 30.0F), { 4.4F, 5.0F }, { 23.4F, 25.0F }, { 24.6F, 30.0F },
             { 24.5F, 25.0F }, { 0.01F, 5.0F } }) {
        ShoppingTask task = taskWith(TableOf({ { "a", price } }), 1);
        ScriptedRandom random { 0, oneUnit };
        task.NewShoppingTask(random);
        EXPECT_EQ(task.MoneyGiven, money) << price;
        EXPECT_EQ(task.MoneyLeft, money) << price;
    }
}

TEST(ShoppingListTest, TheCostIsAddedUpInSinglePrecisionInTheOrderOfTheList)
{
    ShoppingTask task = taskWith(TableOf({ { "a", 0.1F }, { "b", 999.99F }, { "c", 0.7F } }), 3);
    ScriptedRandom random { drawOf(1, 3), 0.9, 0.9, drawOf(0, 3), 0.9, 0.9, drawOf(2, 3), 0.9, 0.1 };
    task.NewShoppingTask(random);
    float cost = 3.0F * 999.99F;
    cost += 3.0F * 0.1F;
    cost += 2.0F * 0.7F;
    EXPECT_EQ(task.ListCost, cost);
}

TEST(ShoppingListTest, ANewTaskLeavesBasketAndStepAsTheyAre)
{
    ShoppingTask task = taskWith(NumberedTable(5), 2);
    SeededRandom random(4);
    task.NewShoppingTask(random);
    task.EnterShop("Panadería");
    task.TakeProduct(3);
    task.Continue("");
    task.NewShoppingTask(random);
    EXPECT_EQ(task.PayStep, 2);
    EXPECT_EQ(task.BasketLines(), std::vector<std::string> { "(1) Producto 3 1" });
}

TEST(ShoppingListTest, TheLengthOfTheListIsTakenAboveOneAndBelowEleven)
{
    for (const auto& [typed, length] :
        { std::pair("2", 2), { "10", 10 }, { "1e1", 10 }, { "10,5", 10 }, { "2.5", 2 }, { "3.5", 4 }, { "1.2", 1 },
            { "1.5", 2 }, { "10.6", 11 }, { "10.5", 10 }, { "7 productos", 7 }, { " 8 ", 8 } }) {
        ShoppingTask task;
        EXPECT_TRUE(task.SetListLength(typed)) << typed;
        EXPECT_EQ(task.ListLength, length) << typed;
    }
    for (const std::string typed : { "1", "11", "0", "-1", "", "tres", "1e3", "1,5", "1e400" }) {
        ShoppingTask task;
        EXPECT_FALSE(task.SetListLength(typed)) << typed;
        EXPECT_EQ(task.ListLength, 4) << typed;
    }
}

// A catalogue with a price that no purse can hold must not keep its owner out of the activity, and so out of the
// editor.
TEST(ShoppingListTest, IsEmptyWhenItsPricesAddUpToMoreThanCanBeCounted)
{
    for (const float price : { std::numeric_limits<float>::infinity(), std::numeric_limits<float>::max() }) {
        ShoppingTask task = taskWith(TableOf({ { "Un diamante", price } }), 4);
        constexpr double threeUnits = 0.9;
        ScriptedRandom random { 0, threeUnits, threeUnits };
        EXPECT_EQ(task.NewShoppingTask(random),
            "La lista de la compra costaría más de lo que se puede contar, así que está vacía.\n"
            "Corrige los precios del catálogo desde el menú Opciones.");
        EXPECT_TRUE(task.ShoppingList.empty());
        EXPECT_EQ(task.ListCost, 0);
        EXPECT_EQ(task.MoneyLeft, 5);
    }
}

} // namespace

} // namespace numbrela
