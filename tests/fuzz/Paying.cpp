#include "activities/shopping/core/ShoppingTask.h"

#include "activities/shopping/core/Money.h"
#include "common/core/RunTimeError.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/TypedNumber.h"
#include "tests/support/MoneyOnPaper.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

// What a pupil can do in the shopping centre, a byte for each act. The first byte seeds the draws; the next line names
// the prices of the products in cents, which the shops sell in turn.
//
//   N5        new task with a list of so many products, up to the end of the line
//   E 3       into a shop
//   T 0       takes a product off the shelf, by its place
//   P 0       puts a line of the basket back
//   C...      continues, with what stands in the answer box up to the end of the line
//   R         continues with the right answer
//   H         goes home
namespace numbrela::testing {

namespace {

std::string euros(long cents)
{
    return CommaText(cents, 2);
}

class Shopper {
public:
    explicit Shopper(FuzzInput input)
        : input_(input)
        , random_(input_.TakeByte())
    {
        readPrices();
        newTask("");
    }

    void Run()
    {
        while (!input_.AtEnd()) {
            act(static_cast<char>(input_.TakeByte()));
            EXPECT_TRUE(task_.PayStep >= 1 && task_.PayStep <= 4);
            EXPECT_FALSE(task_.Basket.empty());
        }
    }

private:
    void readPrices()
    {
        constexpr long mostCents = 99'999;
        constexpr std::size_t mostProducts = 40;
        std::istringstream line(input_.TakeLine());
        for (long cents = 0; cents_.size() < mostProducts && line >> cents;) {
            cents = 1 + std::abs(cents % mostCents);
            const char* shop = ShoppingTask::ShopNames.at(cents_.size() % ShoppingTask::ShopNames.size());
            const std::string name = "Producto " + std::to_string(cents_.size());
            AddProduct(task_.Catalogue,
                { .Nombre = std::string_view(name),
                    .Precio = static_cast<float>(cents) / 100,
                    .Tienda = std::string_view(shop) });
            cents_.push_back(cents);
        }
    }

    void act(char byte)
    {
        static constexpr std::array<Act<Shopper>, 7> acts { {
            { 'N', [](auto& shopper) { shopper.newTask(shopper.input_.TakeLine()); } },
            { 'E', [](auto& shopper) { shopper.enter(shopper.input_.TakeIndex(ShoppingTask::ShopNames.size())); } },
            { 'T', [](auto& shopper) { shopper.take(shopper.input_.TakeIndex(256)); } },
            { 'P', [](auto& shopper) { shopper.putBack(shopper.input_.TakeIndex(256)); } },
            { 'C', [](auto& shopper) { shopper.proceed(shopper.input_.TakeLine()); } },
            { 'R', [](auto& shopper) { shopper.proceed(shopper.rightAnswer()); } },
            { 'H', [](auto& shopper) { shopper.goHome(); } },
        } };
        Do(acts, byte, *this);
    }

    // The money is the next note above what the list costs, to the cent.
    void newTask(const std::string& length)
    {
        const double wanted = NumberAtTheStart(length);
        EXPECT_EQ(task_.SetListLength(length), wanted > 1 && wanted < 11);
        const std::string notice = task_.NewShoppingTask(random_);
        const std::size_t expected = std::min(cents_.size(), static_cast<std::size_t>(task_.ListLength));
        EXPECT_EQ(task_.ShoppingList.size(), expected);
        EXPECT_EQ(notice.empty(), expected == static_cast<std::size_t>(task_.ListLength));
        long cost = 0;
        std::set<std::size_t> shops;
        for (const ShoppingItem& item : task_.ShoppingList) {
            cost += item.Units * centsOf(item);
            shops.insert(static_cast<std::size_t>(item.Product) % ShoppingTask::ShopNames.size());
        }
        EXPECT_LT(std::fabs(static_cast<double>(task_.ListCost) - static_cast<double>(cost) / 100), 0.02);
        purseChanged_ = true;
        EXPECT_EQ(task_.MoneyGiven, task_.MoneyLeft);
        EXPECT_GT(task_.MoneyGiven, task_.ListCost);
        EXPECT_LE(task_.MoneyGiven, task_.ListCost + 5.5F);
        EXPECT_EQ(std::fmod(task_.MoneyGiven, 5.0F), 0);
        EXPECT_EQ(task_.TimeLeft, static_cast<int>(10 + 5 * shops.size()) * 60);
    }

