#pragma once

#include <array>

class QWidget;

namespace numbrela::testing {

// The windows in which exercises are drawn, and how a person does one of them, right or wrong, through the window.
struct Practice {
    const char* Window; // its objectName
    void (*DoExercise)(QWidget& window, int number);
};

extern const std::array<Practice, 8> practices;

} // namespace numbrela::testing
