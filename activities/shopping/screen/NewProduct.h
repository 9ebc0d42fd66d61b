#pragma once

#include "activities/shopping/core/Catalogue.h"

#include <optional>

class QWidget;

namespace numbrela {

// Asks for name, price and shop of a new product, in three input boxes titled "Añadir producto". Nothing when one of
// them is left empty or cancelled, or the price is not a number above zero.
std::optional<Product> AskForNewProduct(QWidget* parent);

} // namespace numbrela
