#include "common/core/OptionList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace numbrela {

namespace {

struct ListCase {
    OptionList List;
    std::vector<int> Values;
    std::vector<std::string> Captions;
};

const std::vector<ListCase>& listCases()
{
    static const std::vector<ListCase> cases = {
        { { 1, 7 }, { 1, 2, 3, 4, 5, 6, 7 }, { "&1", "&2", "&3", "&4", "&5", "&6", "&7" } },
        { { 0, 7 }, { 0, 1, 2, 3, 4, 5, 6 }, { "&0", "&1", "&2", "&3", "&4", "&5", "&6" } },
        { { 2, 1 }, { 2 }, { "&2" } },
        { { 9, 3 }, { 9, 10, 11 }, { "&9", "&10", "&11" } },
    };
    return cases;
}

TEST(OptionList, OffersWholeNumbersInARow)
{
    for (const auto& [list, values, captions] : listCases()) {
        ASSERT_EQ(list.Count, static_cast<int>(values.size()));
        for (int index = 0; index < list.Count; ++index) {
            EXPECT_EQ(list.ValueAt(index), values[static_cast<std::size_t>(index)]);
        }
    }
}

TEST(OptionList, FindsTheItemOfEveryValue)
{
    for (const auto& [list, values, captions] : listCases()) {
        for (int index = 0; index < list.Count; ++index) {
            EXPECT_EQ(list.IndexOf(values[static_cast<std::size_t>(index)]), index);
        }
    }
}

TEST(OptionList, HasNoItemForOtherValues)
{
    for (const auto& [list, values, captions] : listCases()) {
        for (const int value : { values.front() - 1, values.back() + 1, -100, 100 }) {
            const int index = list.IndexOf(value);
            EXPECT_TRUE(index < 0 || index >= list.Count) << "value " << value << " at index " << index;
        }
    }
}

TEST(OptionList, CaptionsAreTheValueBehindTheMarkOfItsAccessKey)
{
    for (const auto& [list, values, captions] : listCases()) {
        for (int index = 0; index < list.Count; ++index) {
            EXPECT_EQ(list.CaptionAt(index), captions[static_cast<std::size_t>(index)]);
        }
    }
}

TEST(OptionList, IsEmptyUntilItIsGivenValues)
{
    constexpr OptionList list;
    EXPECT_EQ(list.First, 0);
    EXPECT_EQ(list.Count, 0);
}

} // namespace

} // namespace numbrela
