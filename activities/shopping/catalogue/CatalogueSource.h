#pragma once

#include "activities/shopping/core/Catalogue.h"

#include <istream>

namespace numbrela {

// Reads the text from which the first catalogue of an installation is made, UTF-8: one product a line, "Panadería; Una
// barra de pan; 0,85". Empty lines and those that begin with "#" say nothing. Throws RunTimeError::InvalidArgument with
// the number of a line that is not a product.
ProductTable ReadCatalogueSource(std::istream& text);

} // namespace numbrela
