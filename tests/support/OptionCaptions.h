#pragma once

#include "common/core/OptionList.h"

#include <string>

namespace numbrela::testing {

// What the items of an option list read in the menu, one behind the other: "&2&3&4".
inline std::string OptionCaptions(const OptionList& options)
{
    std::string captions;
    for (int index = 0; index < options.Count; ++index) {
        captions += options.CaptionAt(index);
    }
    return captions;
}

} // namespace numbrela::testing
