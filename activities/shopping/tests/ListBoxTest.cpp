#include "activities/shopping/screen/ListBox.h"

#include "activities/shopping/tests/ShopWalk.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

using namespace testing;
using Lines = std::vector<std::string>;

class ListBoxTest : public ::testing::Test {
protected:
    ListBoxTest() { list_.SetLines({ "uno", "dos", "tres" }); }

    QRect placeOf(int line) const { return list_.visualRect(list_.model()->index(line, 0)); }
    bool isSeen(int line) const { return list_.viewport()->rect().contains(placeOf(line).center()); }

    ListBox list_;
    const std::string longName_ = "Una caja de lápices de colores con sacapuntas y goma de borrar";
};

TEST_F(ListBoxTest, NoLineIsSelectedUntilSomebodySelectsOne)
{
    ShowAndActivate(list_);
    EXPECT_TRUE(list_.hasFocus());
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
    list_.SelectLine(1);
    EXPECT_EQ(list_.SelectedLine(), 1);
    list_.SetLines({ "otra" });
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
    EXPECT_EQ(LinesOf(list_), Lines { "otra" });
}

TEST_F(ListBoxTest, TheKeyboardBeginsAtTheFirstLineOrTheLast)
{
    for (const auto& [key, line] : { std::pair(Qt::Key_Down, 0), { Qt::Key_Up, 0 }, { Qt::Key_Space, 0 },
             { Qt::Key_Home, 0 }, { Qt::Key_PageUp, 0 }, { Qt::Key_End, 2 }, { Qt::Key_PageDown, 2 } }) {
        list_.SetLines({ "uno", "dos", "tres" });
        ShowAndActivate(list_);
        Press(key);
        EXPECT_EQ(list_.SelectedLine(), line) << key;
        Press(line == 0 ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_EQ(list_.SelectedLine(), 1) << key;

        list_.SetLines({});
        Press(key);
        list_.SelectLine(0);
        EXPECT_EQ(list_.SelectedLine(), std::nullopt) << key;
    }
}

TEST_F(ListBoxTest, ALineThatIsTooLongGoesOnBelow)
{
    list_.resize(200, 300);
    list_.SetLines({ "uno", longName_, "tres" });
    ShowAndActivate(list_);
    EXPECT_GE(placeOf(1).height(), 2 * list_.fontMetrics().lineSpacing());
    EXPECT_LT(placeOf(0).height(), 2 * list_.fontMetrics().lineSpacing());
    EXPECT_LE(placeOf(1).width(), list_.viewport()->width());

    list_.resize(900, 300);
    EXPECT_TRUE(QTest::qWaitFor([this] { return placeOf(1).height() == placeOf(0).height(); }));
    list_.resize(200, 300);
    EXPECT_TRUE(QTest::qWaitFor([this] { return placeOf(1).height() > placeOf(0).height(); }));
}

TEST_F(ListBoxTest, ALineFarDownAmongLongOnesIsBroughtIntoViewAtOnce)
{
    list_.resize(200, 300);
    ShowAndActivate(list_);
    list_.SetLines(Lines(1000, longName_));
    list_.SelectLine(999);
    EXPECT_TRUE(isSeen(999));
    list_.SetLines(Lines(1000, longName_));
    list_.scrollToTop();
    Press(Qt::Key_End);
    EXPECT_TRUE(isSeen(999));
}

TEST_F(ListBoxTest, OnlyTheLeftButtonDoubleClicksWhereverInTheList)
{
    int doubleClicks = 0;
    QObject::connect(&list_, &ListBox::doubleClicked, &list_, [&doubleClicks] { ++doubleClicks; });
    ShowAndActivate(list_);
    DoubleClickLine(list_, 1);
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(list_.SelectedLine(), 1);
    QTest::mouseDClick(list_.viewport(), Qt::RightButton, {}, placeOf(1).center());
    EXPECT_EQ(doubleClicks, 1);
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, placeOf(2).bottomLeft() + QPoint(5, 20));
    EXPECT_EQ(doubleClicks, 2) << "below the lines, too";
    EXPECT_EQ(list_.SelectedLine(), 1);
}

TEST_F(ListBoxTest, SortsAsASpanishDictionaryDoesAndKnowsWhatEachLineIsAbout)
{
    const Lines sorted { "12 huevos", "6 huevos", "Ámbar", "Ámbar gris", "ANÍS", "árbol", "azúcar", "chorizo",
        "cruasán", "dátil", "nuez", "Nuez moscada", "ñora", "oca", "papa", "papá", "zumo" };
    std::vector<ListLine> lines;
    for (const int place : { 12, 16, 1, 10, 3, 11, 13, 0, 2, 6, 4, 5, 8, 7, 9, 15, 14 }) {
        lines.push_back({ sorted[static_cast<std::size_t>(place)], 100 + place });
    }
    list_.SetSortedLines(lines);
    EXPECT_EQ(LinesOf(list_), sorted);
    for (int line = 0; line < list_.LineCount(); ++line) {
        EXPECT_EQ(list_.DataOf(line), 100 + line);
        EXPECT_EQ(list_.LineOf(100 + line), line);
    }
}

TEST_F(ListBoxTest, LeavesEqualLinesInTheirOrderAndARewrittenOneWhereItIsUntilAllAreSortedAgain)
{
    list_.SetSortedLines({ { "b", 0 }, { "a", 1 }, { "b", 2 }, { "a", 3 }, { "A", 4 } });
    for (const auto& [line, data] : { std::pair(0, 1), { 1, 3 }, { 2, 4 }, { 3, 0 }, { 4, 2 } }) {
        EXPECT_EQ(list_.DataOf(line), data);
    }
    list_.RewriteLine(0, "z");
    EXPECT_EQ(LinesOf(list_), (Lines { "z", "a", "A", "b", "b" }));
    EXPECT_EQ(list_.LineOf(1), 0);
    list_.SetSortedLines({ { "z", 0 }, { "b", 1 }, { "c", 2 } });
    EXPECT_EQ(LinesOf(list_), (Lines { "b", "c", "z" }));
    EXPECT_EQ(list_.LineOf(0), 2);
}

} // namespace

} // namespace numbrela
