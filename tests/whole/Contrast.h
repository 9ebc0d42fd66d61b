#pragma once

#include <QColor>

#include <string>
#include <vector>

class QWidget;

namespace numbrela::testing {

// How many times lighter the lighter of two colours is, from 1 to 21, as defined by the Web Content Accessibility
// Guidelines, which ask for 4.5 for text.
double Contrast(const QColor& a, const QColor& b);

// The colour of a text and of its background.
struct ColourPair {
    std::string What;
    QColor Text;
    QColor Ground;
};

// The pairs in which a control shows text, in an active window and in one that is not.
std::vector<ColourPair> ColourPairsOf(const QWidget& control);

} // namespace numbrela::testing
