#include "activities/divide/screen/StatementBox.h"

#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <cmath>
#include <string>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

// A box of the size that it has in its window.
class StatementBoxTest : public ::testing::Test {
protected:
    StatementBoxTest()
    {
        scale(1);
        ShowAndActivate(Box);
    }

    void scale(double factor)
    {
        QFont font(QStringLiteral("Arial"));
        font.setPixelSize(static_cast<int>(std::lround(13 * factor)));
        Box.setFont(font);
        Box.resize(static_cast<int>(133 * factor), static_cast<int>(33 * factor));
    }

    // The lines that are written, from above.
    std::vector<std::string> lines() const
    {
        const QTextBlock text = Box.document()->firstBlock();
        std::vector<std::string> written;
        for (int line = 0; line < text.layout()->lineCount(); ++line) {
            const QTextLine place = text.layout()->lineAt(line);
            written.push_back(text.text().mid(place.textStart(), place.textLength()).trimmed().toStdString());
        }
        return written;
    }

    // The ink in the box, and the paper on each side of it.
    QMargins paperAround()
    {
        const QImage picture = Box.viewport()->grab().toImage();
        QRect ink;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                ink |= picture.pixelColor(x, y).lightness() < 128 ? QRect(x, y, 1, 1) : QRect();
            }
        }
        return { ink.left(), ink.top(), picture.width() - 1 - ink.right(), picture.height() - 1 - ink.bottom() };
    }

public:
    StatementBox Box;
};

using Lines = std::vector<std::string>;

TEST_F(StatementBoxTest, WritesInTheMiddleOfTheBox)
{
    Box.clearFocus(); // its caret is ink too
    for (const char* text : { "86,18 ÷ 2", "837100061,55566 ÷ 846241285" }) {
        Box.SetText(text);
        const QMargins paper = paperAround();
        EXPECT_NEAR(paper.left(), paper.right(), 3) << text;
        EXPECT_NEAR(paper.top(), paper.bottom(), 4) << text;
        EXPECT_GT(paper.top(), 0) << text;
    }
}

TEST_F(StatementBoxTest, WritesInTwoLinesWhatIsTooLongForOneAndShowsTheBeginningOfWhatDoesNotFit)
{
    Box.SetText("Resultado incorrecto");
    EXPECT_EQ(lines(), Lines { "Resultado incorrecto" });
    EXPECT_EQ(Box.WrittenPixelSize(), 13);
    Box.SetText("888888888,88888 ÷ 888888888");
    EXPECT_EQ(lines(), (Lines { "888888888,88888 ÷", "888888888" }));
    EXPECT_GE(Box.WrittenPixelSize(), 12);
    EXPECT_EQ(Box.verticalScrollBar()->maximum(), 0);
    Box.SetText("86,18 ÷ 2");
    EXPECT_EQ(Box.WrittenPixelSize(), 13) << "large again";
    Box.SetText(std::string(194, '1') + " ÷ 2");
    EXPECT_EQ(Box.WrittenPixelSize(), 11) << "no smaller than it can be read";
    EXPECT_EQ(Box.verticalScrollBar()->value(), 0);
    EXPECT_GT(Box.verticalScrollBar()->maximum(), 0);
}

TEST_F(StatementBoxTest, ShowsTheLongestDivisionWholeAtEverySize)
{
    Box.SetText("1000000000,88888 ÷ 888888888");
    for (const double factor : { 0.5, 0.75, 1.0, 1.36, 2.0, 3.1 }) {
        scale(factor);
        EXPECT_EQ(lines().size(), 2U) << factor;
        EXPECT_EQ(Box.verticalScrollBar()->maximum(), 0) << factor;
        EXPECT_GE(Box.WrittenPixelSize(), std::lround(Box.font().pixelSize() * 0.85)) << factor;
    }
}

} // namespace

} // namespace numbrela
