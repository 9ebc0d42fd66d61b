#pragma once

#include <string>

class QWidget;

namespace numbrela::testing {

// All that is written in a window: its title, and line by line the name of each visible control that shows a text, and
// that text; "[x]" and "[ ]" are ticks. Beside a picture it says what pixels do not prove where letters are drawn in
// another way.
std::string WritingIn(const QWidget& window);

} // namespace numbrela::testing
