#include "common/screen/Look.h"

#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QFontInfo>
#include <QFontMetrics>
#include <QIcon>
#include <QListView>
#include <QMenu>
#include <QPaintEngine>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextEdit>

#include <array>
#include <memory>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr std::array<QPalette::ColorGroup, 3> groups { QPalette::Active, QPalette::Inactive, QPalette::Disabled };

QFont fontOf(const char* family)
{
    return QFont(QString::fromLatin1(family), 12);
}

bool hasEqualColumns(const QFont& font)
{
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(u'i') == metrics.horizontalAdvance(u'W')
        && metrics.horizontalAdvance(u'1') == metrics.horizontalAdvance(u' ');
}

TEST(LookTest, HighlightsAlikeWhateverHasTheFocus)
{
    const QPalette palette = QApplication::palette();
    for (const auto role : { QPalette::Highlight, QPalette::HighlightedText }) {
        EXPECT_EQ(palette.color(QPalette::Inactive, role), palette.color(QPalette::Active, role));
    }
    EXPECT_NE(palette.color(QPalette::Highlight), palette.color(QPalette::Base));
}

TEST(LookTest, LooksAlikeInActiveAndInactiveWindows)
{
    EXPECT_TRUE(QApplication::palette().isEqual(QPalette::Active, QPalette::Inactive));
}

TEST(LookTest, IsLightAndWritesDarkOnIt)
{
    using Pair = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
    const QPalette palette = QApplication::palette();
    for (const auto group : groups) {
        for (const auto& [ground, ink] : { Pair { QPalette::Window, QPalette::WindowText },
                 Pair { QPalette::Base, QPalette::Text }, Pair { QPalette::Button, QPalette::ButtonText } }) {
            EXPECT_GT(palette.color(group, ground).lightness(), 200) << group << ' ' << ground;
            EXPECT_LT(palette.color(group, ink).lightness(), 120) << group << ' ' << ink;
        }
    }
}

TEST(LookTest, WritesFaintlyWhatIsDisabled)
{
    const QPalette palette = QApplication::palette();
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText }) {
        EXPECT_GT(
            palette.color(QPalette::Disabled, role).lightness(), palette.color(QPalette::Active, role).lightness());
    }
}

TEST(LookTest, GivesATextBoxTheColoursOfTheProgram)
{
    const TextBox box;
    for (const auto group : groups) {
        EXPECT_EQ(
            box.palette().color(group, QPalette::Highlight), QApplication::palette().color(group, QPalette::Highlight));
        EXPECT_EQ(box.palette().color(group, QPalette::Base), QApplication::palette().color(group, QPalette::Base));
    }
}

TEST(LookTest, IsFusionWithoutIconsOnTheButtonsOfBoxes)
{
    const auto* style = qobject_cast<const QProxyStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    EXPECT_TRUE(style->baseStyle()->inherits("QFusionStyle"));
    EXPECT_EQ(style->styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
}

TEST(LookTest, DrawsCheckMarksAsLargeAsTheWordsBesideThem)
{
    QCheckBox box;
    for (const int pixels : { 16, 32 }) {
        QFont font = box.font();
        font.setPixelSize(pixels);
        box.setFont(font);
        for (const auto metric : { QStyle::PM_IndicatorWidth, QStyle::PM_IndicatorHeight }) {
            EXPECT_EQ(box.style()->pixelMetric(metric, nullptr, &box), pixels);
        }
    }
}

TEST(LookTest, DrawsACaretOnlyWhereTheFocusIs)
{
    QWidget window;
    TextBox box(&window);
    TextBox other(&window);
    const auto pictureWithCaretAt = [&](int end) {
        box.setSelection(end, end == 0 ? 2 : -2); // the caret stands where a selection ends
        return box.grab().toImage();
    };
    box.SetText("12");
    ShowAndActivate(window);
    other.setFocus();
    EXPECT_EQ(pictureWithCaretAt(0), pictureWithCaretAt(2));
    box.setFocus();
    EXPECT_NE(pictureWithCaretAt(0), pictureWithCaretAt(2));
}

// Their highlight says nothing of it: it stays where the focus is not.
TEST(LookTest, FramesTheListOrTextAreaThatHasTheFocus)
{
    QWidget window;
    window.resize(300, 200);
    QListView list(&window);
    QTextEdit area(&window);
    area.move(150, 0);
    area.resize(100, 100);
    ShowAndActivate(window);
    const auto edgeOf
        = [](QWidget& control) { return control.grab().toImage().pixelColor(0, control.height() / 2).rgb(); };
    const QRgb highlight = QApplication::palette().color(QPalette::Highlight).rgb();
    list.setFocus();
    EXPECT_EQ(edgeOf(list), highlight);
    EXPECT_NE(edgeOf(area), highlight);
    area.setFocus();
    EXPECT_EQ(edgeOf(area), highlight);
    EXPECT_NE(edgeOf(list), highlight);
}

TEST(LookTest, DrawsTheMarkOfMenusThatHaveNoRoom)
{
    const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
    const QImage image = icon.pixmap(16, 16).toImage();
    int inked = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            inked += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
        }
    }
    EXPECT_GT(inked, 20);
    EXPECT_LT(inked, 128);
}

TEST(LookTest, WritesInArialOfTwelvePoints)
{
    EXPECT_EQ(QApplication::font().family().toStdString(), "Arial");
    EXPECT_EQ(QApplication::font().pointSize(), 12);
}

TEST(LookTest, FindsAFontOfEqualColumnsForTheCouriers)
{
    for (const char* family : { "Courier", "Courier New" }) {
        EXPECT_TRUE(QFontInfo(fontOf(family)).fixedPitch()) << family;
        EXPECT_TRUE(hasEqualColumns(fontOf(family))) << family;
    }
}

