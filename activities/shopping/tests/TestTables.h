#pragma once

#include "activities/shopping/core/Catalogue.h"

#include <string>
#include <vector>

namespace numbrela::testing {

// A product of these texts, UTF-8.
inline Product ProductOf(std::string_view name, std::string_view shop, float price = 1)
{
    return { .Nombre = name, .Precio = price, .Tienda = shop };
}

struct ProductRow {
    std::string_view Name;
    float Price;
    std::string_view Shop = "Panadería";
};

inline ProductTable TableOf(const std::vector<ProductRow>& rows)
{
    ProductTable table { Product() };
    for (const ProductRow& row : rows) {
        AddProduct(table, ProductOf(row.Name, row.Shop, row.Price));
    }
    return table;
}

// Products "Producto 0", "Producto 1", … of one shop, at 1 €.
inline ProductTable NumberedTable(int count)
{
    ProductTable table { Product() };
    for (int index = 0; index < count; ++index) {
        AddProduct(table, ProductOf("Producto " + std::to_string(index), "Panadería"));
    }
    return table;
}

} // namespace numbrela::testing
