#include "common/screen/Line.h"

#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QPixmap>

namespace numbrela {

namespace {

using namespace testing;

// An area of 300 by 200 pixels, and a line of 100 pixels in it.
class LineTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        window_.resize(300, 200);
        ShowAndActivate(window_);
    }

    QWidget window_;
    TwipsLayout& area_ = *new TwipsLayout(&window_, { 4500, 3000 }, {});
    Line& line_ = *new Line(area_, QStringLiteral("Line1"), { 1500, 1500 }, { 3000, 1500 });
};

TEST_F(LineTest, IsTwoPixelsThickAroundItsEndsAndScalesWithItsArea)
{
    EXPECT_EQ(line_.objectName().toStdString(), "Line1");
    EXPECT_EQ(line_.From(), (TwipsPoint { 1500, 1500 }));
    EXPECT_EQ(line_.To(), (TwipsPoint { 3000, 1500 }));
    EXPECT_EQ(line_.geometry(), QRect(99, 99, 102, 2));
    line_.SetEnds({ 1500, 750 }, { 1500, 1500 });
    EXPECT_EQ(line_.From(), (TwipsPoint { 1500, 750 }));
    EXPECT_EQ(line_.To(), (TwipsPoint { 1500, 1500 }));
    QCoreApplication::processEvents();
    EXPECT_EQ(line_.geometry(), QRect(99, 49, 2, 52));
    window_.resize(600, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(line_.geometry(), QRect(198, 98, 4, 104));
}

TEST_F(LineTest, IsPaintedInTheColourOfTextLetsTheMouseThroughAndTakesNoFocus)
{
    const QImage picture = window_.grab().toImage();
    const QColor ink = window_.palette().color(QPalette::WindowText);
    for (int x = 90; x < 210; ++x) {
        for (int y = 90; y < 110; ++y) {
            EXPECT_EQ(picture.pixelColor(x, y) == ink, QRect(99, 99, 102, 2).contains(x, y)) << x << ", " << y;
        }
    }
    EXPECT_EQ(window_.childAt(150, 100), nullptr);
    EXPECT_EQ(line_.focusPolicy(), Qt::NoFocus);
}

} // namespace

} // namespace numbrela
