#include "activities/shopping/catalogue/CatalogueSource.h"

#include "activities/shopping/core/Money.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

namespace numbrela {

namespace {

// Takes what stands before the next separator off the line.
std::string_view takeColumn(std::string_view& line)
{
    const std::size_t end = std::min(line.find(';'), line.size());
    const std::string_view column = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return Trimmed(column);
}

std::optional<Product> readLine(std::string_view line)
{
    const std::string_view shop = takeColumn(line);
    const std::string_view name = takeColumn(line);
    const std::optional<float> price = ParsePrice(line);
    if (shop.empty() || name.empty() || !price || *price <= 0) {
        return std::nullopt;
    }
    return Product { .Nombre = name, .Precio = *price, .Tienda = shop };
}

} // namespace

ProductTable ReadCatalogueSource(std::istream& text)
{
    ProductTable table(1);
    std::string line;
    for (int number = 1; std::getline(text, line); ++number) {
        if (Trimmed(line).empty() || line.front() == '#') {
            continue;
        }
        const std::optional<Product> product = readLine(line);
        if (!product) {
            throw RunTimeError(RunTimeError::Kind::InvalidArgument,
                "La línea " + std::to_string(number) + " no es un producto: " + line);
        }
        AddProduct(table, *product);
    }
    return table;
}

} // namespace numbrela
