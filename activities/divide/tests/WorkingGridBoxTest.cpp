#include "activities/divide/screen/WorkingGridBox.h"

#include "activities/divide/screen/WorkingGridAccessible.h"
#include "activities/divide/tests/DivisionSupport.h"
#include "common/screen/Keyboard.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QInputMethodEvent>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace numbrela {

namespace {

using namespace testing;

constexpr int pixelsPerCell = 11; // 165 twips

// A box of design size for a grid of eight columns, alone in its window, with what is typed written into the grid. The
// caret begins on the first cell.
class WorkingGridBoxTest : public ::testing::Test {
protected:
    WorkingGridBoxTest()
        : Grid(commaShift_)
        , Box(Grid, &window_)
    {
        Grid.LineWidth = 8;
        Grid.CommaColumn = -1;
        Grid.Begin("9725");
        Grid.MoveCaretTo(0);
        QFont font(QStringLiteral("Courier New"));
        font.setPixelSize(19);
        Box.setFont(font);
        Box.setGeometry(0, 0, 8 * pixelsPerCell, 467);
        window_.resize(200, 500);
        HandleKeys(Box, { .KeyPress = [this](QChar character) {
            if (!character.isPrint()) {
                return KeyAnswer::GoesOn();
            }
            Grid.TypeCharacter(character.unicode());
            Box.ShowGrid();
            return KeyAnswer::Consumed();
        } });
        ShowAndActivate(window_);
        Box.setFocus();
    }

    void clickCell(int cell) { QTest::mouseClick(&Box, Qt::LeftButton, {}, Box.CellRect(cell).center()); }

    // Notches away from the person are positive.
    void turnWheel(int eighthsOfADegree)
    {
        QWheelEvent turn(QPointF(5, 5), Box.mapToGlobal(QPointF(5, 5)), {}, { 0, eighthsOfADegree }, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Box, &turn);
    }

    void fillRows(int rows)
    {
        for (int row = 1; row < rows; ++row) {
            typeRow(Grid, row, "1");
        }
        Grid.MoveCaretTo(0);
        Box.ShowGrid();
    }

    // Whether there is ink of this colour in a cell.
    bool hasInk(int cell, const QColor& ink)
    {
        const QImage picture = Box.grab(Box.CellRect(cell)).toImage();
        for (int pixel = 0; pixel < picture.width() * picture.height(); ++pixel) {
            if (picture.pixelColor(pixel % picture.width(), pixel / picture.width()) == ink) {
                return true;
            }
        }
        return false;
    }

