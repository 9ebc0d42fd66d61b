#pragma once

#include "activities/shopping/core/Catalogue.h"
#include "common/core/Int16.h"

#include <string>

namespace numbrela {

// A product as text: what the edit boxes show, and what is typed into them. UTF-8.
struct ProductTexts {
    std::string Tienda;
    std::string Nombre;
    std::string Precio;

    bool operator==(const ProductTexts&) const = default;
};

// What a teacher can do with the catalogue: choose a product, edit it in the boxes, add, change and delete products.
// The screen keeps the lines of the list, their order and the selection.
// Nothing reaches the file before the table is saved.
class ProductEditor {
public:
    // Takes the table from the catalogue file. Throws what LoadCatalogue throws.
    void Load(const std::filesystem::path& catalogue);

    // Saves the table. Returns false and saves nothing if someone else has changed the file since it was loaded or last
    // saved. Throws what SaveCatalogue throws.
    bool Save(const std::filesystem::path& catalogue);

    // Saves the table over the version that the refused save has found. Returns false and saves nothing if the file has
    // changed again since.
    bool SaveOverOthers(const std::filesystem::path& catalogue);

    // The catalogue line of a product: shop, name, price and "€" in columns.
    std::string LineText(int product) const;

    ProductTexts TextsOf(int product) const;

    // Puts the texts of the edit boxes into the product that they show, if any. Returns false and changes nothing if
    // the price is not a number.
    bool WriteBack(const ProductTexts& boxes);

    // From now on the edit boxes show this product.
    void Select(int product);

    // Puts the product into entry 0 if the table is empty, or else at the end, and returns its index.
    // Throws RunTimeError::Overflow when the catalogue is full.
    int Add(const Product& product);

    // Changes the product to the answers that are not empty, and returns whether that made a difference. The price is
    // read as far as it is a number with "." as its only decimal point: "1,25" gives 1, and "abc" gives 0, which
    // deletes the product when the catalogue is next loaded. Throws RunTimeError::Overflow, and changes nothing, if the
    // price is too large.
    bool Change(int product, const ProductTexts& answers);

    // Removes the product; the last one left stays with the price 0 and is gone when the catalogue is next loaded.
    // `line` is its line; returns the line to select next, the one above or the first.
    int Delete(int product, int line);

    ProductTable Table { 1 };
    Int16 SelectedProduct; // index of the product that the edit boxes show
    bool Editing = false; // whether they show one

private:
    bool saveInPlaceOf(const CatalogueContent& content, const std::filesystem::path& catalogue);

    CatalogueContent known_; // what the file held when it was loaded or last saved
    CatalogueContent others_; // what the refused save found in the file
};

} // namespace numbrela
