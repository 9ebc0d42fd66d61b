#include "activities/shopping/core/Money.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace numbrela {

namespace {

using testing::KindThrownBy;

TEST(MoneyTest, ReadsAPriceAsSpanishWritesIt)
{
    EXPECT_EQ(ParsePrice("1,25"), 1.25F);
    EXPECT_EQ(ParsePrice(" 3 "), 3.0F);
    EXPECT_EQ(ParsePrice("1.250,5"), 1250.5F);
    EXPECT_EQ(ParsePrice("-2"), -2.0F);
    EXPECT_EQ(ParsePrice("0"), 0.0F);
    EXPECT_EQ(ParsePrice("3,4e38"), 3.4e38F);
    for (const char* text :
        { "", " ", "abc", "1,2,3", "1,25 €", "uno", ",", "-", "3,5e38", "-3,5e38", "1e400", "inf", "nan" }) {
        EXPECT_EQ(ParsePrice(text), std::nullopt) << text;
    }
}

TEST(MoneyTest, ReadsThePriceThatATextBeginsWithWithAPoint)
{
    EXPECT_EQ(LeadingPrice("1.25"), 1.25F);
    EXPECT_EQ(LeadingPrice("1,25"), 1.0F);
    EXPECT_EQ(LeadingPrice("abc"), 0.0F);
    EXPECT_EQ(LeadingPrice("3.4e38 €"), 3.4e38F);
    for (const char* text : { "3.5e38", "-3.5e38", "1e400" }) {
        EXPECT_EQ(LeadingPrice(text), std::nullopt) << text;
    }
}

TEST(MoneyTest, AmountsCloserThanATenThousandthAreEqual)
{
    const std::tuple<float, float, int> cases[] = { { 2.9F, 2.9F, 0 }, { 0, 0, 0 }, { 2.9F, 2.90009F, 0 },
        { 2.90009F, 2.9F, 0 }, { 2.9F, 2.9002F, -1 }, { 2.9002F, 2.9F, 1 }, { 0, 0.0001F, -1 }, { 0.0001F, 0, 1 },
        { 0, 0.00009F, 0 }, { -1, 1, -1 }, { 999.99F, 999.98F, 1 }, { 1e30F, 2, 1 }, { 3, 1e30F, -1 } };
    for (const auto& [a, b, result] : cases) {
        EXPECT_EQ(CompareMoney(a, b), result) << a << " and " << b;
    }
    float sum = 0;
    for (int i = 0; i < 114; ++i) {
        sum += 0.1F;
    }
    ASSERT_NE(sum, 11.4F);
    EXPECT_EQ(CompareMoney(sum, 11.4F), 0) << "added up in single precision";
}

TEST(MoneyTest, NotesOfEveryAmountInCentsAreTheNextMultipleOfFiveAboveTheRoundedAmount)
{
    for (int cents = 0; cents < 100'000; ++cents) {
        const int lower = cents / 100;
        const int rest = cents % 100;
        const bool up = rest > 50 || (rest == 50 && lower % 2 == 1);
        int notes = 0;
        while (notes <= lower + (up ? 1 : 0)) {
            notes += 5;
        }
        ASSERT_EQ(NotesAbove(static_cast<float>(cents / 100.0)), static_cast<float>(notes)) << cents;
    }
    EXPECT_EQ(NotesAbove(-0.00005F), 5);
    EXPECT_EQ(NotesAbove(4.51F), 10);
}

TEST(MoneyTest, APriceInAColumnHasTwoDecimalsAndSixCharacters)
{
    for (int cents = 0; cents < 100'000; ++cents) {
        std::string digits = std::to_string(cents);
        digits.insert(0, 3 - std::min<std::size_t>(digits.size(), 3), '0');
        digits.insert(digits.size() - 2, ",");
        digits.insert(0, 6 - digits.size(), ' ');
        ASSERT_EQ(PriceText(static_cast<float>(cents / 100.0)), digits);
    }
    const std::pair<float, const char*> rounded[] = { { 0.125F, "  0,13" }, { 1.005F, "  1,01" }, { 0.004F, "  0,00" },
        { 0.005F, "  0,01" }, { 0.00499999F, "  0,00" }, { 2.675F, "  2,68" }, { 999.994F, "999,99" },
        { -0.00005F, "  0,00" }, { -2.5F, " -2,50" } };
    for (const auto& [price, text] : rounded) {
        EXPECT_EQ(PriceText(price), text);
    }
}

TEST(MoneyTest, APriceOfAThousandHasNoRoomInTheColumn)
{
    for (const float price : { 1000.0F, 999.995F, 12345.67F, 1e38F, -100.0F }) {
        EXPECT_EQ(KindThrownBy([price] { PriceText(price); }), RunTimeError::Kind::InvalidArgument) << price;
    }
    EXPECT_EQ(KindThrownBy([] { PriceText(std::numeric_limits<float>::infinity()); }), RunTimeError::Kind::Overflow);
}

TEST(MoneyTest, APlainPriceIsWrittenWhateverItsSizeAndWhatIsLeftOfMoneyToo)
{
    EXPECT_EQ(PlainPriceText(0.85F), "0,85");
    EXPECT_EQ(PlainPriceText(12), "12");
    EXPECT_EQ(PlainPriceText(1234.5F), "1234,5");
    EXPECT_EQ(PlainPriceText(std::numeric_limits<float>::infinity()), "infinito");
    EXPECT_EQ(RemainderText(0), "0 €");
    EXPECT_EQ(RemainderText(25 - 2.9F - 3.85F), "18,25 €");
    EXPECT_EQ(RemainderText(1250.5F), "1250,5 €");
}

TEST(MoneyTest, ThePurseHasWholeEurosOfTwoDigitsAtLeast)
{
    const std::pair<float, const char*> cases[]
        = { { 5, "05€" }, { 0, "00€" }, { 25, "25€" }, { 500, "500€" }, { 995, "995€" }, { 1000, "1.000€" },
              { 12'345, "12.345€" }, { 123'455, "123.455€" }, { 1'234'565, "1.234.565€" } };
    for (const auto& [money, text] : cases) {
        EXPECT_EQ(PurseText(money), text);
    }
}

TEST(MoneyTest, TimeIsMinutesAndSecondsAndNothingWhenItIsOver)
{
    const std::pair<int, const char*> cases[] = { { 6000, "100 : 00" }, { 1500, "25 : 00" }, { 1499, "24 : 59" },
        { 187, "3 : 07" }, { 60, "1 : 00" }, { 59, "0 : 59" }, { 1, "0 : 01" }, { 0, "" }, { -1, "" }, { -180, "" } };
    for (const auto& [seconds, text] : cases) {
        EXPECT_EQ(TimeText(seconds), text);
    }
}

} // namespace

} // namespace numbrela
