#include "activities/shopping/core/Money.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

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
    struct Case {
        float A;
        float B;
        int Result;
    };
    for (const Case& c : { Case { 2.9F, 2.9F, 0 }, { 0, 0, 0 }, { 2.9F, 2.90009F, 0 }, { 2.90009F, 2.9F, 0 },
             { 2.9F, 2.9002F, -1 }, { 2.9002F, 2.9F, 1 }, { 0, 0.0001F, -1 }, { 0.0001F, 0, 1 }, { 0, 0.00009F, 0 },
             { -1, 1, -1 }, { 999.99F, 999.98F, 1 }, { 1e30F, 2, 1 }, { 3, 1e30F, -1 } }) {
        EXPECT_EQ(CompareMoney(c.A, c.B), c.Result) << c.A << " and " << c.B;
    }
}

TEST(MoneyTest, AddingUpInSinglePrecisionStaysWithinTheTolerance)
{
    float sum = 0;
    for (int i = 0; i < 114; ++i) {
        sum += 0.1F;
    }
    ASSERT_NE(sum, 11.4F);
    EXPECT_EQ(CompareMoney(sum, 11.4F), 0);
}

TEST(MoneyTest, NotesAreTheNextMultipleOfFiveAboveTheRoundedAmount)
{
    struct Case {
        float Amount;
        float Notes;
    };
    for (const Case& c : { Case { 0, 5 }, { -0.00005F, 5 }, { 2.9F, 5 }, { 4.4F, 5 }, { 4.5F, 5 }, { 4.51F, 10 },
             { 5, 10 }, { 5.5F, 10 }, { 9.5F, 15 }, { 12.35F, 15 }, { 14.5F, 15 }, { 14.6F, 20 }, { 15, 20 },
             { 23.4F, 25 }, { 24.5F, 25 }, { 24.6F, 30 }, { 25, 30 }, { 994.5F, 995 }, { 994.6F, 1000 } }) {
        EXPECT_EQ(NotesAbove(c.Amount), c.Notes) << c.Amount;
    }
}

TEST(MoneyTest, NotesOfEveryAmountInCentsAgreeWithCounting)
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
}

TEST(MoneyTest, APriceInAColumnHasTwoDecimalsAndSixCharacters)
{
    struct Case {
        float Price;
        const char* Text;
    };
    for (const Case& c : { Case { 0.85F, "  0,85" }, { 1.2F, "  1,20" }, { 12.5F, " 12,50" }, { 5, "  5,00" },
             { 0, "  0,00" }, { 0.05F, "  0,05" }, { 0.125F, "  0,13" }, { 1.005F, "  1,01" }, { 0.004F, "  0,00" },
             { 0.005F, "  0,01" }, { 0.00499999F, "  0,00" }, { 2.675F, "  2,68" }, { 999.99F, "999,99" },
             { 999.994F, "999,99" }, { -0.00005F, "  0,00" }, { -2.5F, " -2,50" } }) {
        EXPECT_EQ(PriceText(c.Price), c.Text);
    }
}

TEST(MoneyTest, EveryPriceInCentsIsWrittenAsItsDigits)
{
    for (int cents = 0; cents < 100'000; ++cents) {
        std::string digits = std::to_string(cents);
        digits.insert(0, 3 - std::min<std::size_t>(digits.size(), 3), '0');
        digits.insert(digits.size() - 2, ",");
        digits.insert(0, 6 - digits.size(), ' ');
        ASSERT_EQ(PriceText(static_cast<float>(cents / 100.0)), digits);
    }
}

TEST(MoneyTest, APriceOfAThousandHasNoRoomInTheColumn)
{
    for (const float price : { 1000.0F, 999.995F, 12345.67F, 1e38F, -100.0F }) {
        EXPECT_EQ(KindThrownBy([price] { PriceText(price); }), RunTimeError::Kind::InvalidArgument) << price;
    }
    EXPECT_EQ(KindThrownBy([] { PriceText(std::numeric_limits<float>::infinity()); }), RunTimeError::Kind::Overflow);
}

TEST(MoneyTest, APlainPriceIsWrittenWhateverItsSize)
{
    EXPECT_EQ(PlainPriceText(0.85F), "0,85");
    EXPECT_EQ(PlainPriceText(12), "12");
    EXPECT_EQ(PlainPriceText(1234.5F), "1234,5");
    EXPECT_EQ(PlainPriceText(std::numeric_limits<float>::infinity()), "infinito");
}

TEST(MoneyTest, ThePurseHasWholeEurosOfTwoDigitsAtLeast)
{
    struct Case {
        float Money;
        const char* Text;
    };
    for (const Case& c :
        { Case { 5, "05€" }, { 0, "00€" }, { 25, "25€" }, { 500, "500€" }, { 995, "995€" }, { 1000, "1.000€" },
            { 1250, "1.250€" }, { 12'345, "12.345€" }, { 123'455, "123.455€" }, { 1'234'565, "1.234.565€" } }) {
        EXPECT_EQ(PurseText(c.Money), c.Text);
    }
}

TEST(MoneyTest, WhatIsLeftIsWrittenAsAPlainNumber)
{
    EXPECT_EQ(RemainderText(17.4F), "17,4 €");
    EXPECT_EQ(RemainderText(20), "20 €");
    EXPECT_EQ(RemainderText(0), "0 €");
    EXPECT_EQ(RemainderText(25 - 2.9F - 3.85F), "18,25 €");
    EXPECT_EQ(RemainderText(1250.5F), "1250,5 €");
}

TEST(MoneyTest, TimeIsMinutesAndSecondsAndNothingWhenItIsOver)
{
    struct Case {
        int Seconds;
        const char* Text;
    };
    for (const Case& c : { Case { 1500, "25 : 00" }, { 1499, "24 : 59" }, { 187, "3 : 07" }, { 60, "1 : 00" },
             { 59, "0 : 59" }, { 1, "0 : 01" }, { 0, "" }, { -1, "" }, { -180, "" }, { 6000, "100 : 00" } }) {
        EXPECT_EQ(TimeText(c.Seconds), c.Text);
    }
}

} // namespace

} // namespace numbrela
