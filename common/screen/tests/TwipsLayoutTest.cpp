#include "common/screen/TwipsLayout.h"

#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>

#include <memory>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

// A frame asks the area around it for a new layout, and the area asks the frame, each one turn of the event loop later.
void settle()
{
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::processEvents();
    }
}

// An area of 300 by 200 pixels at the design size, on a screen of 96 dots per inch.
class TwipsLayoutTest : public ::testing::Test, public QObject {
protected:
    QLabel* place(TwipsRect rect)
    {
        auto* label = new QLabel(&area_);
        layout_.Place(label, rect);
        return label;
    }

    void show(QSize size)
    {
        area_.resize(size);
        ShowAndActivate(area_);
    }

    void resize(QSize size)
    {
        area_.resize(size);
        settle();
    }

    bool eventFilter(QObject* /*object*/, QEvent* event) override
    {
        layoutRequests_ += event->type() == QEvent::LayoutRequest ? 1 : 0;
        return false;
    }

    int layoutRequests_ = 0; // since this was made the area's event filter
    QWidget area_;
    TwipsLayout& layout_ = *new TwipsLayout(&area_, { 4500, 3000 }, { "Verdana", 15 });
};

bool isInside(const QWidget& control)
{
    return control.parentWidget()->rect().contains(control.geometry());
}

TEST_F(TwipsLayoutTest, HasItsDesignSizeAtFifteenTwipsToAPixel)
{
    EXPECT_DOUBLE_EQ(layout_.DesignPixelsPerTwip(), 1.0 / 15);
    EXPECT_DOUBLE_EQ(layout_.PixelsPerTwip(), 1.0 / 15);
    EXPECT_EQ(layout_.sizeHint(), QSize(300, 200));
    EXPECT_EQ(layout_.SizeAt(1.0 / 15), QSize(300, 200));
    EXPECT_EQ(layout_.SizeAt(1.0 / 10), QSize(450, 300));
    EXPECT_EQ(layout_.SizeAt(0), QSize(0, 0));
}

TEST_F(TwipsLayoutTest, DressesAControlInItsFontOfSoManyPoints)
{
    auto* label = new QLabel(&area_);
    layout_.Place(label, { 0, 0, 1500, 495 }, { "Courier", 9.75, true });
    EXPECT_EQ(label->font().family().toStdString(), "Courier");
    EXPECT_EQ(label->font().pixelSize(), 13);
    EXPECT_TRUE(label->font().bold());
    const FontSpec font = layout_.FontOf(label);
    EXPECT_STREQ(font.Family, "Courier");
    EXPECT_EQ(font.Points, 9.75);
    EXPECT_TRUE(font.Bold);
    layout_.Place(label, { 0, 0, 1500, 495 }, { "Arial", 0.1 });
    EXPECT_EQ(label->font().pixelSize(), 1) << "nothing is smaller than a pixel";
    const QLabel stranger;
    EXPECT_EQ(layout_.RectOf(&stranger), TwipsRect());
    EXPECT_STREQ(layout_.FontOf(&stranger).Family, "Verdana");
}

TEST_F(TwipsLayoutTest, MovesAndDressesAgainAControlThatIsPlacedAgain)
{
    QLabel* label = place({ 150, 300, 1500, 495 });
    show({ 300, 200 });
    const auto expectFont = [label](const char* family, int pixels, bool bold) {
        EXPECT_EQ(label->font().family().toStdString(), family);
        EXPECT_EQ(label->font().pixelSize(), pixels);
        EXPECT_EQ(label->font().bold(), bold);
    };
    layout_.Place(label, { 300, 450, 750, 300 }, { "Arial", 12, true });
    settle();
    EXPECT_EQ(layout_.count(), 1);
    EXPECT_EQ(layout_.RectOf(label), (TwipsRect { 300, 450, 750, 300 }));
    EXPECT_EQ(label->geometry(), QRect(20, 30, 50, 20));
    expectFont("Arial", 16, true);
    layout_.Place(label, { 300, 450, 750, 300 });
    expectFont("Verdana", 20, false);
    EXPECT_STREQ(layout_.FontOf(label).Family, "Verdana");
    layout_.Place(label, { 300, 450, 750, 300 }, { "Courier", 12, true });
    layout_.Move(label, { 0, 0, 300, 150 }); // without dressing it again
    settle();
    EXPECT_EQ(label->geometry(), QRect(0, 0, 20, 10));
    expectFont("Courier", 16, true);
}

