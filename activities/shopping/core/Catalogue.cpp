#include "activities/shopping/core/Catalogue.h"

#include "common/core/RunTimeError.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace numbrela {

namespace {

constexpr std::size_t nombreWidth = sizeof(Product::Nombre.Bytes);
constexpr std::size_t precioWidth = sizeof(std::uint32_t);
constexpr std::size_t tiendaWidth = sizeof(Product::Tienda.Bytes);
constexpr std::size_t recordSize = nombreWidth + precioWidth + tiendaWidth;
static_assert(recordSize == 154);

constexpr std::size_t recordsAtATime = 1024;
using Records = std::vector<char>;

float readLittleEndian(const char* bytes)
{
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < precioWidth; ++i) {
        bits |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return std::bit_cast<float>(bits);
}

void writeLittleEndian(float value, char* bytes)
{
    const auto bits = std::bit_cast<std::uint32_t>(value);
    for (std::size_t i = 0; i < precioWidth; ++i) {
        bytes[i] = static_cast<char>((bits >> (8 * i)) & 0xFFU);
    }
}

float priceOf(const char* record)
{
    return readLittleEndian(record + nombreWidth);
}

void readRecord(const char* record, Product& product)
{
    std::memcpy(product.Nombre.Bytes.data(), record, nombreWidth);
    product.Precio = priceOf(record);
    std::memcpy(product.Tienda.Bytes.data(), record + nombreWidth + precioWidth, tiendaWidth);
}

void writeRecord(const Product& product, char* record)
{
    std::memcpy(record, product.Nombre.Bytes.data(), nombreWidth);
    writeLittleEndian(product.Precio, record + nombreWidth);
    std::memcpy(record + nombreWidth + precioWidth, product.Tienda.Bytes.data(), tiendaWidth);
}

bool isFull(const ProductTable& table)
{
    return table.size() >= static_cast<std::size_t>(MostProducts);
}

// Reads the table, and passes every byte that it reads on to the caller.
template <typename HandOn>
ProductTable loadRecords(const std::filesystem::path& path, HandOn handOn)
{
    CatalogueReader file(path);
    ProductTable table;
    table.reserve(std::min<std::size_t>(file.Size() / recordSize, MostProducts));
    Records buffer(recordsAtATime * recordSize);
    std::size_t filled = buffer.size();
    while (filled == buffer.size()) {
        filled = file.Read(buffer);
        handOn(std::string_view(buffer.data(), filled));
        for (std::size_t end = recordSize; end <= filled; end += recordSize) {
            const char* record = buffer.data() + end - recordSize;
            if (priceOf(record) > 0) {
                if (isFull(table)) {
                    throw RunTimeError(RunTimeError::Kind::Overflow,
                        "El catálogo «" + TextOf(path) + "» tiene más de " + std::to_string(MostProducts)
                            + " productos.");
                }
                readRecord(record, table.emplace_back());
            }
        }
    }
    table.resize(std::max<std::size_t>(table.size(), 1));
    return table;
}

std::string contentOf(const ProductTable& table)
{
    std::string content(table.size() * recordSize, '\0');
    char* record = content.data();
    for (const Product& product : table) {
        writeRecord(product, record);
        record += recordSize;
    }
    return content;
}

} // namespace

bool IsEmpty(const ProductTable& table)
{
    return table.front().Nombre.IsUnset();
}

int AddProduct(ProductTable& table, const Product& product)
{
    if (IsEmpty(table)) {
        table.front() = product;
        return 0;
    }
    if (isFull(table)) {
        throw RunTimeError(RunTimeError::Kind::Overflow,
            "El catálogo está lleno: no caben más de " + std::to_string(MostProducts) + " productos.");
    }
    table.push_back(product);
    return static_cast<int>(table.size()) - 1;
}

ProductTable LoadCatalogue(const std::filesystem::path& path)
{
    return loadRecords(path, [](std::string_view) {});
}

ProductTable LoadCatalogue(const std::filesystem::path& path, CatalogueContent& content)
{
    std::string bytes;
    ProductTable table = loadRecords(path, [&bytes](std::string_view more) { bytes += more; });
    content = std::move(bytes);
    return table;
}

void SaveCatalogue(const std::filesystem::path& path, const ProductTable& table)
{
    ReplaceCatalogue(path, contentOf(table));
}

SaveOutcome SaveCatalogueIfUnchanged(
    const std::filesystem::path& path, const ProductTable& table, const CatalogueContent& expected)
{
    CatalogueContent wanted = contentOf(table);
    CatalogueContent found;
    const bool saved = ReplaceCatalogue(path, *wanted, [&](CatalogueContent content) {
        found = std::move(content);
        return found == expected || found == wanted;
    });
    return { .Saved = saved, .Content = std::move(saved ? wanted : found) };
}

} // namespace numbrela
