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
#include <QPixmapCache>
#include <QProxyStyle>
#include <QScrollBar>
#include <QTextEdit>

#include <array>
#include <memory>
#include <string>

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
    EXPECT_TRUE(palette.isEqual(QPalette::Active, QPalette::Inactive));
    EXPECT_NE(palette.color(QPalette::Highlight), palette.color(QPalette::Base));
    const TextBox box;
    for (const auto group : groups) {
        for (const auto role : { QPalette::Highlight, QPalette::Base }) {
            EXPECT_EQ(box.palette().color(group, role), palette.color(group, role));
        }
    }
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
            EXPECT_GT(palette.color(QPalette::Disabled, ink).lightness(), palette.color(ink).lightness()) << "faint";
        }
    }
}

// Pictures that were kept would be kept under names that are never forgotten.
TEST(LookTest, IsFusionWithoutIconsOnTheButtonsOfBoxesAndKeepsNoPicturesOfWhatItDraws)
{
    const auto* style = qobject_cast<const QProxyStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    EXPECT_TRUE(style->baseStyle()->inherits("QFusionStyle"));
    EXPECT_EQ(style->styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
    QScrollBar().grab();
    EXPECT_FALSE(QPixmapCache::insert(QStringLiteral("picture"), QPixmap(1, 1)));
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

// Their highlight does not show the focus: it stays when the focus leaves.
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

TEST(LookTest, WritesInArialOfTwelvePointsAndFindsAFontOfEqualColumnsForTheCouriersAlone)
{
    EXPECT_EQ(QApplication::font().family().toStdString(), "Arial");
    EXPECT_EQ(QApplication::font().pointSize(), 12);
    for (const char* family : { "Courier", "Courier New", "Arial", "Verdana" }) {
        const bool courier = std::string(family).starts_with("Courier");
        EXPECT_EQ(QFontInfo(fontOf(family)).fixedPitch(), courier) << family;
        EXPECT_EQ(hasEqualColumns(fontOf(family)), courier) << family;
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

} // namespace

} // namespace numbrela
