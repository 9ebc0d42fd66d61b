#include "tests/whole/Contrast.h"

#include <QAbstractItemView>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QTextBlock>
#include <QTextEdit>

#include <algorithm>
#include <array>
#include <cmath>

namespace numbrela::testing {

namespace {

double luminance(const QColor& colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

// The background behind a control that has none of its own.
const QWidget& groundOf(const QWidget& control)
{
    const QWidget* ground = &control;
    while (!ground->isWindow() && !ground->autoFillBackground()) {
        ground = ground->parentWidget();
    }
    return *ground;
}

// The colours between which the style paints the inside of a button: the darkest and the lightest.
std::array<QColor, 2> paintedGround(const QPushButton& button, QStyle::State state)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    option.state = QStyle::State_Enabled | state;
    QImage image(button.size(), QImage::Format_RGB32);
    image.fill(groundOf(button).palette().color(QPalette::Window));
    QPainter painter(&image);
    button.style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, &button);
    painter.end();

    const QRect inside = button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    std::array<QColor, 2> ground { image.pixelColor(inside.center()), image.pixelColor(inside.center()) };
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const QColor colour = image.pixelColor(inside.center().x(), y);
        ground[0] = luminance(colour) < luminance(ground[0]) ? colour : ground[0];
        ground[1] = luminance(colour) > luminance(ground[1]) ? colour : ground[1];
    }
    return ground;
}

// Adds the colours of single lines of a list, which may differ from those of the list.
void addLines(const QAbstractItemView& list, std::vector<ColourPair>& pairs)
{
    const auto colour
        = [](const QVariant& own, const QColor& other) { return own.isValid() ? own.value<QBrush>().color() : other; };
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QModelIndex line = list.model()->index(row, 0);
        pairs.push_back({ "line of a list", colour(line.data(Qt::ForegroundRole), list.palette().color(QPalette::Text)),
            colour(line.data(Qt::BackgroundRole), list.palette().color(QPalette::Base)) });
    }
}

// The same of the pieces of a text.
void addPieces(const QTextEdit& area, std::vector<ColourPair>& pairs)
{
    const auto colour
        = [](const QBrush& own, const QColor& other) { return own.style() == Qt::NoBrush ? other : own.color(); };
    for (QTextBlock block = area.document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextCharFormat format = piece.fragment().charFormat();
            pairs.push_back({ "piece of a text", colour(format.foreground(), area.palette().color(QPalette::Text)),
                colour(format.background(), area.palette().color(QPalette::Base)) });
        }
    }
}

} // namespace

double Contrast(const QColor& a, const QColor& b)
{
    const auto [darker, lighter] = std::minmax({ luminance(a), luminance(b) });
    return (lighter + 0.05) / (darker + 0.05);
}

std::vector<ColourPair> ColourPairsOf(const QWidget& control)
{
    const QPalette palette = control.palette();
    std::vector<ColourPair> pairs;
    std::vector<QPalette::ColorGroup> groups { QPalette::Active, QPalette::Inactive };
    if (!control.isEnabled()) {
        groups = { QPalette::Disabled };
    }
    for (const auto group : groups) {
        const auto add = [&](const char* what, QPalette::ColorRole text, QPalette::ColorRole ground) {
            pairs.push_back({ what, palette.color(group, text), palette.color(group, ground) });
        };
        add("text", QPalette::Text, QPalette::Base);
        add("text in an alternate line", QPalette::Text, QPalette::AlternateBase);
        add("highlighted text", QPalette::HighlightedText, QPalette::Highlight);
        add("hint in an empty box", QPalette::PlaceholderText, QPalette::Base);
        add("tool tip", QPalette::ToolTipText, QPalette::ToolTipBase);
        add("button", QPalette::ButtonText, QPalette::Button);
        const QWidget& ground = groundOf(control);
        pairs.push_back({ "caption", palette.color(group, control.foregroundRole()),
            ground.palette().color(group, ground.backgroundRole()) });
    }
    if (const auto* label = qobject_cast<const QLabel*>(&control);
        label != nullptr && Qt::mightBeRichText(label->text())) {
        for (const auto role : { QPalette::Link, QPalette::LinkVisited }) {
            pairs.push_back({ "link", palette.color(role), palette.color(QPalette::Window) });
        }
    }
    if (const auto* list = qobject_cast<const QAbstractItemView*>(&control)) {
        addLines(*list, pairs);
    }
    if (const auto* area = qobject_cast<const QTextEdit*>(&control)) {
        addPieces(*area, pairs);
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&control)) {
        std::vector<QStyle::StateFlag> states { QStyle::State_Raised };
        if (button->isEnabled()) {
            states.insert(states.end(), { QStyle::State_Sunken, QStyle::State_MouseOver });
        }
        for (const auto state : states) {
            for (const QColor& ground : paintedGround(*button, state)) {
                pairs.push_back({ state == QStyle::State_Sunken ? "painted button, pressed" : "painted button",
                    palette.color(QPalette::ButtonText), ground });
            }
        }
    }
    return pairs;
}

} // namespace numbrela::testing
