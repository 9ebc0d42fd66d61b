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

TEST_F(LineTest, KnowsItsNameAndItsEnds)
{
    EXPECT_EQ(line_.objectName().toStdString(), "Line1");
    EXPECT_EQ(line_.From(), (TwipsPoint { 1500, 1500 }));
    EXPECT_EQ(line_.To(), (TwipsPoint { 3000, 1500 }));
    line_.SetEnds({ 150, 300 }, { 150, 900 });
    EXPECT_EQ(line_.From(), (TwipsPoint { 150, 300 }));
    EXPECT_EQ(line_.To(), (TwipsPoint { 150, 900 }));
}

TEST_F(LineTest, IsTwoPixelsThickAroundItsEnds)
{
    EXPECT_EQ(line_.geometry(), QRect(99, 99, 102, 2));
    line_.SetEnds({ 1500, 750 }, { 1500, 1500 });
    QCoreApplication::processEvents();
    EXPECT_EQ(line_.geometry(), QRect(99, 49, 2, 52));
}

TEST_F(LineTest, ScalesWithItsArea)
{
    window_.resize(600, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(line_.geometry(), QRect(198, 198, 204, 4));
}

TEST_F(LineTest, IsPaintedInTheColourOfText)
{
    const QImage picture = window_.grab().toImage();
    const QColor ink = window_.palette().color(QPalette::WindowText);
    for (int x = 99; x < 201; ++x) {
        EXPECT_EQ(picture.pixelColor(x, 99), ink);
        EXPECT_EQ(picture.pixelColor(x, 100), ink);
    }
    EXPECT_NE(picture.pixelColor(150, 98), ink);
    EXPECT_NE(picture.pixelColor(150, 101), ink);
    EXPECT_NE(picture.pixelColor(98, 100), ink);
    EXPECT_NE(picture.pixelColor(201, 100), ink);
}

TEST_F(LineTest, LetsTheMouseThroughAndTakesNoFocus)
{
    EXPECT_EQ(window_.childAt(150, 100), nullptr);
    EXPECT_EQ(line_.focusPolicy(), Qt::NoFocus);
}

} // namespace

} // namespace numbrela
