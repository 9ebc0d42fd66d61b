#include "activities/shopping/screen/SpanishOrder.h"

#include "common/core/web/Page.h"

namespace numbrela {

// The browser knows the order of each language, which Qt without a library for that does not.
std::vector<std::size_t> SpanishOrder(const std::vector<std::string>& texts)
{
    return Page::SpanishOrder(texts);
}

} // namespace numbrela
