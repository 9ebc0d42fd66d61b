#include "activities/shopping/screen/ListBox.h"

#include "activities/shopping/tests/ShopWalk.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>

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
    QTest::mouseRelease(list_.viewport(), Qt::RightButton); // or it would be held in all tests to come
    EXPECT_EQ(doubleClicks, 1);
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, placeOf(2).bottomLeft() + QPoint(5, 20));
    EXPECT_EQ(doubleClicks, 2) << "below the lines, too";
    EXPECT_EQ(list_.SelectedLine(), 1);
}

// --- Fingers ---------------------------------------------------------------------------------------------------------

class TouchedListBoxTest : public ListBoxTest {
protected:
    TouchedListBoxTest()
    {
        std::vector<std::string> lines;
        for (int line = 0; line < lineCount; ++line) {
            lines.push_back("Producto " + std::to_string(line));
        }
        list_.SetLines(lines);
        list_.resize(300, 200);
        QObject::connect(&list_, &ListBox::doubleClicked, &list_, [this] { ++doubleClicks_; });
        ShowAndActivate(list_);
    }
    void tap(int line) const { Tap(*list_.viewport(), placeOf(line).center()); }

    static constexpr int lineCount = 60;
    int doubleClicks_ = 0;
    const Pace pace_;
};

TEST_F(TouchedListBoxTest, ATapSelectsALineAndEachFurtherOneIsADoubleClick)
{
    pace_.TapSlowly();
    tap(2);
    EXPECT_TRUE(list_.hasFocus());
    EXPECT_EQ(list_.SelectedLine(), 2);
    EXPECT_EQ(doubleClicks_, 0);
    tap(2);
    EXPECT_EQ(doubleClicks_, 1);
    tap(2);
    EXPECT_EQ(doubleClicks_, 2);
    tap(3);
    EXPECT_EQ(list_.SelectedLine(), 3);
    EXPECT_EQ(doubleClicks_, 2);
}

// The second tap may be some pixels away; it is not dragged there.
TEST_F(TouchedListBoxTest, ADoubleTapAtTwoPlacesOfALineTakesIt)
{
    pace_.TapQuickly();
    const int left = placeOf(0).center().x();
    Tap(*list_.viewport(), { left, placeOf(0).center().y() });
    Tap(*list_.viewport(), { left + QApplication::startDragDistance(), placeOf(0).center().y() });
    EXPECT_EQ(list_.SelectedLine(), 0);
    EXPECT_EQ(doubleClicks_, 1);
}

TEST_F(TouchedListBoxTest, SlowTapsTakeOneEach)
{
    const auto tapAt = [this](quint64 milliseconds) {
        SendTouch(*list_.viewport(), QEventPoint::Pressed, {}, milliseconds); // on the first line
        SendTouch(*list_.viewport(), QEventPoint::Released, {}, milliseconds);
        QCoreApplication::processEvents();
    };
    tapAt(1000);
    tapAt(5000);
    tapAt(9000);
    EXPECT_EQ(list_.SelectedLine(), 0);
    EXPECT_EQ(doubleClicks_, 2);
}

TEST_F(TouchedListBoxTest, ADoubleTapIsOneDoubleClickWhetherTheLineWasSelectedOrNot)
{
    pace_.TapQuickly();
    tap(1);
    tap(1);
    EXPECT_EQ(doubleClicks_, 1);
    tap(1);
    tap(1);
    EXPECT_EQ(doubleClicks_, 2);
    tap(4);
    EXPECT_EQ(list_.SelectedLine(), 4);
    tap(4);
    EXPECT_EQ(doubleClicks_, 3);
}

TEST_F(TouchedListBoxTest, ATapBelowTheLinesOrOnADisabledListDoesNothing)
{
    list_.SetLines({ "uno" });
    Tap(*list_.viewport(), list_.viewport()->rect().bottomLeft() + QPoint(5, -5));
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
    EXPECT_EQ(doubleClicks_, 0);
    list_.setEnabled(false);
    tap(0);
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
}

TEST_F(TouchedListBoxTest, AFingerThatMovesAlongALineTakesNothing)
{
    tap(1);
    const QPoint place = placeOf(1).center();
    DragByFinger(*list_.viewport(), place, place + QPoint(100, 0));
    EXPECT_EQ(list_.SelectedLine(), 1);
    EXPECT_EQ(doubleClicks_, 0);
    EXPECT_EQ(list_.verticalScrollBar()->value(), 0);
}

