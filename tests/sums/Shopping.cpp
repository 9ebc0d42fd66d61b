#include "tests/sums/Activities.h"

#include "activities/shopping/core/ShoppingTask.h"
#include "common/core/RunTimeError.h"

#include "tests/support/KindThrownBy.h"
#include "tests/support/MoneyOnPaper.h"
#include "tests/support/Schoolbook.h"

#include <cmath>
#include <string>
#include <vector>

namespace numbrela::testing {

namespace {

float singleOf(long cents)
{
    return static_cast<float>(static_cast<double>(cents) / 100);
}

// The next multiple of 5 euros above the amount in whole euros, half a euro being rounded to the even one.
long notesAbove(long cents)
{
    const long whole = cents / 100;
    const long rest = cents % 100;
    const long rounded = whole + (rest > 50 || (rest == 50 && whole % 2 == 1) ? 1 : 0);
    return (rounded / 5 * 5 + 5) * 100;
}

// One day at the shops, with prices in cents: draws catalogue and list, buys all that the list asks for, shop by shop,
// with the sums and the change as they are on paper.
class ShoppingDay {
public:
    ShoppingDay(RandomSource& random, Tally& tally)
        : random_(random)
        , tally_(tally)
    {
        drawCatalogue();
        task_.SetListLength(std::to_string(2 + static_cast<int>(random_.Next() * 9)));
        task_.NewShoppingTask(random_);
    }

    void Spend()
    {
        checkPurse();
        for (const char* shop : ShoppingTask::ShopNames) {
            if (fillBasket(shop)) {
                tally_.CountExercise({ task_.ListLength });
                tally_.Describe("a basket of " + CommaText(cost_, 2));
                if (!buy()) {
                    return;
                }
            }
        }
        goHome();
    }

private:
    void drawCatalogue()
    {
        constexpr int mostProducts = 20;
        constexpr std::array<double, 3> dearest { 500, 5'000, 50'000 }; // cents
        const double most = dearest.at(static_cast<std::size_t>(random_.Next() * dearest.size()));
        while (static_cast<int>(cents_.size()) < mostProducts) {
            cents_.push_back(1 + static_cast<long>(random_.Next() * most));
            const auto shop = static_cast<std::size_t>(random_.Next() * ShoppingTask::ShopNames.size());
            AddProduct(task_.Catalogue,
                { .Nombre = std::string_view(std::to_string(cents_.size())),
                    .Precio = singleOf(cents_.back()),
                    .Tienda = std::string_view(ShoppingTask::ShopNames.at(shop)) });
        }
    }

    long centsOf(const ShoppingItem& item) const { return cents_.at(static_cast<std::size_t>(item.Product)); }

    void checkPurse()
    {
        long cost = 0;
        float asSingles = 0;
        for (const ShoppingItem& item : task_.ShoppingList) {
            cost += item.Units * centsOf(item);
            asSingles += static_cast<float>(item.Units) * singleOf(centsOf(item));
        }
        tally_.Describe("a list of " + CommaText(cost, 2));
        tally_.Require(task_.ListCost == asSingles, "the list costs otherwise");
        const bool asOnPaper = task_.MoneyGiven == singleOf(notesAbove(cost));
        const bool onTheEdge = cost % 100 == 50; // of which singles may be a little to one side
        tally_.Require(asOnPaper || onTheEdge, "the purse holds another sum");
    }

    // Takes what the list wants of a shop; false when that is nothing.
    bool fillBasket(const char* shop)
    {
        task_.EnterShop(shop);
        cost_ = 0;
        singleCost_ = 0;
        rows_ = 0;
        for (const ShoppingItem& wanted : task_.ShoppingList) {
            if (wanted.Tienda.Trimmed() == shop) {
                for (int unit = 0; unit < wanted.Units; ++unit) {
                    task_.TakeProduct(wanted.Product);
                    cost_ += centsOf(wanted);
                    singleCost_ += singleOf(centsOf(wanted));
                    ++rows_;
                }
            }
        }
        return rows_ > 0;
    }

    // False when the day is over.
    bool buy()
    {
        task_.Continue("");
        checkColumn(task_.ColumnAboveResult().Text);
        return judgeSum(task_.Continue(CommaText(cost_, 2))) && notesHaveRoom() && takeChange() && leave();
    }