TEST(LookTest, FindsAProportionalFontForTheOthers)
{
    for (const char* family : { "Arial", "Verdana" }) {
        EXPECT_FALSE(QFontInfo(fontOf(family)).fixedPitch()) << family;
        EXPECT_FALSE(hasEqualColumns(fontOf(family))) << family;
    }
}

TEST(LookTest, NamesASubstituteForEachFont)
{
    for (const char* family : { "Arial", "Courier", "Courier New", "Verdana" }) {
        EXPECT_FALSE(QFont::substitutes(QString::fromLatin1(family)).isEmpty()) << family;
    }
}

TEST(LookTest, SpeaksSpanishInTheContextMenuOfATextBox)
{
    TextBox box;
    const std::unique_ptr<QMenu> menu(box.createStandardContextMenu());
    QString captions;
    for (const QAction* item : menu->actions()) {
        captions += item->text().remove(u'&') + u'|';
    }
    for (const char* word : { "Deshacer", "Cortar", "Copiar", "Pegar", "Seleccionar todo" }) {
        EXPECT_TRUE(captions.contains(QString::fromLatin1(word))) << word << " in " << captions.toStdString();
    }
}

// Shows nothing, and remembers the identity of each picture that is put onto it.
class PictureSpy : public QPaintEngine, public QPaintDevice {
public:
    PictureSpy()
        : QPaintEngine(QPaintEngine::AllFeatures)
    {
    }

    std::vector<qint64> Pictures;

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override { }
    void drawPath(const QPainterPath& /*path*/) override { }
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override { }
    void drawTextItem(const QPointF& /*place*/, const QTextItem& /*text*/) override { }
    void drawPixmap(const QRectF& /*place*/, const QPixmap& picture, const QRectF& /*part*/) override
    {
        Pictures.push_back(picture.cacheKey());
    }
    Type type() const override { return User; }
    QPaintEngine* paintEngine() const override { return const_cast<PictureSpy*>(this); }

protected:
    int metric(PaintDeviceMetric asked) const override
    {
        constexpr int enough = 100;
        return asked == PdmDevicePixelRatioScaled ? static_cast<int>(devicePixelRatioFScale()) : enough;
    }
};

std::vector<qint64> picturesOf(QStyle::ControlElement element, const QStyleOption& option, const QWidget& widget)
{
    PictureSpy spy;
    QPainter painter(&spy);
    QApplication::style()->drawControl(element, &option, &painter, &widget);
    return spy.Pictures;
}

std::vector<qint64> picturesOf(QStyle::ComplexControl control, const QStyleOptionComplex& option, const QWidget& widget)
{
    PictureSpy spy;
    QPainter painter(&spy);
    QApplication::style()->drawComplexControl(control, &option, &painter, &widget);
    return spy.Pictures;
}

QStyleOptionSlider scrollBarOption(const QScrollBar& bar, const QColor& colour)
{
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.rect = QRect(0, 0, 20, 200);
    option.orientation = Qt::Vertical;
    option.subControls = QStyle::SC_All;
    option.maximum = 100;
    option.pageStep = 10;
    option.palette.setColor(QPalette::Button, colour);
    return option;
}

std::vector<qint64> picturesOfAScrollBar(const QColor& colour)
{
    const QScrollBar bar;
    return picturesOf(QStyle::CC_ScrollBar, scrollBarOption(bar, colour), bar);
}

std::vector<qint64> picturesOfAMenuItem()
{
    const QMenu menu;
    QStyleOptionMenuItem option;
    option.initFrom(&menu);
    option.rect = QRect(0, 0, 100, 20);
    option.menuItemType = QStyleOptionMenuItem::SubMenu;
    option.palette.setColor(QPalette::Button, Qt::white);
    return picturesOf(QStyle::CE_MenuItem, option, menu);
}

// Each of them has a palette of its own. A picture is kept under the name of its palette, and the name for ever.
TEST(LookTest, DrawsWhatLooksAlikeWithTheSamePictures)
{
    for (const auto& pictures :
        { +[] { return picturesOfAScrollBar(Qt::white); }, +[] { return picturesOfAMenuItem(); } }) {
        pictures(); // are drawn, and kept
        const std::vector<qint64> kept = pictures();
        EXPECT_FALSE(kept.empty());
        EXPECT_EQ(pictures(), kept);
    }
    const std::vector<qint64> kept = picturesOfAScrollBar(Qt::white);
    EXPECT_NE(picturesOfAScrollBar(Qt::cyan), kept);
    EXPECT_EQ(picturesOfAScrollBar(Qt::white), kept) << "whatever has been drawn in between";
}

TEST(LookTest, DrawsNoPicturesOfButtons)
{
    const QPushButton button(QStringLiteral("Aceptar"));
    QStyleOptionButton option;
    option.initFrom(&button);
    option.rect = QRect(0, 0, 80, 30);
    EXPECT_EQ(picturesOf(QStyle::CE_PushButton, option, button), std::vector<qint64>());
}

// The option whose palette is lent has its own again when it has been drawn.
TEST(LookTest, LeavesTheOptionsOfWhatItDrawsAsTheyAre)
{
    const QScrollBar bar;
    QStyleOptionSlider option = scrollBarOption(bar, Qt::yellow);
    option.palette.setCurrentColorGroup(QPalette::Disabled);
    const qint64 palette = option.palette.cacheKey();
    picturesOf(QStyle::CC_ScrollBar, option, bar);
    EXPECT_EQ(option.palette.cacheKey(), palette);
    EXPECT_EQ(option.palette.currentColorGroup(), QPalette::Disabled);
}

} // namespace

} // namespace numbrela
