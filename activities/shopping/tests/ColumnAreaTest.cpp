#include "activities/shopping/screen/ColumnArea.h"

#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>

namespace numbrela {

namespace {

using namespace testing;

TEST(ColumnAreaTest, LinesShareItsHeightEvenlyAndStandAtTheRight)
{
    ColumnArea column;
    column.resize(120, 19 * 30);
    ShowAndActivate(column);
    std::string text = "  0,85";
    for (int rows = 1; rows <= 30; ++rows) {
        column.SetText(text);
        column.resize(120, 19 * rows);
        ASSERT_EQ(column.document()->blockCount(), rows);
        int row = 0;
        for (QTextBlock block = column.document()->begin(); block.isValid(); block = block.next(), ++row) {
            const QRectF place = column.document()->documentLayout()->blockBoundingRect(block);
            EXPECT_NEAR(place.top(), 19 * row, 0.5) << rows;
            EXPECT_NEAR(place.height(), 19, 1) << rows; // the gap between lines counts with the line or does not
            EXPECT_EQ(block.blockFormat().alignment(), Qt::AlignRight);
            EXPECT_EQ(block.layout()->lineCount(), 1);
        }
        text += "\n+ 12,50";
    }
    EXPECT_EQ(column.verticalScrollBar()->maximum(), 0);
}

} // namespace

} // namespace numbrela
