#include "common/screen/OptionMenu.h"

#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

// A menu of the values 3 to 7, and the clicks that it has told of.
class OptionMenuTest : public ::testing::Test {
protected:
    void click(std::size_t index) { menu_.Items()[index]->trigger(); }

    std::vector<int> chosen_;
    OptionMenu menu_ { QStringLiteral("MnuOpcCif"), QStringLiteral("&Cifras"), OptionList { 3, 5 },
        [this](int index) { chosen_.push_back(index); }, nullptr };
};

using Indexes = std::vector<int>;

TEST_F(OptionMenuTest, HasItsNameAndCaption)
{
    EXPECT_EQ(menu_.objectName().toStdString(), "MnuOpcCif");
    EXPECT_EQ(menu_.title().toStdString(), "&Cifras");
}

TEST_F(OptionMenuTest, HasOneNamedCheckableItemForEachValue)
{
    std::vector<std::string> captions;
    std::vector<std::string> names;
    for (const QAction* item : menu_.actions()) {
        captions.push_back(item->text().toStdString());
        names.push_back(item->objectName().toStdString());
        EXPECT_TRUE(item->isCheckable());
    }
    EXPECT_EQ(captions, (std::vector<std::string> { "&3", "&4", "&5", "&6", "&7" }));
    EXPECT_EQ(names,
        (std::vector<std::string> {
            "MnuOpcCifLis(0)", "MnuOpcCifLis(1)", "MnuOpcCifLis(2)", "MnuOpcCifLis(3)", "MnuOpcCifLis(4)" }));
    EXPECT_EQ(menu_.actions(), QList<QAction*>(menu_.Items().begin(), menu_.Items().end()));
}

TEST_F(OptionMenuTest, CanHaveItemsThatAreNoNumbersInARow)
{
    std::vector<int> chosen;
    OptionMenu menu(
        QStringLiteral("MnuOpcTab"), QStringLiteral("&Tablas"),
        std::vector<QString> { QStringLiteral("&Todas"), QStringLiteral("&Elegir") },
        [&chosen](int index) { chosen.push_back(index); }, nullptr);
    ASSERT_EQ(menu.Items().size(), 2U);
    EXPECT_EQ(menu.title().toStdString(), "&Tablas");
    EXPECT_EQ(menu.Items()[0]->text().toStdString(), "&Todas");
    EXPECT_EQ(menu.Items()[1]->text().toStdString(), "&Elegir");
    EXPECT_EQ(menu.Items()[1]->objectName().toStdString(), "MnuOpcTabLis(1)");
    menu.Items()[1]->trigger();
    EXPECT_EQ(chosen, Indexes { 1 });
    EXPECT_FALSE(menu.Items()[1]->isChecked());
}

TEST_F(OptionMenuTest, HasNothingCheckedAtFirst)
{
    EXPECT_EQ(CheckedItems(menu_), Indexes());
}

TEST_F(OptionMenuTest, TellsOnceWhichItemHasBeenClicked)
{
    click(3);
    EXPECT_EQ(chosen_, Indexes { 3 });
    click(0);
    EXPECT_EQ(chosen_, (Indexes { 3, 0 }));
}

TEST_F(OptionMenuTest, MovesNoCheckMarkByAClick)
{
    menu_.CheckOnly(1);
    click(3);
    EXPECT_EQ(CheckedItems(menu_), Indexes { 1 });
    click(1);
    EXPECT_EQ(CheckedItems(menu_), Indexes { 1 });
}

TEST_F(OptionMenuTest, ShowsTheMarksUnmovedToWhoAnswersTheClick)
{
    std::vector<bool> checkedWhenChosen;
    OptionMenu* seen = nullptr;
    OptionMenu menu(
        QStringLiteral("Menu"), QStringLiteral("Menu"), OptionList { 0, 2 },
        [&](int index) { checkedWhenChosen.push_back(seen->Items()[static_cast<std::size_t>(index)]->isChecked()); },
        nullptr);
    seen = &menu;
    menu.CheckOnly(1);
    menu.Items()[0]->trigger();
    menu.Items()[1]->trigger();
    EXPECT_EQ(checkedWhenChosen, (std::vector<bool> { false, true }));
}

TEST_F(OptionMenuTest, KeepsTheMarkThatTheAnswerToAClickSets)
{
    OptionMenu* marked = nullptr;
    OptionMenu menu(
        QStringLiteral("Menu"), QStringLiteral("Menu"), OptionList { 0, 3 },
        [&](int index) { marked->CheckOnly(index); }, nullptr);
    marked = &menu;
    menu.CheckOnly(0);
    menu.Items()[2]->trigger();
    EXPECT_FALSE(menu.Items()[0]->isChecked());
    EXPECT_TRUE(menu.Items()[2]->isChecked());
    menu.Items()[2]->trigger();
    EXPECT_TRUE(menu.Items()[2]->isChecked());
}

TEST_F(OptionMenuTest, ChecksOneItemAlone)
{
    menu_.CheckOnly(4);
    EXPECT_EQ(CheckedItems(menu_), Indexes { 4 });
    menu_.CheckOnly(0);
    EXPECT_EQ(CheckedItems(menu_), Indexes { 0 });
    menu_.CheckOnly(0);
    EXPECT_EQ(CheckedItems(menu_), Indexes { 0 });
    EXPECT_EQ(chosen_, Indexes()) << "to check is not to click";
}

TEST_F(OptionMenuTest, ChecksNothingWhenThereIsNoSuchItem)
{
    for (const int index : { -1, 5, 1000 }) {
        menu_.CheckOnly(2);
        menu_.CheckOnly(index);
        EXPECT_EQ(CheckedItems(menu_), Indexes()) << index;
    }
}

TEST_F(OptionMenuTest, SetsAndClearsTheMarkOfOneItem)
{
    menu_.SetChecked(1, true);
    menu_.SetChecked(3, true);
    EXPECT_EQ(CheckedItems(menu_), (Indexes { 1, 3 }));
    menu_.SetChecked(1, false);
    EXPECT_EQ(CheckedItems(menu_), Indexes { 3 });
}

TEST_F(OptionMenuTest, LeavesTheMarksAloneWhenThereIsNoItemToMark)
{
    menu_.CheckOnly(2);
    for (const int index : { -1, 5, 1000 }) {
        menu_.SetChecked(index, true);
        menu_.SetChecked(index, false);
        EXPECT_EQ(CheckedItems(menu_), Indexes { 2 }) << index;
    }
}

TEST_F(OptionMenuTest, CanBeEmpty)
{
    OptionMenu menu(
        QStringLiteral("Menu"), QStringLiteral("Menu"), OptionList { 1, 0 }, [](int /*index*/) {}, nullptr);
    menu.CheckOnly(0);
    EXPECT_TRUE(menu.Items().empty());
    EXPECT_TRUE(menu.actions().isEmpty());
}

} // namespace

} // namespace numbrela
