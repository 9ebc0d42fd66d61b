#pragma once

#include <string>

namespace numbrela {

// What is said about an answer.
struct Verdict {
    bool Right = false;
    std::string Text;
};

} // namespace numbrela
