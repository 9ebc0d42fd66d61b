#include "common/screen/BoxColours.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace numbrela {

namespace {

// All of them carry dark text with a contrast of more than 5.
constexpr QColor rightGround(0x52, 0xc8, 0x5e);
constexpr QColor wrongGround(0xff, 0x54, 0x48);
constexpr QColor readingGround(0xe6, 0xe6, 0xe6);

void colourGround(QPalette& palette, const QColor& ground)
{
    const QColor ink = QApplication::palette().color(QPalette::Text);
    for (const auto role : { QPalette::Base, QPalette::AlternateBase }) {
        palette.setColor(role, ground);
    }
    for (const auto role : { QPalette::Text, QPalette::PlaceholderText }) {
        palette.setColor(role, ink);
    }
}

void colourHighlight(QPalette& palette, const QColor& highlight)
{
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, QApplication::palette().color(QPalette::Text));
}

} // namespace

void BoxColours::SetTakesTyping(bool takesTyping)
{
    takesTyping_ = takesTyping;
    apply();
}

void BoxColours::ShowVerdict(bool right)
{
    verdict_ = right ? rightGround : wrongGround;
    apply();
}

void BoxColours::ShowNoVerdict()
{
    if (verdict_) {
        verdict_.reset();
        apply();
    }
}

void BoxColours::SetHighlighted(bool highlighted)
{
    highlighted_ = highlighted;
    if (verdict_) {
        apply();
    }
}

void BoxColours::apply()
{
    QPalette palette; // what is not set here, the box inherits from its window
    if (verdict_ && !highlighted_) {
        colourGround(palette, *verdict_);
    } else if (!takesTyping_) {
        colourGround(palette, readingGround);
    }
    if (verdict_) {
        colourHighlight(palette, *verdict_);
    }
    box_.setPalette(palette);
}

} // namespace numbrela
