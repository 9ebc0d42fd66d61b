#pragma once

#include <string>

class QWidget;

namespace numbrela::testing {

// Which text of a control is not seen whole, and how much room it lacks in pixels; empty when all of it is. What
// scrolls is not cut off.
std::string CutOffText(const QWidget& control);

} // namespace numbrela::testing
