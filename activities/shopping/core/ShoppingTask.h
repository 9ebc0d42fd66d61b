#pragma once

#include "activities/shopping/core/Catalogue.h"
#include "common/core/Int16.h"
#include "common/core/Random.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace numbrela {

// A line of the shopping list or of the basket. Name, price and shop are the catalogue's at the time it was made.
struct ShoppingItem {
    Int16 Product = -1; // index in the catalogue; -1 in the one line of an empty basket
    Int16 Units; // still to buy, or taken
    FixedText<100> Nombre;
    float Precio = 0; // euros for one unit
    FixedText<50> Tienda;
};

// A product on the shelf of a shop.
struct ShelfProduct {
    int Product = 0; // index in the catalogue
    std::string Name;
};

// Where a step of paying leads to.
enum class ShopScene {
    Shelves, // back to shelf and basket, with the basket as it is
    Sum, // the prices of the basket are to be added up
    Change, // the change is to be worked out
    Receipt, // all is paid, and the pupil reads what was bought
    Centre, // out of the shop
    CentreWithPurchase, // out of the shop, with what was bought
};

// What pressing the button inside a shop has led to.
struct PayOutcome {
    ShopScene Scene = ShopScene::Centre;
    std::string Message = {}; // shown first, under the title "Error"; empty: nothing
    std::string Instructions = {}; // what to do now (Sum, Change, Receipt)
};

// What is written above the result box: amounts under each other.
struct PriceColumn {
    std::string Text;
    int Rows = 0;
};

// What is said to a pupil who goes home.
struct HomeComing {
    bool Ended = false; // the task is over
    std::string Message = {};
    std::string Title = {};
};

// The shopping activity without its window: draws a shopping list from the catalogue, holds purse, clock and basket,
// checks what the pupil adds up and gets back, and judges the outcome. The clock ticks when it is told to.
class ShoppingTask {
public:
    // In the order in which they stand round the shopping centre.
    static constexpr std::array<const char*, 10> ShopNames { "Carnicería", "Charcutería", "Frutería", "Kiosko",
        "Librería", "Panadería", "Papelería", "Pastelería", "Pescadería", "Supermercado" };

    ProductTable Catalogue { Product() };
    std::vector<ShoppingItem> ShoppingList;
    std::vector<ShoppingItem> Basket { ShoppingItem() }; // never empty
    float MoneyLeft = 500; // euros
    float MoneyGiven = 0; // at the start of the task
    float ListCost = 0; // of the whole list
    std::int32_t TimeLeft = 0; // seconds, below zero when the time is over
    Int16 ListLength = 4; // products that the next list asks for
    Int16 PayStep = 1; // 1 choosing, 2 adding up, 3 working out the change, 4 leaving with the products
    float BasketTotal = 0; // the true cost of the basket
    float NotesGiven = 0; // in banknotes
    float AmountPaid = 0; // what the pupil added up, and pays

    // Draws a new list, with the money and the time for it. Basket and PayStep stay as they are. If the catalogue has
    // fewer products than the list asks for, the list holds all of them; if the prices add up to more than a single can
    // hold, the list is empty. A sentence says so in either case.
    std::string NewShoppingTask(RandomSource& random);

    // Takes the number of products that a person typed, "." being the decimal point, when it is above 1 and below 11.
    bool SetListLength(std::string_view typed);

    // "(2) Una barra de pan", "(X) Un periódico" when none is left to buy; "(2) Una barra de pan 0,85" in the basket.
    std::vector<std::string> ListLines() const;
    std::vector<std::string> BasketLines() const;

    // Whether something on the list is still to be bought.
    bool IsListOpen() const;

    // Goes into a shop, with an empty basket: what is on its shelf, in the order of the catalogue.
    std::vector<ShelfProduct> EnterShop(std::string_view shop);

    // Puts one unit into the basket; returns the line where it is now.
    int TakeProduct(int product);

    // Puts one unit of a basket line back; returns the line to be selected then, nothing when the basket is empty.
    std::optional<int> PutBack(int line);

    // The next step of paying, with what the pupil wrote into the answer box.
    PayOutcome Continue(std::string_view typed);

    // The prices of the basket while they are added up, the subtraction while the change is worked out; to be called
    // after the message of the step has been shown. Throws a RunTimeError for a price or banknotes of 1.000 € or more,
    // which have no room, and for more than 114 rows.
    PriceColumn ColumnAboveResult() const;

    // Going out of a shop takes three minutes, with or without a purchase.
    void LeaveShop() { TimeLeft -= 180; }

    // One second goes by.
    void Tick() { --TimeLeft; }

    HomeComing GoHome() const;

private:
    int productCount() const;
    void drawList(int length, RandomSource& random);
    ShoppingItem itemOf(int product, int units) const;
    bool isBasketEmpty() const { return Basket.front().Product < 0; }
    PayOutcome beginSum();
    PayOutcome paySum(float sum);
    PayOutcome beginChange(std::string message);
    PayOutcome takeChange(float change);
    std::string receipt() const;
    PayOutcome leaveWithPurchase();
};

} // namespace numbrela
