#include "activities/multiply/core/FactorText.h"

#include "tests/support/ForeignLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>

namespace numbrela {

namespace {

using numbrela::testing::ForeignLocale;
using numbrela::testing::StrangePunctuation;

TEST(FactorText, DigitsOnlyDropsTheFirstComma)
{
    const struct {
        const char* Text;
        const char* Expected;
    } cases[] = { { "12,05", "1205" }, { "0,5", "05" }, { "105", "105" }, { "", "" }, { ",", "" }, { "1,2,3", "12,3" },
        { "-7,5", "-75" }, { "5,", "5" }, { ",5", "5" }, { "7  ", "7  " }, { "1.5", "1.5" } };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(DigitsOnly(text), expected) << text;
    }
}

TEST(FactorText, MultipliesWholeNumbers)
{
    const struct {
        const char* Number1;
        const char* Number2;
        const char* Product;
    } cases[] = { { "7", "123", "861" }, { "0", "123", "0" }, { "123", "0", "0" }, { "0", "0", "0" },
        { "007", "30", "210" }, { "9", "9", "81" }, { "1", "1", "1" }, { "-7", "3", "-21" }, { "7", "-3", "-21" },
        { "-7", "-3", "21" }, { "-7", "0", "0" }, { "0", "-7", "0" }, { "99999", "99999", "9999800001" },
        { "123456789012345", "9", "1111111101111105" },
        { "999999999999999", "999999999999999", "999999999999998000000000000001" },
        { "12345678901234600000", "3", "37037036703703800000" } };
    for (const auto& [number1, number2, product] : cases) {
        EXPECT_EQ(WholeProduct(number1, number2), product) << number1 << " x " << number2;
    }
}

TEST(FactorText, MultipliesAsTheMachineDoes)
{
    std::mt19937_64 chance(17);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t number1 = chance() >> (32 + chance() % 32);
        const std::uint64_t number2 = chance() >> (32 + chance() % 32);
        ASSERT_EQ(WholeProduct(std::to_string(number1), std::to_string(number2)), std::to_string(number1 * number2));
    }
}

TEST(FactorText, WritesProductsInTheSpanishForm)
{
    const struct {
        const char* WholeNumber;
        int Decimals;
        const char* Text;
    } cases[] = { { "861", 0, "861" }, { "1000", 0, "1.000" }, { "3358", 2, "33,58" }, { "123450", 2, "1.234,50" },
        { "5", 2, "0,05" }, { "50", 2, "0,50" }, { "0", 2, "0,00" }, { "0", 0, "0" }, { "999999", 0, "999.999" },
        { "1000000", 0, "1.000.000" }, { "1234567890", 0, "1.234.567.890" }, { "12345678901", 10, "1,2345678901" },
        { "-3358", 2, "-33,58" }, { "-123456", 0, "-123.456" }, { "-1234567", 1, "-123.456,7" }, { "-5", 2, "-0,05" },
        { "1", 18, "0,000000000000000001" },
        { "123456789012345678901234567890", 10, "12.345.678.901.234.567.890,1234567890" } };
    for (const auto& [wholeNumber, decimals, text] : cases) {
        EXPECT_EQ(GroupedDecimalText(wholeNumber, decimals), text) << wholeNumber << " / 10^" << decimals;
    }
}

TEST(FactorText, IsTheSameUnderForeignLocales)
{
    const ForeignLocale foreign("de_DE.UTF-8", std::locale(std::locale::classic(), new StrangePunctuation));
    EXPECT_EQ(WholeProduct("1234", "5678"), "7006652");
    EXPECT_EQ(GroupedDecimalText("7006652", 2), "70.066,52");
}

} // namespace

} // namespace numbrela