    QImage onScreen() const
    {
        const QPoint corner = Box.mapTo(&window_, QPoint());
        return window_.screen()
            ->grabWindow(window_.winId(), corner.x(), corner.y(), Box.width(), Box.height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }

    void expectSeen(const char* what)
    {
        const QImage picture = Box.grab().toImage().convertToFormat(QImage::Format_RGB32);
        EXPECT_TRUE(QTest::qWaitFor([&] { return onScreen() == picture; })) << what;
    }

private:
    bool commaShift_ = false;
    QWidget window_;

public:
    WorkingGrid Grid;
    WorkingGridBox Box;
};

// ------------------------------------------------------------------------------------------------------- the picture

TEST_F(WorkingGridBoxTest, PaintsEachCharacterInItsCell)
{
    for (const int cell : { 10, 15, 16, 40, 159 }) {
        Grid.MoveCaretTo(cell);
        Grid.TypeCharacter(u'8');
    }
    Grid.MoveCaretTo(60);
    Box.ShowGrid();
    const QColor ink = Box.palette().color(QPalette::Text);
    for (int cell = 0; cell < 160; ++cell) {
        EXPECT_EQ(hasInk(cell, ink), Grid.Text[static_cast<std::size_t>(cell)] != u' ') << cell;
    }
}

// Other tests grab the box, which makes it paint. Here it must have painted without being asked.
TEST_F(WorkingGridBoxTest, WhatAPersonDoesIsSeenOnTheScreen)
{
    fillRows(40);
    expectSeen("filled");
    Press(Qt::Key_Down);
    expectSeen("a key that moves the caret");
    Press(Qt::Key_5);
    expectSeen("a key that writes");
    clickCell(20);
    expectSeen("a click");
    turnWheel(-120);
    expectSeen("a turn of the wheel");
    Box.ShowCell(8 * 39);
    expectSeen("a cell that is shown from elsewhere");
    Box.clearFocus();
    expectSeen("no focus, no caret");
}

TEST_F(WorkingGridBoxTest, TheCaretIsABlockOnItsCellWhileTheBoxHasTheFocusAndItsCharacterCanBeRead)
{
    const QColor block = Box.palette().color(QPalette::Highlight);
    for (const int cell : { 0, 9, 66, 2 }) {
        Grid.MoveCaretTo(cell);
        Box.ShowGrid();
        EXPECT_EQ(Box.grab(Box.CellRect(cell)).toImage().pixelColor(5, 3), block) << cell;
        EXPECT_FALSE(hasInk(cell + 2, block)) << cell;
    }
    EXPECT_TRUE(hasInk(2, Box.palette().color(QPalette::HighlightedText)));
    Box.clearFocus();
    EXPECT_FALSE(hasInk(2, block));
    EXPECT_TRUE(hasInk(2, Box.palette().color(QPalette::Text)));
}

TEST_F(WorkingGridBoxTest, ShowsHowMuchIsScrolledAwayByAMarkAtTheRight)
{
    const QColor mark = Box.palette().color(QPalette::Mid);
    const auto isMarked = [&](int y) {
        const QImage row = Box.grab(QRect(1, y, Box.width() - 2, 1)).toImage();
        return row.pixelColor(row.width() - 5, 0) == mark;
    };
    fillRows(20);
    EXPECT_FALSE(isMarked(10));
    EXPECT_FALSE(isMarked(455));
    fillRows(40);
    EXPECT_TRUE(isMarked(10));
    EXPECT_FALSE(isMarked(455));
    turnWheel(-120 * 100);
    EXPECT_FALSE(isMarked(10));
    EXPECT_TRUE(isMarked(455));
}

// --------------------------------------------------------------------------------------------------------- the mouse

TEST_F(WorkingGridBoxTest, AClickPutsTheCaretOnItsCell)
{
    Box.clearFocus();
    for (const int cell : { 8, 13, 7, 0, 159, 100 }) {
        clickCell(cell);
        EXPECT_EQ(Grid.Caret, cell);
        EXPECT_TRUE(Box.hasFocus());
    }
    QTest::mouseClick(&Box, Qt::RightButton, {}, Box.CellRect(20).center());
    EXPECT_EQ(Grid.Caret, 100) << "other buttons move nothing";
    QTest::mouseClick(&Box, Qt::LeftButton, {}, QPoint(0, 1));
    EXPECT_EQ(Grid.Caret, 0) << "beside the cells, the nearest one";
    QTest::mouseClick(&Box, Qt::LeftButton, {}, QPoint(Box.width() - 1, Box.height() - 1));
    EXPECT_EQ(Grid.Caret, 159);
    fillRows(40);
    turnWheel(-120);
    QTest::mouseClick(&Box, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(Grid.Caret, 24) << "the rows that are scrolled away count";
}

TEST_F(WorkingGridBoxTest, HasTwentyRowsOfTheGridsColumnsAtEverySizeAndEveryPixelIsOfItsCell)
{
    for (const int columns : { 5, 8, 23 }) {
        Grid.LineWidth = columns;
        for (const QSize size : { QSize(40, 233), QSize(88, 467), QSize(100, 500), QSize(253, 641), QSize(301, 901) }) {
            SCOPED_TRACE(size.width());
            Box.resize(size);
            EXPECT_EQ(Box.ShownRows(), 20);
            EXPECT_EQ(Box.CellRect(0).left(), 0);
            EXPECT_EQ(Box.CellRect(columns - 1).right(), size.width() - 1);
            EXPECT_EQ(Box.CellRect(columns).topLeft(), QPoint(0, Box.CellRect(0).bottom() + 1));
            EXPECT_LE(Box.CellRect(20 * columns - 1).bottom(), size.height());
            EXPECT_GT(Box.CellRect(21 * columns - 1).bottom(), size.height());
            for (int x = 0; x < size.width(); ++x) {
                const QRect cell = Box.CellRect(Box.CellAt({ x, 0 }));
                EXPECT_TRUE(cell.left() <= x && x <= cell.right()) << columns << " columns, pixel " << x;
            }
            for (int y = Box.CellRect(0).top(); y <= Box.CellRect(19 * columns).bottom(); ++y) {
                const QRect cell = Box.CellRect(Box.CellAt({ 0, y }));
                EXPECT_TRUE(cell.top() <= y && y <= cell.bottom()) << size.height() << " high, pixel " << y;
            }
        }
    }
}

TEST_F(WorkingGridBoxTest, TheWheelScrollsThreeRowsANotchThroughWhatIsWritten)
{
    fillRows(20);
    turnWheel(-120);
    EXPECT_EQ(Box.FirstShownRow(), 0) << "everything is shown";
    fillRows(40);
    const std::pair<int, int> turns[]
        = { { -120, 3 }, { 120, 0 }, { 120, 0 }, { -39, 0 }, { -1, 1 }, { 40, 0 }, { -120 * 50, 20 } };
    for (const auto& [turn, firstRow] : turns) {
        turnWheel(turn);
        EXPECT_EQ(Box.FirstShownRow(), firstRow) << turn;
    }
    EXPECT_EQ(Grid.Caret, 0) << "the caret stays where it was";
    Grid.MoveCaretTo(8 * 45);
    Box.ShowGrid();
    ASSERT_EQ(Box.FirstShownRow(), 26);
    turnWheel(-120);
    EXPECT_EQ(Box.FirstShownRow(), 26) << "below what is written there is nothing to be seen";
    turnWheel(120);
    EXPECT_EQ(Box.FirstShownRow(), 23);
}

TEST_F(WorkingGridBoxTest, AFingerScrollsThePaperThatStaysUnderItAndATapPutsTheCaretOnItsCell)
{
    fillRows(40);
    const int row = Box.CellRect(8).top() - Box.CellRect(0).top();
    DragByFinger(Box, { 20, 300 }, { 20, 300 - 5 * row });
    EXPECT_EQ(Box.FirstShownRow(), 5);
    EXPECT_EQ(Grid.Caret, 0);
    DragByFinger(Box, { 20, 300 }, { 70, 300 + 2 * row });
    EXPECT_EQ(Box.FirstShownRow(), 3);
    DragByFinger(Box, { 20, 460 }, { 20, 0 });
    EXPECT_EQ(Box.FirstShownRow(), 20);
    DragByFinger(Box, { 20, 0 }, { 20, 19 * row });
    EXPECT_EQ(Box.FirstShownRow(), 1);
    Box.clearFocus();
    Tap(Box, Box.CellRect(29).center());
    EXPECT_TRUE(Box.hasFocus());
    EXPECT_EQ(Grid.Caret, 29);
    EXPECT_EQ(Box.FirstShownRow(), 1);
    FingerDown(Box, Box.CellRect(40).center());
    TakeFingerBack(Box);
    LiftFinger();
    EXPECT_EQ(Grid.Caret, 29) << "of a finger that the panel takes back";
}

// ---------------------------------------------------------------------------------------------------------- the keys

// Presses each key, and looks where the caret then is and which row is the first to be shown.
struct KeyStep {
    Qt::Key Key;
    int Caret;
    int FirstRow;
};

TEST_F(WorkingGridBoxTest, KeysMoveTheCaretBetweenRowsAndScrollWithIt)
{
    Grid.MoveCaretTo(3);
    const KeyStep steps[] = { { Qt::Key_Up, 3, 0 }, { Qt::Key_Down, 11, 0 }, { Qt::Key_Home, 8, 0 },
        { Qt::Key_End, 15, 0 }, { Qt::Key_PageDown, 175, 2 }, { Qt::Key_Up, 167, 2 }, { Qt::Key_PageDown, 327, 21 },
        { Qt::Key_PageUp, 167, 20 }, { Qt::Key_PageUp, 7, 0 } };
    for (const auto& [key, caret, firstRow] : steps) {
        Press(key);
        EXPECT_EQ(Grid.Caret, caret);
        EXPECT_EQ(Box.FirstShownRow(), firstRow) << caret;
    }
    for (int row = 1; row <= 20; ++row) {
        Press(Qt::Key_Down);
        EXPECT_EQ(Box.FirstShownRow(), row == 20 ? 1 : 0);
    }
}

TEST_F(WorkingGridBoxTest, AKeyBringsTheCaretBackThatTheWheelHasScrolledAway)
{
    fillRows(60);
    const std::pair<int, KeyStep> steps[]
        = { { 8, { Qt::Key_Down, 16, 2 } }, { 2, { Qt::Key_Left, 1, 0 } }, { 0, { Qt::Key_Left, 0, 0 } },
              { 0, { Qt::Key_Down, 8, 0 } } }; // the row below the dividend is shown together with it
    for (const auto& [caret, step] : steps) {
        Grid.MoveCaretTo(caret);
        turnWheel(-120 * 10);
        Press(step.Key);
        EXPECT_EQ(Grid.Caret, step.Caret);
        EXPECT_EQ(Box.FirstShownRow(), step.FirstRow) << caret;
        EXPECT_TRUE(Box.hasFocus());
    }
}

TEST_F(WorkingGridBoxTest, StopsAtTheLastRow)
{
    for (int page = 0; page < 20; ++page) {
        Press(Qt::Key_PageDown);
    }
    EXPECT_EQ(Grid.Caret, 2000);
    Press(Qt::Key_End);
    EXPECT_EQ(Grid.Caret, 2005) << "behind the last cell of a row that is not full";
    Press(Qt::Key_5);
    EXPECT_EQ(Grid.Text, u" 9725" + std::u16string(2000, u' '));
}

TEST_F(WorkingGridBoxTest, LeavesKeysThatItHasNoUseForToItsWindow)
{
    for (const auto key : { Qt::Key_Return, Qt::Key_Escape, Qt::Key_F9, Qt::Key_Shift }) {
        QKeyEvent press(
            QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Return ? QStringLiteral("\r") : QString());
        QCoreApplication::sendEvent(&Box, &press);
        EXPECT_FALSE(press.isAccepted()) << key;
    }
    EXPECT_EQ(Grid.Caret, 0);
}

TEST_F(WorkingGridBoxTest, WhatAnInputMethodWritesIsTyped)
{
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(&Box, &query);
    EXPECT_TRUE(query.value(Qt::ImEnabled).toBool());
    Grid.MoveCaretTo(9);
    EXPECT_EQ(Box.inputMethodQuery(Qt::ImCursorRectangle).toRect(), Box.CellRect(9)) << "its window stands there";
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("17"));
    QCoreApplication::sendEvent(&Box, &event);
    EXPECT_EQ(rowText(Grid, 1), " 17");
}

// ---------------------------------------------------------------------------------------------- for a screen reader

class WorkingGridSpokenTest : public WorkingGridBoxTest {
protected:
    WorkingGridSpokenTest()
        : spoken_(*QAccessible::queryAccessibleInterface(&Box))
    {
        typeRow(Grid, 1, " 17");
        Grid.MoveCaretTo(9);
        Box.ShowGrid();
    }