TEST_F(TouchedListBoxTest, ATapCountsAfterItWasDisabledUnderAFingerThatDragsIt)
{
    pace_.TapSlowly();
    const QPoint middle = list_.viewport()->rect().center();
    FingerDown(*list_.viewport(), middle);
    MoveFinger(*list_.viewport(), middle - QPoint(0, 60));
    list_.setEnabled(false);
    LiftFinger();
    list_.setEnabled(true);
    tap(5);
    EXPECT_EQ(list_.SelectedLine(), 5);
    EXPECT_EQ(list_.verticalScrollMode(), QAbstractItemView::ScrollPerItem);
}

TEST_F(TouchedListBoxTest, AFingerThatCameDownWhileItWasDisabledSelectsNothing)
{
    list_.setEnabled(false);
    FingerDown(*list_.viewport(), placeOf(2).center());
    list_.setEnabled(true);
    LiftFinger();
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
}

TEST_F(TouchedListBoxTest, ThePensOtherButtonTakesNothing)
{
    TapByPen(*list_.viewport(), placeOf(2).center(), Qt::RightButton);
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
}

TEST_F(TouchedListBoxTest, AFingerThatDragsItScrollsItAndSelectsNothing)
{
    const QPoint middle = list_.viewport()->rect().center();
    DragByFinger(*list_.viewport(), middle, middle - QPoint(0, 4 * placeOf(0).height()));
    EXPECT_FALSE(isSeen(0));
    EXPECT_TRUE(isSeen(5));
    EXPECT_EQ(placeOf(4).top(), 0); // from the beginning of a line
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
    EXPECT_EQ(doubleClicks_, 0);
    for (int times = 0; times < 20; ++times) {
        DragByFinger(*list_.viewport(), middle, middle - QPoint(0, middle.y()));
    }
    EXPECT_TRUE(isSeen(lineCount - 1));
    for (int times = 0; times < 20; ++times) {
        DragByFinger(*list_.viewport(), middle, middle + QPoint(0, middle.y()));
    }
    EXPECT_TRUE(isSeen(0));
}

TEST_F(TouchedListBoxTest, ASecondFingerNeitherScrollsItNorSelectsAnythingAndTheFirstGoesOnAlone)
{
    const QPoint low = list_.viewport()->rect().bottomLeft() + QPoint(50, -20);
    const QPoint high(50, 20);
    const int lines = 4 * placeOf(0).height();
    FingerDown(*list_.viewport(), low, 0);
    MoveFinger(*list_.viewport(), low - QPoint(0, lines), 0);
    FingerDown(*list_.viewport(), high, 1);
    EXPECT_EQ(placeOf(4).top(), 0);
    MoveFinger(*list_.viewport(), low, 1);
    EXPECT_EQ(placeOf(4).top(), 0);
    LiftFinger(0);
    MoveFinger(*list_.viewport(), high, 1);
    LiftFinger(1);
    EXPECT_EQ(placeOf(4).top(), 0);
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);

    FingerDown(*list_.viewport(), placeOf(6).center(), 0);
    FingerDown(*list_.viewport(), placeOf(8).center(), 1);
    LiftFinger(0);
    LiftFinger(1);
    EXPECT_EQ(list_.SelectedLine(), 6);
    EXPECT_EQ(doubleClicks_, 0);
}

TEST_F(TouchedListBoxTest, APenScrollsItSelectsAndTakesAsAFingerDoes)
{
    const auto draw = [this](QPoint from, QPoint to) {
        SendPen(QEvent::MouseButtonPress, *list_.viewport(), from);
        SendPen(QEvent::MouseMove, *list_.viewport(), to);
        SendPen(QEvent::MouseButtonRelease, *list_.viewport(), to);
    };
    pace_.TapSlowly();
    const QPoint middle = list_.viewport()->rect().center();
    draw(middle, middle - QPoint(0, 4 * placeOf(0).height()));
    EXPECT_EQ(placeOf(4).top(), 0);
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
    draw(placeOf(5).center(), placeOf(5).center());
    EXPECT_EQ(list_.SelectedLine(), 5);
    EXPECT_EQ(doubleClicks_, 0);
    draw(placeOf(5).center(), placeOf(5).center());
    EXPECT_EQ(doubleClicks_, 1);
}

// The panel may take a finger for the palm of a hand after all.
TEST_F(TouchedListBoxTest, AFingerThatThePanelTakesBackSelectsNothingAndLeavesWholeLines)
{
    const QPoint middle = list_.viewport()->rect().center();
    FingerDown(*list_.viewport(), middle, 0);
    MoveFinger(*list_.viewport(), middle - QPoint(0, 4 * placeOf(0).height() + 5), 0);
    TakeFingerBack(*list_.viewport());
    EXPECT_EQ(placeOf(4).top(), 0);
    LiftFinger(0);
    EXPECT_EQ(placeOf(4).top(), 0);
    FingerDown(*list_.viewport(), middle, 0);
    TakeFingerBack(*list_.viewport());
    LiftFinger(0);
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
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
