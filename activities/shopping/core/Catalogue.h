#pragma once

#include "activities/shopping/core/CatalogueFile.h"
#include "activities/shopping/core/Windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace numbrela {

// A text of exactly Width characters of the 8-bit encoding Windows-1252, as a record file holds it: left-aligned,
// padded with blanks, cut when longer. A text that was never set holds NUL characters.
template <int Width>
class FixedText {
public:
    FixedText() = default;

    // Takes a UTF-8 text; a character that the encoding does not have becomes "?".
    FixedText(std::string_view utf8) // NOLINT(google-explicit-constructor): assigning a text is what a field is for
    {
        const std::string text = Windows1252FromUtf8(utf8);
        Bytes.fill(' ');
        std::copy_n(text.begin(), std::min(text.size(), Bytes.size()), Bytes.begin());
    }

    // The whole text, blanks included, as UTF-8.
    std::string Text() const { return Utf8FromWindows1252({ Bytes.data(), Bytes.size() }); }

    // The text without the blanks, and the NUL characters of a text that was never set, around it, as UTF-8.
    std::string Trimmed() const
    {
        constexpr std::string_view nothing(" \0", 2);
        const std::string_view whole(Bytes.data(), Bytes.size());
        const std::size_t first = whole.find_first_not_of(nothing);
        return first == std::string_view::npos
            ? std::string()
            : Utf8FromWindows1252(whole.substr(first, whole.find_last_not_of(nothing) + 1 - first));
    }

    // Whether the first character is NUL: nothing was ever put into the field.
    bool IsUnset() const { return Bytes[0] == '\0'; }

    bool operator==(const FixedText&) const = default;

    std::array<char, Width> Bytes {};
};

// One product of the catalogue.
struct Product {
    FixedText<100> Nombre;
    float Precio = 0; // euros
    FixedText<50> Tienda; // the one shop that sells it

    bool operator==(const Product&) const = default;
};

// The products, in file order; an index in it is a product's identity. Never empty: without products it holds one empty
// entry.
using ProductTable = std::vector<Product>;

// The most products that a catalogue holds; their count is a 16-bit one.
inline constexpr int MostProducts = 32767;

// Whether the table is empty: the first character of entry 0's name is NUL. Nothing else is looked at, because the
// format marks the empty entry by this alone, and no name that is typed begins so. A record of another program's making
// can, and be a product all the same: it is drawn and listed, but the next product that is added takes its place.
bool IsEmpty(const ProductTable& table);

// Puts a product into entry 0 if the table is empty, or else at the end, and returns its index.
// Throws RunTimeError::Overflow when the table holds MostProducts already.
int AddProduct(ProductTable& table, const Product& product);

// Reads the catalogue file, and creates it empty when there is none. Records whose price is not above zero are passed
// over; a part of a record at the end is ignored. Throws RunTimeError: File when the file cannot be opened or read,
// Overflow for more than MostProducts.
ProductTable LoadCatalogue(const std::filesystem::path& path);

// Like the function above, and also stores the bytes of the file in `content`, for SaveCatalogueIfUnchanged.
ProductTable LoadCatalogue(const std::filesystem::path& path, CatalogueContent& content);

// Writes every entry of the table as the whole file. Whatever happens while it is written, the file is the old one or
// the new one, whole. Throws RunTimeError::File with the file's name and the reason.
void SaveCatalogue(const std::filesystem::path& path, const ProductTable& table);

struct SaveOutcome {
    bool Saved;
    CatalogueContent Content; // what the file holds now
};

// Saves the table like SaveCatalogue, but only if the file holds the expected bytes, or already those to be saved.
// Otherwise someone else has saved since, and the file stays as it is.
SaveOutcome SaveCatalogueIfUnchanged(
    const std::filesystem::path& path, const ProductTable& table, const CatalogueContent& expected);

} // namespace numbrela
