#pragma once

#include <string>

class QWidget;

namespace numbrela::testing {

// The text of a control that is cut off, and how many pixels it lacks; empty if all of it is visible. A text that
// scrolls is not cut off.
std::string CutOffText(const QWidget& control);

} // namespace numbrela::testing