TEST_F(TwipsLayoutTest, ScalesPlacesAndFontsWithTheAreaAlsoOfAControlThatItMakesItsOwnLater)
{
    QLabel* label = place({ 150, 300, 1500, 495 });
    show({ 600, 400 });
    EXPECT_DOUBLE_EQ(layout_.PixelsPerTwip(), 2.0 / 15);
    EXPECT_EQ(label->geometry(), QRect(20, 40, 200, 66));
    EXPECT_EQ(label->font().pixelSize(), 40);
    label->setVisible(false);
    resize({ 300, 200 });
    label->setVisible(true);
    EXPECT_EQ(label->geometry(), QRect(10, 20, 100, 33)) << "hidden controls scale too";
    resize({ 150, 100 });
    EXPECT_EQ(label->geometry(), QRect(5, 10, 50, 17));
    EXPECT_EQ(label->font().pixelSize(), 10);

    resize({ 600, 400 });
    QWidget elsewhere;
    auto* later = new QLabel(&elsewhere);
    layout_.Place(later, { 150, 300, 1500, 495 });
    later->show();
    EXPECT_EQ(later->font().pixelSize(), 40);
    settle();
    EXPECT_EQ(later->parentWidget(), &area_);
    EXPECT_EQ(later->geometry(), QRect(20, 40, 200, 66));
}

TEST_F(TwipsLayoutTest, KeepsProportionsAndSharesWhatIsLeftOverBetweenBothSides)
{
    const QLabel* whole = place({ 0, 0, 4500, 3000 });
    show({ 700, 400 });
    EXPECT_EQ(whole->geometry(), QRect(50, 0, 600, 400));
    resize({ 600, 500 });
    EXPECT_EQ(whole->geometry(), QRect(0, 50, 600, 400));
    EXPECT_EQ(whole->font().pixelSize(), 40);
}

// 4 997 twips are 333,13 pixels.
TEST_F(TwipsLayoutTest, StandsToThePixelWhereItsTwipsSayAlthoughTheWindowHasWholePixels)
{
    place({ 0, 0, 4997, 3007 });
    const QLabel* label = place({ 3000, 2500, 1992, 500 });
    show(layout_.sizeHint());
    EXPECT_DOUBLE_EQ(layout_.PixelsPerTwip(), 1.0 / 15);
    EXPECT_EQ(label->geometry(), QRect(QPoint(200, 167), QPoint(333 - 1, 200 - 1)));
}

TEST_F(TwipsLayoutTest, LeavesNoGapBetweenNeighboursAtAnyScale)
{
    constexpr TwipsSize size { 497, 331 }; // no whole number of pixels
    std::vector<const QLabel*> labels; // each touches the one before with a corner
    for (int i = 0; i < 9; ++i) {
        labels.push_back(place({ i * size.Width, i * size.Height, size.Width, size.Height }));
    }
    show({ 300, 200 });
    for (int pixels = 151; pixels < 800; pixels += 13) {
        resize({ pixels, pixels - 40 });
        for (std::size_t i = 1; i < labels.size(); ++i) {
            EXPECT_EQ(labels[i]->pos(), labels[i - 1]->geometry().bottomRight() + QPoint(1, 1)) << pixels;
        }
    }
}

TEST_F(TwipsLayoutTest, ShowsAControlBeyondAnyEdgeWhole)
{
    constexpr std::pair<TwipsRect, TwipsRect> controlsAndExtents[] = {
        { { -600, 100, 900, 300 }, { -600, 0, 5100, 3000 } },
        { { 100, -450, 900, 300 }, { 0, -450, 4500, 3450 } },
        { { 4400, 100, 1000, 300 }, { 0, 0, 5400, 3000 } },
        { { 100, 2900, 900, 700 }, { 0, 0, 4500, 3600 } },
        { { -1500, -750, 9000, 6000 }, { -1500, -750, 9000, 6000 } },
        { { 6000, 4500, 300, 150 }, { 0, 0, 6300, 4650 } },
    };
    QLabel* label = place({ 0, 0, 100, 100 });
    const QLabel* whole = place({ 0, 0, 4500, 3000 });
    show({ 300, 200 });
    for (const auto& [control, extent] : controlsAndExtents) {
        SCOPED_TRACE(::testing::Message() << control.Left << ", " << control.Top);
        layout_.Move(label, control);
        settle();
        EXPECT_EQ(layout_.Extent(), extent);
        EXPECT_EQ(layout_.sizeHint(), QSize(extent.Width / 15, extent.Height / 15));
        EXPECT_TRUE(isInside(*label));
        EXPECT_TRUE(isInside(*whole));
        EXPECT_NEAR(label->x() - whole->x(), control.Left * layout_.PixelsPerTwip(), 1);
        EXPECT_NEAR(label->y() - whole->y(), control.Top * layout_.PixelsPerTwip(), 1);
    }
}

