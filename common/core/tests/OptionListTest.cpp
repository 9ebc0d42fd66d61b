#include "common/core/OptionList.h"

#include "tests/support/OptionCaptions.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace numbrela {

namespace {

TEST(OptionList, OffersWholeNumbersInARowCaptionedByTheirValueBehindTheMarkOfItsAccessKey)
{
    const std::pair<OptionList, std::string> lists[] = { { { 1, 7 }, "&1&2&3&4&5&6&7" }, { { 0, 7 }, "&0&1&2&3&4&5&6" },
        { { 2, 1 }, "&2" }, { { 9, 3 }, "&9&10&11" } };
    for (const auto& [list, captions] : lists) {
        EXPECT_EQ(testing::OptionCaptions(list), captions);
        for (int value = -100; value <= 100; ++value) {
            const int index = list.IndexOf(value);
            const bool isOffered = value >= list.First && value < list.First + list.Count;
            EXPECT_EQ(index >= 0 && index < list.Count, isOffered) << value;
            EXPECT_TRUE(!isOffered || list.ValueAt(index) == value) << value;
        }
    }
    constexpr OptionList list;
    EXPECT_EQ(list.First, 0);
    EXPECT_EQ(list.Count, 0) << "empty until it is given values";
}

} // namespace

} // namespace numbrela
