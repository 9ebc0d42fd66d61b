#pragma once

#include <string>

namespace numbrela {

// What was said of an answer.
struct Verdict {
    bool Right = false;
    std::string Text;
};

} // namespace numbrela
