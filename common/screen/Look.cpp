#include "common/screen/Look.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleOption>
#include <QTranslator>
#include <QWidget>

namespace numbrela {

namespace {

// One set of colours for active, inactive and disabled windows: a highlight means something in this program, so it
// must not fade when the focus goes elsewhere. Only disabled text is greyed.
QPalette lightPalette()
{
    const QColor ink(0x1a, 0x1a, 0x1a);
    const QColor paper(Qt::white);
    const QColor window(0xf0, 0xf0, 0xf0);
    const QColor selection(0x0b, 0x5c, 0xad);
    const QColor faded(0x60, 0x60, 0x60);

    QPalette palette(ink, window, paper, QColor(0x8a, 0x8a, 0x8a), QColor(0xb8, 0xb8, 0xb8), ink, paper, paper, window);
    palette.setColor(QPalette::Button, QColor(0xd3, 0xdc, 0xe6)); // not the grey of what is only read
    palette.setColor(QPalette::Disabled, QPalette::Button, QColor(0xe4, 0xe4, 0xe4));
    palette.setColor(QPalette::ButtonText, ink);
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, paper);
    palette.setColor(QPalette::ToolTipBase, paper);
    palette.setColor(QPalette::ToolTipText, ink);
    palette.setColor(QPalette::PlaceholderText, faded);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText }) {
        palette.setColor(QPalette::Disabled, role, faded);
    }
    return palette;
}

// What the ground and the edge of a push button tell.
struct ButtonLook {
    QColor Ground;
    QColor Edge;
    int EdgeWidth; // pixels
};

constexpr int thickEdge = 2;

ButtonLook lookOf(const QStyleOption& button)
{
    constexpr int pressedShade = 108; // per cent: black is still read well on red
    constexpr int edgeShade = 200;
    const QColor ground = button.palette.color(QPalette::Button);
    const QColor ink = button.palette.color(QPalette::WindowText);
    const auto* options = qstyleoption_cast<const QStyleOptionButton*>(&button);
    if (!button.state.testFlag(QStyle::State_Enabled)) {
        return { ground, button.palette.color(QPalette::Mid), 1 };
    }
    if (button.state.testFlag(QStyle::State_Sunken)) {
        return { ground.darker(pressedShade), ink, thickEdge };
    }
    if (button.state.testFlag(QStyle::State_MouseOver)) {
        return { ground, ground.darker(edgeShade), thickEdge };
    }
    if (options != nullptr && options->features.testFlag(QStyleOptionButton::DefaultButton)) {
        return { ground, button.palette.color(QPalette::Highlight), thickEdge };
    }
    return { ground, ground.darker(edgeShade), 1 };
}

