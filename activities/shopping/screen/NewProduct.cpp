#include "activities/shopping/screen/NewProduct.h"

#include "activities/shopping/core/Money.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "common/screen/Boxes.h"

#include <optional>

namespace numbrela {

namespace {

std::optional<Product> askForProduct(QWidget* parent)
{
    const char* title = "Añadir producto";
    const std::string name = AskText(parent, "Nombre del producto", title);
    if (name.empty()) {
        return std::nullopt;
    }
    const std::optional<float> price = ParsePrice(AskText(parent, "Precio del producto:", title));
    if (!price || *price <= 0) {
        return std::nullopt;
    }
    const std::string shop = AskText(parent, "¿En qué tiendas se vende?: ", title);
    if (shop.empty()) {
        return std::nullopt;
    }
    return Product { .Nombre = Trimmed(name), .Precio = *price, .Tienda = Trimmed(shop) };
}

} // namespace

void AddNewProduct(QWidget* parent, const std::function<void(const Product&)>& add)
{
    const std::optional<Product> product = askForProduct(parent);
    if (!product) {
        return;
    }
    try {
        add(*product);
    } catch (const RunTimeError& full) {
        ShowMessage(parent, full.what());
    }
}

} // namespace numbrela
