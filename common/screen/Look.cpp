#include "common/screen/Look.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QPushButton>
#include <QStringList>
#include <QStyleOption>
#include <QTranslator>
#include <QWidget>

#include <algorithm>

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
    palette.setColor(QPalette::Button, QColor(0xd3, 0xdc, 0xe6)); // not the grey of a read-only box
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

// How the background and the edge of a push button show its state.
struct ButtonLook {
    QColor Ground;
    QColor Edge;
    int EdgeWidth; // pixels
};

constexpr int thickEdge = 2;

ButtonLook lookOf(const QStyleOption& button)
{
    constexpr int pressedShade = 108; // per cent: black on red is still easy to read
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

// Flat, in exactly the colour that the button was given; the style's own shading would make it paler. The focus frame
// stands out on any background, because it has a white line on both sides.
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

// Fusion with flat buttons; boxes whose buttons have no icons; check marks as large as the words beside them; a caret
// only in the control that has the focus; and a coloured frame round a button, list or text area that has it.
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
            return 1; // the caption moves down with its button
        }
        return checkMark && widget != nullptr ? widget->fontInfo().pixelSize()
                                              : QProxyStyle::pixelMetric(metric, option, widget);
    }

    // A line of a list has room for its focus frame above and below its letters. A button of a message or input box
    // grows with its letters, to the height of the keys of a keypad there.
    QSize sizeFromContents(
        ContentsType type, const QStyleOption* option, const QSize& contents, const QWidget* widget) const override
    {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type == CT_PushButton) {
            const int letters = option->fontMetrics.height();
            return size.expandedTo({ std::max(5 * letters, contents.width() + letters), letters * 7 / 4 });
        }
        return type == CT_ItemViewItem ? size + QSize(0, 2 * roomForLineFocus(option->fontMetrics)) : size;
    }

    // The caption stays inside the edge, however thick that is.
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
            return; // it has a frame already
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

    // Every menu bar asks for the icon of the menus that do not fit into it. Drawing it here saves loading image files,
    // and the libraries that read them, at the start.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override
    {
        return icon == SP_ToolBarHorizontalExtensionButton ? moreToTheRight()
                                                           : QProxyStyle::standardIcon(icon, option, widget);
    }

private:
    // Pixels for the frame, one outside it, and the part of an accent on a capital letter that rises above the height
    // of the font: about a twentieth of that height, and more where hinting moves it up.
    static int roomForLineFocus(const QFontMetrics& font)
    {
        constexpr int frame = 2;
        constexpr QChar highLetter(0xC1); // Á
        const int rise = -font.boundingRect(highLetter).top() - font.ascent();
        return frame + std::max(1 + font.height() / 20, rise);
    }

    // Only a frame: the style itself shows the focus as a pale bar, as if the line were selected.
    static void drawLineFocus(const QStyleOption& line, QPainter& painter)
    {
        const bool selected = line.state.testFlag(State_Selected);
        painter.save();
        painter.setPen(line.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(line.rect.adjusted(1, 1, -2, -2)); // visible on the bar of a selected line, too
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
    // In a browser, what is cut out of Liberation is called after the program: its licence keeps the name for the
    // whole.
    const QStringList mono { QStringLiteral("Liberation Mono"), QStringLiteral("Numbrela Mono") };
    QFont::insertSubstitutions(
        QStringLiteral("Arial"), { QStringLiteral("Liberation Sans"), QStringLiteral("Numbrela Sans") });
    QFont::insertSubstitutions(QStringLiteral("Courier New"), mono);
    QFont::insertSubstitutions(QStringLiteral("Courier"), QStringList(QStringLiteral("Courier New")) + mono);
    QFont::insertSubstitutions(QStringLiteral("Verdana"), { QStringLiteral("DejaVu Sans") });

    // Fusion would cache its pictures of scroll bars and arrows under names that contain the identity of a palette.
    // Every new window has new palettes, and Qt never frees a name, so memory would grow with each window that is
    // opened. Drawing them anew each time costs nothing noticeable.
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