// Flat, in exactly the colour that the button was given; the style's own shading would pale it. The frame of the focus
// is seen on any ground, because it has a white line on both sides.
void drawButton(const QStyleOption& button, QPainter& painter)
{
    const ButtonLook look = lookOf(button);
    const auto fill = [&painter, rect = button.rect](int inset, const QColor& colour) {
        constexpr int radius = 2; // pixels
        painter.setBrush(colour);
        painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    fill(0, look.Edge);
    int inset = look.EdgeWidth;
    if (button.state.testFlag(QStyle::State_HasFocus)) {
        fill(inset, Qt::white);
        fill(inset + 1, button.palette.color(QPalette::Highlight));
        fill(inset + 3, Qt::white);
        inset += 4;
    }
    fill(inset, look.Ground);
    painter.restore();
}

// Fusion with flat buttons, with quiet boxes, whose buttons carry words alone, with check marks as large as the words
// beside them, with a caret only where the focus is, and with a coloured frame round the button, list or text area that
// has the focus.
class QuietStyle : public QProxyStyle {
public:
    QuietStyle()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int styleHint(
        StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const override
    {
        switch (hint) {
        case SH_DialogButtonBox_ButtonsHaveIcons:
            return 0;
        case SH_BlinkCursorWhenTextSelected: // asked whenever a text is highlighted, wherever the focus is
            return widget != nullptr && widget->hasFocus() ? 1 : 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        const bool checkMark = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
        if (metric == PM_ButtonShiftHorizontal || metric == PM_ButtonShiftVertical) {
            return 1; // a caption goes down with its button
        }
        return checkMark && widget != nullptr ? widget->fontInfo().pixelSize()
                                              : QProxyStyle::pixelMetric(metric, option, widget);
    }

    // The line of a list has room for the frame of its focus above and below its letters.
    QSize sizeFromContents(
        ContentsType type, const QStyleOption* option, const QSize& contents, const QWidget* widget) const override
    {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return type == CT_ItemViewItem ? size + QSize(0, 2 * roomForLineFocus(option->fontMetrics)) : size;
    }

    // A caption stands inside of the edge, however thick it is.
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override
    {
        return element == SE_PushButtonContents ? option->rect.adjusted(thickEdge, thickEdge, -thickEdge, -thickEdge)
                                                : QProxyStyle::subElementRect(element, option, widget);
    }

    void drawPrimitive(
        PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override
    {
        if (element == PE_PanelButtonCommand) {
            drawButton(*option, *painter);
        } else if (element == PE_FrameFocusRect && qobject_cast<const QPushButton*>(widget) != nullptr) {
            return; // it has its frame
        } else if (element == PE_FrameFocusRect && option->state.testFlag(State_Item)) { // of a line of a list
            drawLineFocus(*option, *painter);
        } else {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
        if (element == PE_Frame && option->state.testFlag(State_HasFocus)) { // Fusion leaves it grey
            painter->setPen(option->palette.color(QPalette::Highlight));
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        }
    }

    // Every menu bar asks for the icon of the menus that it has no room for. Drawn here, it costs the start no image
    // files and none of the libraries that read them.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override
    {
        return icon == SP_ToolBarHorizontalExtensionButton ? moreToTheRight()
                                                           : QProxyStyle::standardIcon(icon, option, widget);
    }

private:
    // Pixels for the frame and one outside of it, and for what the accent of a capital letter stands out of the height
    // of its font: no more than a twentieth of it.
    static int roomForLineFocus(const QFontMetrics& font)
    {
        constexpr int frame = 2;
        return frame + 1 + font.height() / 20;
    }

    // A frame alone: the style's own focus is a bar of a pale colour, as if the line were selected.
    static void drawLineFocus(const QStyleOption& line, QPainter& painter)
    {
        const bool selected = line.state.testFlag(State_Selected);
        painter.save();
        painter.setPen(line.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(line.rect.adjusted(1, 1, -2, -2)); // seen on the bar of a selected line, too
        painter.restore();
    }

    static QIcon moreToTheRight()
    {
        constexpr int size = 16;
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setPen(QPen(Qt::black, 2));
        for (const int left : { 3, 8 }) {
            painter.drawPolyline(QPolygon({ { left, 4 }, { left + 4, 8 }, { left, 12 } }));
        }
        return picture;
    }
};

} // namespace

void ApplyLook(QApplication& application)
{
    QFont::insertSubstitutions(QStringLiteral("Arial"), { QStringLiteral("Liberation Sans") });
    QFont::insertSubstitutions(QStringLiteral("Courier New"), { QStringLiteral("Liberation Mono") });
    QFont::insertSubstitutions(
        QStringLiteral("Courier"), { QStringLiteral("Courier New"), QStringLiteral("Liberation Mono") });
    QFont::insertSubstitutions(QStringLiteral("Verdana"), { QStringLiteral("DejaVu Sans") });

    // Fusion would keep the pictures that it has drawn of scroll bars and arrows, each under a name that the identity
    // of a palette is part of. Every new window has new palettes, and Qt never forgets a name: memory would grow with
    // each window that is opened. Drawn anew each time, they cost nothing that is noticed.
    QPixmapCache::setCacheLimit(0);

    QApplication::setStyle(new QuietStyle);
    QApplication::setPalette(lightPalette());
    QApplication::setFont(QFont(QStringLiteral("Arial"), 12));

    auto* spanish = new QTranslator(&application);
    if (spanish->load(QStringLiteral(":/translations/qtbase_es.qm"))) {
        QApplication::installTranslator(spanish);
    }
}

} // namespace numbrela
