#include "common/screen/OptionMenu.h"

#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

// A menu of the values 3 to 7, and the clicks that it has told of.
class OptionMenuTest : public ::testing::Test {
protected:
    std::vector<int> chosen_;
    std::function<void(int)> answer_ = [this](int index) { chosen_.push_back(index); };
    OptionMenu menu_ { QStringLiteral("MnuOpcCif"), QStringLiteral("&Cifras"), CaptionsOf({ 3, 5 }),
        [this](int index) { answer_(index); }, nullptr };
};

using Indexes = std::vector<int>;

TEST_F(OptionMenuTest, HasItsNameAndCaptionAndOneNamedCheckableItemForEachValue)
{
    EXPECT_EQ(menu_.objectName().toStdString(), "MnuOpcCif");
    EXPECT_EQ(menu_.title().toStdString(), "&Cifras");
    ASSERT_EQ(menu_.actions(), QList<QAction*>(menu_.Items().begin(), menu_.Items().end()));
    ASSERT_EQ(menu_.Items().size(), 5U);
    for (int index = 0; index < 5; ++index) {
        const QAction& item = *menu_.Items()[static_cast<std::size_t>(index)];
        EXPECT_EQ(item.text(), QStringLiteral("&%1").arg(3 + index));
        EXPECT_EQ(item.objectName(), QStringLiteral("MnuOpcCifLis(%1)").arg(index));
        EXPECT_TRUE(item.isCheckable());
        EXPECT_FALSE(item.isChecked());
    }
}

TEST_F(OptionMenuTest, CanHaveItemsThatAreNoNumbersInARowOrNone)
{
    const std::vector<QString> captions { QStringLiteral("&Todas"), QStringLiteral("&Elegir") };
    const OptionMenu menu(QStringLiteral("MnuOpcTab"), QStringLiteral("&Tablas"), captions, {}, nullptr);
    ASSERT_EQ(menu.Items().size(), 2U);
    EXPECT_EQ(menu.Items()[0]->text(), captions[0]);
    EXPECT_EQ(menu.Items()[1]->text(), captions[1]);
    OptionMenu empty(QStringLiteral("Menu"), QStringLiteral("Menu"), CaptionsOf({ 1, 0 }), {}, nullptr);
    empty.CheckOnly(0);
    EXPECT_TRUE(empty.actions().isEmpty());
}

TEST_F(OptionMenuTest, TellsOnceWhichItemHasBeenClickedAndMovesNoCheckMarkByIt)
{
    menu_.CheckOnly(1);
    for (const int index : { 3, 1, 0 }) {
        chosen_.clear();
        menu_.Items()[static_cast<std::size_t>(index)]->trigger();
        EXPECT_EQ(chosen_, Indexes { index });
        EXPECT_EQ(CheckedItems(menu_), Indexes { 1 });
    }
}

TEST_F(OptionMenuTest, ShowsTheMarksUnmovedToWhoAnswersTheClickAndKeepsWhatTheAnswerSets)
{
    answer_ = [this](int index) {
        EXPECT_EQ(CheckedItems(menu_), Indexes { 0 });
        menu_.CheckOnly(index);
    };
    for (const int index : { 2, 0 }) {
        menu_.CheckOnly(0);
        menu_.Items()[static_cast<std::size_t>(index)]->trigger();
        EXPECT_EQ(CheckedItems(menu_), Indexes { index });
    }
}

TEST_F(OptionMenuTest, ChecksOneItemAloneAndNoneWhenThereIsNoSuchItem)
{
    for (const int index : { 4, 0, 0 }) {
        menu_.CheckOnly(index);
        EXPECT_EQ(CheckedItems(menu_), Indexes { index });
    }
    for (const int index : { -1, 5, 1000 }) {
        menu_.CheckOnly(2);
        menu_.CheckOnly(index);
        EXPECT_EQ(CheckedItems(menu_), Indexes()) << index;
    }
    EXPECT_EQ(chosen_, Indexes()) << "to check is not to click";
}

TEST_F(OptionMenuTest, SetsAndClearsTheMarkOfOneItemIfThereIsOne)
{
    menu_.SetChecked(1, true);
    menu_.SetChecked(3, true);
    EXPECT_EQ(CheckedItems(menu_), (Indexes { 1, 3 }));
    menu_.SetChecked(1, false);
    for (const int index : { -1, 5, 1000 }) {
        menu_.SetChecked(index, true);
        menu_.SetChecked(index, false);
        EXPECT_EQ(CheckedItems(menu_), Indexes { 3 }) << index;
    }
}

} // namespace

} // namespace numbrela
