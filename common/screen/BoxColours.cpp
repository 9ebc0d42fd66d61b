#include "common/screen/BoxColours.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace numbrela {

namespace {

// Both carry white text with a contrast of more than 6.
constexpr QColor rightGround(0x1a, 0x6b, 0x2f);
constexpr QColor wrongGround(0xb3, 0x1c, 0x1c);
constexpr QColor textOnVerdict(0xff, 0xff, 0xff);

constexpr QColor readingGround(0xe6, 0xe6, 0xe6);

void colourGround(QPalette& palette, const QColor& ground, const QColor& text)
{
    for (const auto role : { QPalette::Base, QPalette::AlternateBase }) {
        palette.setColor(role, ground);
    }
    for (const auto role : { QPalette::Text, QPalette::PlaceholderText }) {
        palette.setColor(role, text);
    }
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
    QPalette palette; // what is not set in it, the box has from its window
    if (verdict_ && !highlighted_) {
        colourGround(palette, *verdict_, textOnVerdict);
    } else if (!takesTyping_) {
        colourGround(palette, readingGround, QApplication::palette().color(QPalette::Text));
    }
    if (verdict_) {
        palette.setColor(QPalette::Highlight, *verdict_);
        palette.setColor(QPalette::HighlightedText, textOnVerdict);
    }
    box_.setPalette(palette);
}

} // namespace numbrela
