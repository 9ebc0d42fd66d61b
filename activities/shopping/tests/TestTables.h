#pragma once

#include "activities/shopping/core/Catalogue.h"

#include <string>
#include <vector>

namespace numbrela::testing {

struct ProductRow {
    std::string_view Name;
    float Price;
    std::string_view Shop = "Panadería";
};

inline ProductTable TableOf(const std::vector<ProductRow>& rows)
{
    ProductTable table { Product() };
    for (const ProductRow& row : rows) {
        AddProduct(table, { row.Name, row.Price, row.Shop });
    }
    return table;
}

// Products "Producto 0", "Producto 1", … of one shop, at 1 €.
inline ProductTable NumberedTable(int count)
{
    ProductTable table { Product() };
    for (int index = 0; index < count; ++index) {
        AddProduct(table, { std::string_view("Producto " + std::to_string(index)), 1, std::string_view("Panadería") });
    }
    return table;
}

} // namespace numbrela::testing
