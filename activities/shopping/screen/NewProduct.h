#pragma once

#include "activities/shopping/core/Catalogue.h"

#include <functional>

class QWidget;

namespace numbrela {

// Asks for name, price and shop of a new product, in three input boxes titled "Añadir producto", and hands it to `add`.
// Nothing is added when one of them is left empty or cancelled, or the price is not a number above zero. If `add`
// throws because the catalogue is full, a message says so.
void AddNewProduct(QWidget* parent, const std::function<void(const Product&)>& add);

} // namespace numbrela
