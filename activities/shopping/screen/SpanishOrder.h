#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace numbrela {

// The places that these texts (UTF-8) have now, in the order of a Spanish dictionary: ñ after n, case ignored, accents
// compared only when the letters are equal. Equal texts keep their order.
std::vector<std::size_t> SpanishOrder(const std::vector<std::string>& texts);

} // namespace numbrela