TEST_F(TwipsLayoutTest, KeepsAMarginAroundEveryControl)
{
    QLabel* label = place({ 300, 300, 3900, 2400 });
    layout_.SetMargin(300);
    EXPECT_EQ(layout_.Extent(), (TwipsRect { 0, 0, 4500, 3000 })) << "inside there is room enough";
    layout_.Move(label, { 285, 300, 3900, 2400 });
    EXPECT_EQ(layout_.Extent(), (TwipsRect { -15, 0, 4515, 3000 }));
    layout_.Move(label, { -600, -450, 6000, 4500 });
    EXPECT_EQ(layout_.Extent(), (TwipsRect { -900, -750, 6600, 5100 }));
    show({ 440, 340 });
    settle();
    EXPECT_EQ(label->geometry(), QRect(20, 20, 400, 300));
}

TEST_F(TwipsLayoutTest, LeavesWhatIsInItInPlaceWhenItIsMadeLargerOrSmaller)
{
    const QLabel* label = place({ 150, 300, 1500, 495 });
    show({ 300, 200 });
    for (const TwipsSize size : { TwipsSize { 6000, 4500 }, TwipsSize { 3000, 2250 } }) {
        layout_.SetDesignSize(size);
        EXPECT_EQ(layout_.Extent(), (TwipsRect { 0, 0, size.Width, size.Height }));
        EXPECT_EQ(layout_.sizeHint(), QSize(size.Width / 15, size.Height / 15));
        EXPECT_EQ(layout_.RectOf(label), (TwipsRect { 150, 300, 1500, 495 }));
        resize(layout_.sizeHint());
        EXPECT_EQ(label->geometry(), QRect(10, 20, 100, 33));
    }
    layout_.SetDesignSize({ 1500, 750 });
    EXPECT_EQ(layout_.Extent(), (TwipsRect { 0, 0, 1650, 795 })) << "and shows every control whole";
}

TEST_F(TwipsLayoutTest, DoesNotCountAHiddenOrADestroyedControl)
{
    constexpr TwipsRect design { 0, 0, 4500, 3000 };
    constexpr TwipsRect wider { -600, -450, 5100, 3450 };
    EXPECT_EQ(layout_.Extent(), design);
    place(design);
    EXPECT_EQ(layout_.Extent(), design);
    QLabel* label = place({ -600, -450, 900, 300 });
    EXPECT_EQ(layout_.Extent(), wider) << "the area need not be shown yet";
    label->hide();
    EXPECT_EQ(layout_.Extent(), design);
    label->show();
    EXPECT_EQ(layout_.Extent(), wider);
    delete label;
    EXPECT_EQ(layout_.count(), 1);
    EXPECT_EQ(layout_.Extent(), design);
}

TEST_F(TwipsLayoutTest, GivesItsItemsByNumberAndAwayWhenAsked)
{
    const QLabel* first = place({ 0, 0, 900, 300 });
    const QLabel* second = place({ 0, 300, 900, 300 });
    EXPECT_EQ(layout_.count(), 2);
    EXPECT_EQ(layout_.itemAt(0)->widget(), first);
    EXPECT_EQ(layout_.itemAt(1)->widget(), second);
    EXPECT_EQ(layout_.itemAt(-1), nullptr);
    EXPECT_EQ(layout_.itemAt(2), nullptr);
    EXPECT_EQ(layout_.takeAt(2), nullptr);
    EXPECT_EQ(layout_.takeAt(-1), nullptr);
    const std::unique_ptr<QLayoutItem> taken(layout_.takeAt(0));
    EXPECT_EQ(taken->widget(), first);
    EXPECT_EQ(layout_.count(), 1);
    EXPECT_EQ(layout_.itemAt(0)->widget(), second);
}

TEST_F(TwipsLayoutTest, HoldsTheWindowAtHalfItsDesignSizeOrMore)
{
    QLabel* label = place({ 0, 0, 4500, 3000 });
    EXPECT_EQ(layout_.minimumSize(), QSize(150, 100));
    show({ 300, 200 });
    resize({ 1, 1 });
    EXPECT_EQ(area_.size(), QSize(150, 100));
    EXPECT_EQ(label->geometry(), area_.rect());
    layout_.Move(label, { 0, 0, 9000, 3000 });
    EXPECT_EQ(layout_.minimumSize(), QSize(300, 100));
    EXPECT_EQ(layout_.expandingDirections(), Qt::Horizontal | Qt::Vertical);
}

// Its font is changed by the text box itself, which asks for a new layout, and may be the very one that it is then
// given.
TEST_F(TwipsLayoutTest, ComesToRestWithATextThatHasToBeWrittenSmaller)
{
    auto* box = new TextBox(&area_);
    layout_.Place(box, { 0, 0, 1500, 495 });
    box->SetText("12345678901234567890");
    show({ 300, 200 });
    resize({ 600, 400 });
    EXPECT_LT(box->font().pixelSize(), 40);
    area_.installEventFilter(this);
    settle();
    settle();
    EXPECT_LE(layoutRequests_, 1);
}