    long centsOf(const ShoppingItem& item) const { return cents_.at(static_cast<std::size_t>(item.Product)); }

    void enter(int shop)
    {
        shelf_ = task_.EnterShop(ShoppingTask::ShopNames.at(static_cast<std::size_t>(shop)));
        inShop_ = true;
        EXPECT_EQ(task_.PayStep, 1);
        EXPECT_TRUE(task_.BasketLines().empty());
        EXPECT_EQ(shelf_.size(), (cents_.size() + 9 - static_cast<std::size_t>(shop)) / 10);
    }

    void take(int place)
    {
        if (!inShop_ || task_.PayStep != 1 || shelf_.empty()) {
            return;
        }
        const ShelfProduct& product = shelf_.at(static_cast<std::size_t>(place) % shelf_.size());
        const long before = basketCents();
        const int line = task_.TakeProduct(product.Product);
        EXPECT_EQ(task_.Basket.at(static_cast<std::size_t>(line)).Product, product.Product);
        EXPECT_EQ(basketCents(), before + cents_.at(static_cast<std::size_t>(product.Product)));
    }

    void putBack(int place)
    {
        const std::size_t lines = task_.BasketLines().size();
        if (!inShop_ || task_.PayStep != 1 || lines == 0) {
            return;
        }
        const int line = place % static_cast<int>(lines);
        const long price = centsOf(task_.Basket.at(static_cast<std::size_t>(line)));
        const long before = basketCents();
        const std::optional<int> chosen = task_.PutBack(line);
        EXPECT_EQ(basketCents(), before - price);
        EXPECT_EQ(chosen.has_value(), before > price);
        EXPECT_EQ(chosen.value_or(0), chosen && line < static_cast<int>(task_.BasketLines().size()) ? line : 0);
    }

    // What is in the basket costs this.
    long basketCents() const
    {
        long cents = 0;
        if (!task_.BasketLines().empty()) {
            for (const ShoppingItem& item : task_.Basket) {
                cents += item.Units * centsOf(item);
            }
        }
        return cents;
    }

    int basketUnits() const
    {
        int units = 0;
        for (const ShoppingItem& item : task_.Basket) {
            units += item.Units;
        }
        return units;
    }

    std::string rightAnswer() const
    {
        if (task_.PayStep == 2) {
            return euros(basketCents());
        }
        return task_.PayStep == 3 ? euros(std::lround((task_.NotesGiven - task_.AmountPaid) * 100)) : "";
    }

    void proceed(const std::string& typed)
    {
        if (!inShop_) {
            return;
        }
        try {
            pay(typed);
        } catch (const RunTimeError& error) {
            // Amounts of four digits have no place in a column, and a column no place for more than 114 prices.
            const bool tooLong = error.ErrorKind() == RunTimeError::Kind::Overflow && basketUnits() > 114;
            const bool tooMuch = error.ErrorKind() == RunTimeError::Kind::InvalidArgument && task_.NotesGiven >= 1000;
            EXPECT_TRUE(tooLong || tooMuch) << error.what();
            inShop_ = false; // the program would have ended
        }
    }

    void pay(const std::string& typed)
    {
        switch (task_.PayStep) {
        case 1:
            beginSum(typed);
            break;
        case 2:
            paySum(typed);
            break;
        case 3:
            takeChange(typed);
            break;
        default:
            leave(typed);
        }
    }

    // A column holds every price once for each unit, and adds up to what the basket costs.
    void beginSum(const std::string& typed)
    {
        const long cost = basketCents();
        const int units = basketUnits();
        const PayOutcome outcome = task_.Continue(typed);
        if (cost == 0) {
            EXPECT_EQ(outcome.Scene, ShopScene::Centre);
            inShop_ = false;
            return;
        }
        EXPECT_EQ(outcome.Scene, ShopScene::Sum);
        EXPECT_EQ(task_.PayStep, 2);
        const PriceColumn column = task_.ColumnAboveResult();
        EXPECT_EQ(column.Rows, units);
        const PricesInColumn prices = AddUpColumn(column.Text);
        EXPECT_EQ(prices.Cents, cost);
        EXPECT_EQ(prices.Count, units);
        EXPECT_LT(std::fabs(static_cast<double>(task_.BasketTotal) - static_cast<double>(cost) / 100),
            static_cast<double>(units) * static_cast<double>(task_.BasketTotal) * 0x1p-24 * 2);
    }

