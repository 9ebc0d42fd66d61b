#include "activities/shopping/core/ShoppingTask.h"
#include "activities/shopping/tests/TestTables.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <limits>

namespace numbrela {

namespace {

using namespace testing;
using Lines = std::vector<std::string>;

class ShopVisitTest : public ::testing::Test {
protected:
    ShopVisitTest()
    {
        task_.Catalogue = TableOf({ { "Una barra de pan", 0.85F }, { "Un periódico", 1.5F, "Kiosko" },
            { "Una docena de huevos", 2.25F }, { " Pan de molde ", 1.2F, " panadería " },
            { "Nadie la vende", 3, "Zoo" }, { "Un bollo", 10, "PANADERÍA" }, { "Un churro", 1, "Panaderia" } });
        task_.EnterShop("Panadería");
    }

    ShoppingTask task_;
};

TEST_F(ShopVisitTest, AShopOffersAllItsProductsInCatalogueOrder)
{
    std::vector<std::pair<int, std::string>> shelf;
    for (const ShelfProduct& product : task_.EnterShop("Panadería")) {
        shelf.emplace_back(product.Product, product.Name);
    }
    EXPECT_EQ(shelf,
        (std::vector<std::pair<int, std::string>> {
            { 0, "Una barra de pan" }, { 2, "Una docena de huevos" }, { 3, "Pan de molde" }, { 5, "Un bollo" } }));
    EXPECT_EQ(task_.EnterShop("Kiosko").size(), 1U);
    EXPECT_TRUE(task_.EnterShop("Carnicería").empty());
}

TEST_F(ShopVisitTest, ShopNamesAreComparedWithoutRegardToCaseInAllLettersOfTheEncoding)
{
    task_.Catalogue = TableOf({});
    for (const char* shop : ShoppingTask::ShopNames) {
        AddProduct(task_.Catalogue, ProductOf(shop, shop));
    }
    for (const char* shop : ShoppingTask::ShopNames) {
        const std::vector<ShelfProduct> shelf = task_.EnterShop(shop);
        ASSERT_EQ(shelf.size(), 1U);
        EXPECT_EQ(shelf[0].Name, shop);
    }
    for (const char* name : { "CARNICERÍA", "carnicería", "CaRnIcErÍa", "  Carnicería  " }) {
        task_.Catalogue = TableOf({ { "Carne", 1, name } });
        EXPECT_EQ(task_.EnterShop("Carnicería").size(), 1U) << name;
    }
    for (const char* name : { "Carniceria", "Carnicer", "Carnicería 2", "" }) {
        task_.Catalogue = TableOf({ { "Carne", 1, name } });
        EXPECT_TRUE(task_.EnterShop("Carnicería").empty()) << name;
    }
    task_.Catalogue = TableOf({ { "x", 1, "azñàáâãäåæçèéêëìíîïðòóôõöøùúûüýþšœžÿ÷×ß" } });
    EXPECT_EQ(task_.EnterShop("AZÑÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ÷×ß").size(), 1U);
    EXPECT_TRUE(task_.EnterShop("AZÑÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ××ß").empty()) << "÷ is no small ×";
}

TEST_F(ShopVisitTest, EnteringAShopEmptiesTheBasket)
{
    task_.TakeProduct(0);
    task_.Continue("");
    EXPECT_EQ(task_.PayStep, 2);
    task_.EnterShop("Kiosko");
    EXPECT_EQ(task_.PayStep, 1);
    EXPECT_TRUE(task_.BasketLines().empty());
    ASSERT_EQ(task_.Basket.size(), 1U);
    EXPECT_EQ(task_.Basket[0].Product, -1);
}

TEST_F(ShopVisitTest, AProductTakenAgainCountsInItsLineUpTo32767Units)
{
    for (const auto& [product, line] : { std::pair(0, 0), { 2, 1 }, { 0, 0 }, { 0, 0 }, { 5, 2 }, { 2, 1 } }) {
        EXPECT_EQ(task_.TakeProduct(product), line);
    }
    EXPECT_EQ(task_.BasketLines(),
        (Lines { "(3) Una barra de pan 0,85", "(2) Una docena de huevos 2,25", "(1) Un bollo 10" }));
    task_.Basket[0].Units = 32'767;
    EXPECT_EQ(KindThrownBy([this] { task_.TakeProduct(0); }), RunTimeError::Kind::Overflow);
}

TEST_F(ShopVisitTest, AProductAddedLaterIsOfferedAtTheNextVisitAlsoAtAnInfinitePrice)
{
    AddProduct(task_.Catalogue, ProductOf("Una torta", "Panadería", std::numeric_limits<float>::infinity()));
    EXPECT_EQ(task_.EnterShop("Panadería").back().Name, "Una torta");
    task_.TakeProduct(7);
    task_.TakeProduct(7);
    EXPECT_EQ(task_.BasketLines(), Lines { "(2) Una torta infinito" });
    task_.PutBack(0);
    EXPECT_EQ(task_.BasketLines(), Lines { "(1) Una torta infinito" });
}

TEST_F(ShopVisitTest, PuttingBackTakesOneUnitAtATimeAndSelectsTheSamePlaceOrTheFirst)
{
    for (const int product : { 0, 2, 5, 0 }) {
        task_.TakeProduct(product);
    }
    const std::tuple<int, std::optional<int>, Lines> cases[] = {
        { 0, 0, { "(1) Una barra de pan 0,85", "(1) Una docena de huevos 2,25", "(1) Un bollo 10" } },
        { 1, 1, { "(1) Una barra de pan 0,85", "(1) Un bollo 10" } },
        { 1, 0, { "(1) Una barra de pan 0,85" } },
        { 0, std::nullopt, {} },
    };
    for (const auto& [line, selected, left] : cases) {
        EXPECT_EQ(task_.PutBack(line), selected);
        EXPECT_EQ(task_.BasketLines(), left);
    }
    ASSERT_EQ(task_.Basket.size(), 1U);
    EXPECT_EQ(task_.Basket[0].Product, -1);
    EXPECT_EQ(task_.TakeProduct(0), 0);
    EXPECT_EQ(task_.BasketLines(), Lines { "(1) Una barra de pan 0,85" });
}

TEST_F(ShopVisitTest, TheClockRunsOnBelowZero)
{
    task_.TimeLeft = 1;
    task_.Tick();
    EXPECT_EQ(task_.TimeLeft, 0);
    task_.Tick();
    EXPECT_EQ(task_.TimeLeft, -1);
    task_.LeaveShop();
    EXPECT_EQ(task_.TimeLeft, -181);
}

} // namespace

} // namespace numbrela
