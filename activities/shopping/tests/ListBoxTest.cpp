#include "activities/shopping/screen/ListBox.h"

#include "common/screen/KeyCodes.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QTest>

namespace numbrela {

namespace {

using namespace testing;

class ListBoxTest : public ::testing::Test {
protected:
    ListBoxTest()
    {
        QObject::connect(&list_, &ListBox::DblClick, &list_, [this] { ++doubleClicks_; });
        list_.SetLines({ "uno", "dos", "tres" });
    }

    ListBox list_;
    int doubleClicks_ = 0;
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
}

TEST_F(ListBoxTest, TheKeyboardBeginsAtTheFirstLineOrTheLast)
{
    struct Case {
        int Key;
        int Line;
    };
    for (const Case& c : { Case { Qt::Key_Down, 0 }, { Qt::Key_Up, 0 }, { Qt::Key_Space, 0 }, { Qt::Key_Home, 0 },
             { Qt::Key_PageUp, 0 }, { Qt::Key_End, 2 }, { Qt::Key_PageDown, 2 } }) {
        list_.SetLines({ "uno", "dos", "tres" });
        ShowAndActivate(list_);
        Press(c.Key);
        EXPECT_EQ(list_.SelectedLine(), c.Line) << c.Key;
        Press(c.Line == 0 ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_EQ(list_.SelectedLine(), 1) << c.Key;
    }
}

TEST_F(ListBoxTest, KeysInAnEmptyListSelectNothing)
{
    list_.SetLines({});
    ShowAndActivate(list_);
    for (const int key : { Qt::Key_Down, Qt::Key_End }) {
        Press(key);
        EXPECT_EQ(list_.SelectedLine(), std::nullopt);
    }
    list_.SelectLine(0);
    EXPECT_EQ(list_.SelectedLine(), std::nullopt);
}

TEST_F(ListBoxTest, ALineThatIsTooLongGoesOnBelow)
{
    const std::string longName = "Una caja de lápices de colores con sacapuntas y goma de borrar";
    list_.resize(200, 300);
    list_.SetLines({ "uno", longName, "tres" });
    ShowAndActivate(list_);
    const auto heightOf = [this](int line) { return list_.visualItemRect(list_.item(line)).height(); };
    EXPECT_GE(heightOf(1), 2 * list_.fontMetrics().lineSpacing());
    EXPECT_LT(heightOf(0), 2 * list_.fontMetrics().lineSpacing());
    EXPECT_LE(list_.visualItemRect(list_.item(1)).width(), list_.viewport()->width());

    list_.resize(900, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return heightOf(1) == heightOf(0); }));
    list_.resize(200, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return heightOf(1) > heightOf(0); }));
    const int heightWhenWide = heightOf(1);
    list_.resize(110, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return heightOf(1) > heightWhenWide; }))
        << "broken anew where it is too long still";
}

TEST_F(ListBoxTest, ALineFarDownAmongLongOnesIsBroughtIntoViewAtOnce)
{
    const std::string longName = "Una caja de lápices de colores con sacapuntas y goma de borrar";
    list_.resize(200, 300);
    ShowAndActivate(list_);
    list_.SetLines(std::vector<std::string>(1000, longName));
    list_.SelectLine(999);
    const auto isSeen = [this](int line) {
        return list_.viewport()->rect().contains(list_.visualItemRect(list_.item(line)).center());
    };
    EXPECT_TRUE(isSeen(999));

    list_.SetLines(std::vector<std::string>(1000, longName));
    list_.scrollToTop();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !list_.visualItemRect(list_.item(999)).isEmpty(); }))
        << "all of them are laid out, in time";
    EXPECT_TRUE(isSeen(0));
    list_.setFocus();
    Press(Qt::Key_End);
    EXPECT_TRUE(isSeen(999));
}

TEST_F(ListBoxTest, OnlyTheLeftButtonDoubleClicks)
{
    ShowAndActivate(list_);
    const QPoint place = list_.visualItemRect(list_.item(1)).center();
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(doubleClicks_, 1);
    EXPECT_EQ(list_.SelectedLine(), 1);
    QTest::mouseDClick(list_.viewport(), Qt::RightButton, {}, place);
    EXPECT_EQ(doubleClicks_, 1);
}

} // namespace

} // namespace numbrela
