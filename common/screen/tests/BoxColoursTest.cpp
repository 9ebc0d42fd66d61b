#include "common/screen/BoxColours.h"

#include "common/screen/TextArea.h"
#include "common/screen/TextBox.h"

#include <gtest/gtest.h>

#include <QImage>

#include <array>

namespace numbrela {

namespace {

constexpr std::array<QPalette::ColorGroup, 3> groups { QPalette::Active, QPalette::Inactive, QPalette::Disabled };

const Verdict right { true, "resultado correcto" };
const Verdict wrong { false, "resultado incorrecto" };

bool isGreen(const QColor& colour)
{
    return colour.green() > 2 * colour.red() && colour.green() > 2 * colour.blue();
}

bool isRed(const QColor& colour)
{
    return colour.red() > 2 * colour.green() && colour.red() > 2 * colour.blue();
}

bool isPaleGrey(const QColor& colour)
{
    return colour.saturation() == 0 && colour.lightness() > 220 && colour.lightness() < 240;
}

// The ground that is painted beside the text, and the one below the text when it is highlighted.
QColor paintedBesideText(QWidget& box)
{
    return box.grab().toImage().pixelColor(box.width() - 6, box.height() / 2);
}

QColor paintedHighlight(QWidget& box)
{
    const QImage image = box.grab().toImage();
    const QColor highlight = box.palette().color(QPalette::Highlight);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == highlight ? 1 : 0;
        }
    }
    constexpr int ofAVerdict = 500; // pixels
    return count > ofAVerdict ? highlight : QColor();
}

// A box of either kind, wide enough for a verdict.
template <typename Box>
class BoxColoursTest : public ::testing::Test {
protected:
    BoxColoursTest()
    {
        box_.resize(240, 30);
        box_.setReadOnly(true);
    }

    Box box_;
};

using Boxes = ::testing::Types<TextBox, TextArea>;
TYPED_TEST_SUITE(BoxColoursTest, Boxes);

TYPED_TEST(BoxColoursTest, ABoxForReadingAloneHasAPaleGreyGround)
{
    EXPECT_TRUE(isPaleGrey(paintedBesideText(this->box_))) << paintedBesideText(this->box_).name().toStdString();
    for (const auto group : groups) {
        EXPECT_TRUE(isPaleGrey(this->box_.palette().color(group, QPalette::Base)));
        EXPECT_LT(this->box_.palette().color(group, QPalette::Text).lightness(), 60) << "text and ground together";
    }
}

TYPED_TEST(BoxColoursTest, AVerdictStandsOnGreenOrOnRedAndAnotherTextOnThePlainGroundAgain)
{
    const QColor plain = paintedBesideText(this->box_);
    for (const Verdict& verdict : { right, wrong }) {
        this->box_.ShowVerdict(verdict);
        EXPECT_EQ(this->box_.Text(), verdict.Text);
        EXPECT_TRUE((verdict.Right ? isGreen : isRed)(paintedBesideText(this->box_)));
        this->box_.SelectWholeText();
        this->box_.ShowVerdict(verdict);
        EXPECT_TRUE((verdict.Right ? isGreen : isRed)(paintedBesideText(this->box_))) << "no longer highlighted";
        this->box_.SetText(verdict.Right ? "" : "84 ÷ 4");
        EXPECT_EQ(paintedBesideText(this->box_), plain);
    }
}

TYPED_TEST(BoxColoursTest, AHighlightedVerdictHasAGreenOrARedHighlightInstead)
{
    const QColor plainHighlight = this->box_.palette().color(QPalette::Highlight);
    for (const Verdict& verdict : { right, wrong }) {
        this->box_.ShowVerdict(verdict);
        this->box_.SelectWholeText();
        EXPECT_TRUE((verdict.Right ? isGreen : isRed)(paintedHighlight(this->box_)));
        EXPECT_TRUE(isPaleGrey(paintedBesideText(this->box_)));
    }
    this->box_.SetText("84 ÷ 4 es lo que se pide");
    this->box_.SelectWholeText();
    EXPECT_EQ(paintedHighlight(this->box_), plainHighlight);
}

TYPED_TEST(BoxColoursTest, AVerdictLooksAlikeInEveryWindow)
{
    for (const Verdict& verdict : { right, wrong }) {
        this->box_.ShowVerdict(verdict);
        const QPalette palette = this->box_.palette();
        for (const auto role : { QPalette::Base, QPalette::Text, QPalette::Highlight, QPalette::HighlightedText }) {
            EXPECT_EQ(palette.color(QPalette::Inactive, role), palette.color(QPalette::Active, role));
            EXPECT_EQ(palette.color(QPalette::Disabled, role), palette.color(QPalette::Active, role));
        }
    }
}

TEST(BoxColours, ABoxThatTakesTypingIsWhiteUnlessItIsToLookReadOnly)
{
    TextBox box;
    box.resize(240, 30);
    for (const bool readOnly : { false, true, false }) {
        box.setReadOnly(readOnly);
        EXPECT_EQ(paintedBesideText(box) == QColor(Qt::white), !readOnly);
    }
    box.LookReadOnly();
    EXPECT_FALSE(box.isReadOnly());
    EXPECT_TRUE(isPaleGrey(paintedBesideText(box)));
}

} // namespace

} // namespace numbrela
