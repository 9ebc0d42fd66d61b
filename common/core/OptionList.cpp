#include "common/core/OptionList.h"

namespace numbrela {

std::string OptionList::CaptionAt(int index) const
{
    return "&" + std::to_string(ValueAt(index));
}

} // namespace numbrela