    // Every price once for each unit, in cents.
    void checkColumn(const std::string& column)
    {
        const PricesInColumn prices = AddUpColumn(column);
        tally_.Require(prices.Cents == cost_ && prices.Count == rows_, "the column adds up to something else");
        tally_.Require(task_.BasketTotal == singleCost_, "the singles are added up otherwise");
    }

    bool judgeSum(const PayOutcome& outcome)
    {
        const int comparison = ComparedAsSingles(singleOf(cost_), singleCost_);
        const char* cause = comparison < 0 ? "singles add up to more"
            : comparison > 0               ? "singles add up to less, and the pupil is warned"
                                           : nullptr;
        // Every price is off by half the distance of neighbouring singles at most, and so is every sum on the way.
        const float distance = std::nextafter(singleCost_, HUGE_VALF) - singleCost_;
        tally_.Require(
            comparison == 0 || static_cast<float>(rows_ + 1) * distance >= 0.0001F, "singles are fine enough for it");
        const bool accepted = outcome.Scene == ShopScene::Change;
        tally_.CountVerdict("sum on paper", accepted, comparison >= 0, cause);
        tally_.Require(outcome.Message.empty() == (cause == nullptr), "the message is another");
        return accepted;
    }

    static std::string inColumn(long cents)
    {
        const std::string text = CommaText(cents, 2);
        return std::string(6 - text.size(), ' ') + text;
    }

    // Notes of four digits have no place in a column.
    bool notesHaveRoom()
    {
        std::string column;
        const auto kind = KindThrownBy([&] { column = task_.ColumnAboveResult().Text; });
        const long notes = notesAbove(cost_);
        if (notes >= 100'000) {
            tally_.Note("no change: notes of four digits have no room");
            tally_.Require(kind == RunTimeError::Kind::InvalidArgument, "they have");
            return false;
        }
        tally_.Compare("the subtraction", column, inColumn(notes) + "\n-" + inColumn(cost_));
        return true;
    }

    // The notes, what was paid and what comes back are the same on paper.
    bool takeChange()
    {
        const long notes = notesAbove(cost_);
        tally_.Require(task_.NotesGiven == singleOf(notes), "other notes are given");
        const float due = singleOf(notes) - singleOf(cost_);
        const int comparison = ComparedAsSingles(singleOf(notes - cost_), due);
        const PayOutcome outcome = task_.Continue(CommaText(notes - cost_, 2));
        const bool accepted = outcome.Scene == ShopScene::Receipt;
        tally_.CountVerdict(
            "change on paper", accepted, comparison <= 0, comparison == 0 ? nullptr : "singles take away otherwise");
        tally_.Require(outcome.Message.empty() == (comparison == 0), "the message is another");
        return accepted;
    }

    bool leave()
    {
        const float left = task_.MoneyLeft - singleOf(cost_);
        const PayOutcome outcome = task_.Continue("");
        tally_.Require(
            outcome.Scene == ShopScene::CentreWithPurchase && task_.MoneyLeft == left, "the purchase is not paid");
        return true;
    }

    // All was bought for what it costs, so that just that was spent, as far as singles tell.
    void goHome()
    {
        const HomeComing home = task_.GoHome();
        const float ideal = task_.MoneyGiven - task_.ListCost;
        const std::string verdict = ideal == task_.MoneyLeft ? "\nHas gastado justo el dinero necesario."
            : ideal > task_.MoneyLeft                        ? "\npero has gastado más dinero del necesario"
                                                             : "";
        tally_.Note(ideal == task_.MoneyLeft ? "home with just the money spent"
                : ideal > task_.MoneyLeft    ? "home with just the money spent, of which singles make more"
                                             : "home with just the money spent, of which singles make less");
        tally_.Require(home.Ended && std::fabs(ideal - task_.MoneyLeft) < 0.01F, "the day is not over");
        tally_.Compare("the verdict", home.Message.substr(0, home.Message.rfind('\n')),
            "Has conseguido comprar todos los productos pedidos" + verdict);
    }

    RandomSource& random_;
    Tally& tally_;
    std::vector<long> cents_; // prices of the catalogue
    ShoppingTask task_;
    long cost_ = 0; // of the basket, in cents
    float singleCost_ = 0; // the same, added up in singles
    int rows_ = 0; // units in the basket
};

} // namespace

void TryShopping(RandomSource& random, Tally& tally)
{
    ShoppingDay(random, tally).Spend();
}

} // namespace numbrela::testing