TEST_F(TwipsLayoutTest, WritesNoLargerInASmallerAreaAfterATextThatHadToBeWrittenSmaller)
{
    auto* box = new TextBox(&area_);
    layout_.Place(box, { 0, 0, 1500, 495 });
    show({ 300, 200 });
    for (const char* text : { "12345678", "123456789", "1234567890", "12345678901", "123456789012" }) {
        resize({ 300, 200 });
        box->SetText(text);
        const int written = box->font().pixelSize();
        EXPECT_LT(written, 20);
        resize({ 300 * written / 20, 200 * written / 20 });
        box->SetText("1");
        EXPECT_NEAR(box->font().pixelSize(), 300 * layout_.PixelsPerTwip(), 0.5) << text;
    }
}

// A frame of 200 by 100 pixels at (20, 30), with a label at (10, 10) of the frame.
class FrameInAreaTest : public TwipsLayoutTest {
protected:
    void SetUp() override
    {
        layout_.Place(frame_, { 300, 450, 3000, 1500 });
        inner_ = new TwipsLayout(frame_, { 3000, 1500 }, { "Courier", 12 });
        label_ = new QLabel(frame_);
        inner_->Place(label_, { 150, 150, 1500, 300 });
        show({ 300, 200 });
    }

    QRect labelInArea() const { return { frame_->mapTo(&area_, label_->pos()), label_->size() }; }

    QWidget* frame_ = new QWidget(&area_);
    TwipsLayout* inner_ = nullptr;
    QLabel* label_ = nullptr;
};

TEST_F(FrameInAreaTest, CountsPlacesFromTheFramesOwnCornerAndTakesTheScaleOfTheAreaAroundIt)
{
    EXPECT_EQ(frame_->geometry(), QRect(20, 30, 200, 100));
    EXPECT_EQ(label_->geometry(), QRect(10, 10, 100, 20));
    EXPECT_EQ(layout_.Extent(), (TwipsRect { 0, 0, 4500, 3000 }));
    resize({ 600, 400 });
    EXPECT_DOUBLE_EQ(inner_->PixelsPerTwip(), layout_.PixelsPerTwip());
    EXPECT_EQ(frame_->geometry(), QRect(40, 60, 400, 200));
    EXPECT_EQ(label_->geometry(), QRect(20, 20, 200, 40));
    EXPECT_EQ(label_->font().pixelSize(), 32);
}

// A box of a window is the window's child, too.
TEST_F(FrameInAreaTest, AWindowOfTheWindowsOwnHasAScaleOfItsOwn)
{
    QWidget window(&area_, Qt::Window);
    const TwipsLayout own(&window, { 1500, 1500 }, {});
    window.resize(300, 300);
    ShowAndActivate(window);
    EXPECT_DOUBLE_EQ(own.PixelsPerTwip(), 300.0 / 1500);
    EXPECT_DOUBLE_EQ(layout_.PixelsPerTwip(), 300.0 / 4500);
}

TEST_F(FrameInAreaTest, EndsWithTheFrameWhatReachesItsEdgesAtAnyScale)
{
    inner_->Move(label_, { 0, 0, 3000, 1500 });
    for (int pixels = 151; pixels < 800; ++pixels) {
        resize({ pixels, pixels });
        EXPECT_EQ(label_->geometry(), frame_->rect()) << pixels;
    }
}

TEST_F(FrameInAreaTest, GrowsWithWhatStandsBeyondTheFramesEdges)
{
    const QRect before = labelInArea();
    auto* beyond = new QLabel(frame_);
    inner_->Place(beyond, { -150, -300, 300, 300 });
    beyond->show();
    settle();
    EXPECT_EQ(frame_->geometry(), QRect(10, 10, 210, 120));
    EXPECT_EQ(beyond->geometry(), QRect(0, 0, 20, 20));
    EXPECT_EQ(labelInArea(), before);
    inner_->Move(beyond, { 2700, 1350, 600, 300 });
    settle();
    EXPECT_EQ(frame_->geometry(), QRect(20, 30, 220, 110));
    EXPECT_EQ(labelInArea(), before);
    beyond->hide();
    settle();
    EXPECT_EQ(frame_->geometry(), QRect(20, 30, 200, 100));
    EXPECT_EQ(labelInArea(), before);
}

TEST_F(FrameInAreaTest, WidensTheAreaWithWhatStandsBeyondBoth)
{
    inner_->Move(label_, { -900, 150, 1500, 300 });
    settle();
    EXPECT_EQ(layout_.Extent(), (TwipsRect { -600, 0, 5100, 3000 }));
    EXPECT_TRUE(isInside(*frame_));
    EXPECT_TRUE(isInside(*label_));
    frame_->hide();
    EXPECT_EQ(layout_.Extent(), (TwipsRect { 0, 0, 4500, 3000 }));
}

} // namespace

} // namespace numbrela