    QAccessibleTextInterface& text() { return *spoken_.textInterface(); }

    QAccessibleInterface& spoken_;
};

TEST_F(WorkingGridSpokenTest, IsATextOfSeveralLinesThatCanBeEdited)
{
    EXPECT_EQ(spoken_.role(), QAccessible::EditableText);
    EXPECT_TRUE(spoken_.state().editable);
    EXPECT_TRUE(spoken_.state().multiLine);
    EXPECT_TRUE(spoken_.state().focused);
    EXPECT_EQ(spoken_.text(QAccessible::Value), QStringLiteral(" 9725   \n 17     "));
    Box.setAccessibleName(QStringLiteral("Operaciones"));
    EXPECT_EQ(spoken_.text(QAccessible::Name), QStringLiteral("Operaciones"));
}

TEST_F(WorkingGridSpokenTest, TellsItsTextRowByRowAndWhereItsCharactersAre)
{
    ASSERT_NE(spoken_.textInterface(), nullptr);
    EXPECT_EQ(text().characterCount(), 17);
    EXPECT_EQ(text().text(1, 5), QStringLiteral("9725"));
    EXPECT_EQ(text().text(9, 12), QStringLiteral(" 17"));
    int start = 0;
    int end = 0;
    EXPECT_EQ(text().textAtOffset(11, QAccessible::LineBoundary, &start, &end), QStringLiteral(" 17     "));
    EXPECT_EQ(text().textAtOffset(11, QAccessible::CharBoundary, &start, &end), QStringLiteral("7"));
    EXPECT_EQ(text().selectionCount(), 0);
    text().selection(0, &start, &end);
    EXPECT_EQ(start, end);
    EXPECT_EQ(text().attributes(3, &start, &end), QString());
    for (const int cell : { 0, 7, 8, 9, 15 }) {
        const int offset = Box.SpokenOffset(cell);
        const QRect place = text().characterRect(offset);
        EXPECT_EQ(place.topLeft(), Box.mapToGlobal(Box.CellRect(cell).topLeft()));
        EXPECT_EQ(text().offsetAtPoint(place.center()), offset);
    }
}

TEST_F(WorkingGridSpokenTest, TellsTheRowAndTheColumnOfTheCaretAndWhatIsWrittenThere)
{
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&Box);
    const auto placeOf = [&](int cell) {
        Box.PutCaret(cell);
        return spoken.text(QAccessible::Description);
    };
    const int width = Grid.LineWidth;
    EXPECT_EQ(placeOf(0), QStringLiteral("fila 1, columna 1: en blanco"));
    EXPECT_EQ(placeOf(1), QStringLiteral("fila 1, columna 2: ") + QChar(Grid.Text[1]));
    EXPECT_EQ(placeOf(2 * width - 1), QStringLiteral("fila 2, columna %1: en blanco").arg(width));
}

TEST_F(WorkingGridSpokenTest, TellsAndTakesTheCaret)
{
    EXPECT_EQ(text().cursorPosition(), 10);
    text().setCursorPosition(11);
    EXPECT_EQ(Grid.Caret, 10);
    text().setCursorPosition(8);
    EXPECT_EQ(Grid.Caret, 7) << "the end of a line is its last cell";
    Grid.MoveCaretTo(8 * 30);
    EXPECT_EQ(text().cursorPosition(), 9 * 30);
    EXPECT_EQ(text().characterCount(), 9 * 31 - 1) << "down to the row of the caret";
}

TEST_F(WorkingGridSpokenTest, IsScrolledToAPartOfItsTextWithoutItsCaret)
{
    fillRows(40);
    const struct {
        int StartRow;
        int EndRow;
        int FirstShownRow;
    } cases[] = { { 3, 5, 0 }, { 39, 39, 20 }, { 25, 30, 20 }, { 12, 14, 12 }, { 10, 35, 10 }, { 18, 30, 11 },
        { 0, 39, 0 }, { -1, -1, 0 }, { 1000, 2000, 231 } };
    for (const auto& [startRow, endRow, firstShownRow] : cases) {
        text().scrollToSubstring(9 * startRow, 9 * endRow);
        EXPECT_EQ(Box.FirstShownRow(), firstShownRow) << startRow << " to " << endRow;
        EXPECT_EQ(Grid.Caret, 0);
    }
}

TEST(SpokenChange, IsNoLongerThanItMustBe)
{
    const struct {
        const char* Before;
        const char* Now;
        int Position;
        const char* Removed;
        const char* Inserted;
    } cases[] = {
        { " 17", " 27", 1, "1", "2" },
        { " 17", " 17", 3, "", "" },
        { "", " 97", 0, "", " 97" },
        { " 97\n 3", " 97", 3, "\n 3", "" },
        { "11", "111", 2, "", "1" },
        { " 1 ", " 123", 2, " ", "23" },
    };
    for (const auto& [before, now, position, removed, inserted] : cases) {
        const SpokenChange found = ChangeBetween(QString::fromLatin1(before), QString::fromLatin1(now));
        EXPECT_EQ(found.Position, position) << now;
        EXPECT_EQ(found.Removed.toStdString(), removed) << now;
        EXPECT_EQ(found.Inserted.toStdString(), inserted) << now;
    }
}

} // namespace

} // namespace numbrela