    static float typedAmount(const std::string& typed) { return TypedPriceOnPaper(typed).value_or(0); }

    void paySum(const std::string& typed)
    {
        const float sum = typedAmount(typed);
        const float before = task_.MoneyLeft;
        const PayOutcome outcome = task_.Continue(typed);
        EXPECT_EQ(task_.MoneyLeft, before) << "nothing is spent before the shop is left";
        if (ComparedAsSingles(sum, task_.MoneyLeft) > 0) {
            EXPECT_EQ(outcome.Scene, ShopScene::Shelves);
            EXPECT_EQ(task_.PayStep, 1);
        } else if (ComparedAsSingles(sum, task_.BasketTotal) < 0) {
            EXPECT_EQ(outcome.Scene, ShopScene::Centre);
            inShop_ = false;
        } else {
            EXPECT_EQ(outcome.Scene, ShopScene::Change);
            EXPECT_EQ(outcome.Message.empty(), ComparedAsSingles(sum, task_.BasketTotal) == 0);
            EXPECT_EQ(task_.PayStep, 3);
            EXPECT_EQ(task_.AmountPaid, sum);
            purseChanged_ = false;
            checkNotes(sum);
            EXPECT_EQ(task_.ColumnAboveResult().Text, PriceText(task_.NotesGiven) + "\n-" + PriceText(sum));
        }
    }

    // The least number of notes of 5 euros that is more than the amount in whole euros.
    void checkNotes(float amount) const
    {
        EXPECT_EQ(std::fmod(task_.NotesGiven, 5.0F), 0);
        const double whole = std::nearbyint(static_cast<double>(amount));
        EXPECT_GT(static_cast<double>(task_.NotesGiven), whole);
        EXPECT_LE(static_cast<double>(task_.NotesGiven), whole + 5);
        EXPECT_GT(task_.NotesGiven, amount);
    }

    // What was paid and what comes back make up the notes.
    void takeChange(const std::string& typed)
    {
        const float change = typedAmount(typed);
        const int comparison = ComparedAsSingles(change, task_.NotesGiven - task_.AmountPaid);
        const PayOutcome outcome = task_.Continue(typed);
        EXPECT_EQ(outcome.Message.empty(), comparison == 0);
        if (comparison == 0) {
            EXPECT_LT(std::fabs(change + task_.AmountPaid - task_.NotesGiven), 0.0002F);
        }
        EXPECT_EQ(outcome.Scene, comparison > 0 ? ShopScene::Centre : ShopScene::Receipt);
        EXPECT_EQ(task_.PayStep, comparison > 0 ? 3 : 4);
        inShop_ = comparison <= 0;
    }

    void leave(const std::string& typed)
    {
        const float before = task_.MoneyLeft;
        const std::vector<ShoppingItem> wanted = task_.ShoppingList;
        EXPECT_EQ(task_.Continue(typed).Scene, ShopScene::CentreWithPurchase);
        EXPECT_EQ(task_.MoneyLeft, before - task_.AmountPaid);
        EXPECT_TRUE(task_.MoneyLeft > -0.0002F || purseChanged_) << "the purse gave more than was in it";
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            int units = wanted[i].Units;
            for (const ShoppingItem& item : task_.Basket) {
                units -= item.Product == wanted[i].Product ? static_cast<int>(item.Units) : 0;
            }
            EXPECT_EQ(task_.ShoppingList[i].Units, std::max(units, 0));
        }
        inShop_ = false;
    }

    void goHome() const
    {
        bool affordable = false;
        bool open = false;
        for (const ShoppingItem& item : task_.ShoppingList) {
            open = open || item.Units > 0;
            affordable = affordable || (item.Units > 0 && item.Precio <= task_.MoneyLeft);
        }
        const HomeComing home = task_.GoHome();
        EXPECT_EQ(home.Ended, !affordable);
        EXPECT_EQ(task_.IsListOpen(), open);
        EXPECT_EQ(home.Message.starts_with("Has conseguido"), !open);
    }

    FuzzInput input_;
    SeededRandom random_;
    std::vector<long> cents_; // prices of the catalogue
    ShoppingTask task_;
    std::vector<ShelfProduct> shelf_;
    bool inShop_ = false;
    bool purseChanged_ = false; // by a new task, since what is to be paid was found to be in it
};

} // namespace

void Check(FuzzInput input)
{
    Shopper(input).Run();
}

} // namespace numbrela::testing
